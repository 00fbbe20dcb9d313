// The least each job can cost: tarvolt_floors OPERATION INPUT.
#include "benchmarks/floors/floors.h"
#include "benchmarks/operations.h"

int main(int argc, char** argv) {
    using namespace tarvolt::benchmarks;
    return runOperation(argc, argv,
                        {{"scan", [](auto& state, auto& folder) { scanFloor(state, folder, false); }},
                         {"scan on two threads", [](auto& state, auto& folder) { scanFloor(state, folder, true); }},
                         {"rename", [](auto& state, auto& folder) { renameFloor(state, folder, false); }},
                         {"careful rename", carefulRenameFloor},
                         {"rename of two forms", renameOfTwoFormsFloor},
                         {"flushed rename", [](auto& state, auto& folder) { renameFloor(state, folder, true); }},
                         {"sort", sortFloor},
                         {"filter", filterFloor}});
}
