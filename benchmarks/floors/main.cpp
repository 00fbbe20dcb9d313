// The least each job can cost: tarvolt_floors OPERATION INPUT.
#include "benchmarks/floors/floors.h"
#include "benchmarks/operations.h"

int main(int argc, char** argv) {
    using namespace tarvolt::benchmarks;
    return runOperation(argc, argv,
                        {{"scan", scanFloor},
                         {"rename", [](auto& state, auto& folder) { renameFloor(state, folder, false); }},
                         {"careful rename", carefulRenameFloor},
                         {"rename of two forms", renameOfTwoFormsFloor},
                         {"flushed rename", [](auto& state, auto& folder) { renameFloor(state, folder, true); }},
                         {"sort", sortFloor},
                         {"filter", filterFloor}});
}
