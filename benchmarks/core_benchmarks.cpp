// The four jobs a person waits for: a scan, the rewriting of one project file, the order of the list and the search.
// Figures mean something only beside others of the same run; compare medians of two builds measured in turn.
#include "foundation/posix_file_manager.h"
#include "foundation/text.h"
#include "model/folder_scan.h"
#include "rename/reference_rewrite.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace tarvolt;
namespace fs = std::filesystem;

/// A folder of projects on the real disk, each with `entries` small files, gone with its object.
class ProjectsFolder {
public:
    ProjectsFolder(int projects, int entries) : path_(fs::temp_directory_path() / "tarvolt-benchmark") {
        fs::remove_all(path_);
        for (int i = 0; i < projects; ++i) {
            const auto stem = (path_ / ("Project " + std::to_string(i))).native();
            fs::create_directories(stem + "_[ProjectData]");
            std::ofstream(stem + ".xpj") << "text";
            for (int k = 0; k < entries; ++k) {
                std::ofstream(stem + "_[ProjectData]/sample " + std::to_string(k) + ".wav") << "sample";
            }
        }
    }
    ProjectsFolder(const ProjectsFolder&) = delete;
    ProjectsFolder& operator=(const ProjectsFolder&) = delete;
    ~ProjectsFolder() { fs::remove_all(path_); }

    const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

std::vector<MPCProject> namedProjects(int count, bool accents) {
    std::mt19937 random(7);
    std::vector<MPCProject> projects(static_cast<std::size_t>(count));
    for (auto& project : projects) {
        project.baseName = (accents && random() % 4 == 0 ? "Caf\u00e9 " : "Midnight Ferry ") + std::to_string(random());
    }
    return projects;
}

void scan(benchmark::State& state) {
    const ProjectsFolder folder(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const auto disk = makePosixFileManager();
    for (auto _ : state) {
        auto projects = measureProjects(*disk, folder.path(), listFolder(*disk, folder.path()), UUID::random);
        sortByName(projects, "en_US");
        benchmark::DoNotOptimize(projects.data());
    }
}
BENCHMARK(scan)->Args({50, 100})->Args({500, 100})->Unit(benchmark::kMillisecond)->UseRealTime();

void rewrite(benchmark::State& state) {
    std::string text;
    while (text.size() < 5'000'000) {
        text += "<Layer><File>Night Drive_[ProjectData]/kick.wav</File></Layer>";
        text += std::string(static_cast<std::size_t>(state.range(0)), 'N');
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(rewriteReferences(text, "Night Drive", "Dawn"));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(rewrite)->Arg(100)->Arg(100'000)->Unit(benchmark::kMillisecond);

void order(benchmark::State& state) {
    const auto projects = namedProjects(20'000, state.range(0) != 0);
    for (auto _ : state) {
        auto sorted = projects;
        sortByName(sorted, "en_US");
        benchmark::DoNotOptimize(sorted.data());
    }
}
BENCHMARK(order)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void search(benchmark::State& state) {
    const auto projects = namedProjects(20'000, state.range(0) != 0);
    for (auto _ : state) {
        for (const auto& project : projects) {
            benchmark::DoNotOptimize(localizedCaseInsensitiveContains(project.baseName, "ferry 77", "en_US"));
        }
    }
}
BENCHMARK(search)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace
