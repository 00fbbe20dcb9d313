// The jobs a person waits for, as the program does them: tarvolt_benchmarks OPERATION INPUT. Figures mean something
// only beside others of the same run, as ./benchmark prints them.
#include "benchmarks/operations.h"
#include "foundation/file_manager.h"
#include "foundation/text.h"
#include "model/folder_scan.h"
#include "model/mpc_scanner.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace tarvolt;
using tarvolt::benchmarks::linesOf;

/// Runs everything at once.
class ImmediateQueue final : public DispatchQueue {
public:
    void async(Task task) override { task(); }
    void asyncAfter(std::chrono::milliseconds, Task task) override { task(); }
};

std::shared_ptr<MPCScanner> makeScanner() {
    const auto queue = std::make_shared<ImmediateQueue>();
    return MPCScanner::create({makePosixFileManager(), queue, queue, nullptr});
}

void scanBenchmark(benchmark::State& state, const std::string& folder) {
    const auto disk = makePosixFileManager();
    for (auto _ : state) {
        benchmark::DoNotOptimize(measureProjects(*disk, folder, listFolder(*disk, folder), "en_US").data());
    }
}

/// What renames a project in `folder`.
auto renameIn(const std::string& folder) {
    const auto scanner = makeScanner();
    scanner->folderURL.set(folder);
    return [scanner, start = folder + "/"](const std::string& from, const std::string& to) {
        const std::string path = start + from;
        scanner->rename(MPCProject(from, path + ".xpj", path + std::string(dataFolderSuffix), 0, 0), to);
    };
}

void renameBenchmark(benchmark::State& state, const std::string& folder) {
    benchmarks::renameThereAndBack(state, renameIn(folder));
}

void renameOfTwoFormsBenchmark(benchmark::State& state, const std::string& folder) {
    benchmarks::renameAnew(state, folder, renameIn(folder));
}

/// The order of the names and the records moved into it, as at the end of a scan. All memory is used again in the next
/// run, as in the floor.
void sortBenchmark(benchmark::State& state, const std::string& list) {
    const std::vector<std::string> names = linesOf(list);
    std::vector<std::optional<MPCProject>> records(names.size());
    std::vector<MPCProject> sorted;
    for (auto _ : state) {
        state.PauseTiming();
        sorted.clear();
        std::ranges::transform(names, records.begin(), [](const std::string& name) {
            return MPCProject(name, name + ".xpj", std::nullopt, 0, 0);
        });
        state.ResumeTiming();
        const auto order = localizedCaseInsensitiveCompareOrder({names.begin(), names.end()}, "en_US");
        sorted.reserve(order.size());
        for (const std::size_t index : order) {
            sorted.push_back(*std::move(records[index]));
        }
        benchmark::DoNotOptimize(sorted.data());
    }
}

void filterBenchmark(benchmark::State& state, const std::string& list) {
    const std::vector<std::string> names = linesOf(list);
    for (auto _ : state) {
        for (const auto& name : names) {
            benchmark::DoNotOptimize(localizedCaseInsensitiveContains(name, benchmarks::searchText, "en_US"));
        }
    }
}

void logBenchmark(benchmark::State& state, const std::string& lines) {
    for (auto _ : state) {
        const auto scanner = makeScanner();
        for (int i = std::stoi(lines); i > 0; --i) {
            scanner->log("Found 12 .xpj file(s) and 12 data folder(s)", false);
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    return benchmarks::runOperation(argc, argv,
                                    {{"scan", scanBenchmark},
                                     {"rename", renameBenchmark},
                                     {"rename of two forms", renameOfTwoFormsBenchmark},
                                     {"flushed rename", renameBenchmark},
                                     {"sort", sortBenchmark},
                                     {"filter", filterBenchmark},
                                     {"log", logBenchmark}});
}
