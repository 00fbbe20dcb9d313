// The jobs a person waits for: a scan, a rename and in it the rewriting of the project file, the order of the list and
// the search.
// Figures mean something only beside others of the same run; compare medians of two builds measured in turn.
#include "foundation/file_manager.h"
#include "foundation/text.h"
#include "model/folder_scan.h"
#include "model/mpc_scanner.h"

#include <benchmark/benchmark.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace {

using namespace tarvolt;
namespace fs = std::filesystem;

/// A folder of projects on the real disk, each with `entries` small files, gone with its object.
class ProjectsFolder {
public:
    ProjectsFolder(int projects, int entries) {
        std::string name = (fs::temp_directory_path() / "tarvolt-benchmark-XXXXXX").native();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), "mkdtemp");
        }
        path_ = name;
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
    std::vector<MPCProject> projects;
    for (int i = 0; i < count; ++i) {
        const std::string start = accents && random() % 4 == 0 ? "Caf\u00e9 " : "Midnight Ferry ";
        projects.emplace_back(start + std::to_string(random()), fs::path(), std::nullopt, 0, 0);
    }
    return projects;
}

void scan(benchmark::State& state) {
    const ProjectsFolder folder(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const auto disk = makePosixFileManager();
    for (auto _ : state) {
        const FolderListing listing = listFolder(*disk, folder.path());
        benchmark::DoNotOptimize(measureProjects(*disk, folder.path(), listing, "en_US").data());
    }
}
BENCHMARK(scan)->Args({50, 100})->Args({500, 100})->Unit(benchmark::kMillisecond)->UseRealTime();

/// Some 5 MB of a project file of "Night Drive", with so many bytes between one reference and the next.
std::string projectText(std::int64_t bytesBetween) {
    std::string text;
    while (text.size() < 5'000'000) {
        text += "<Layer><File>Night Drive_[ProjectData]/kick.wav</File></Layer>";
        text += std::string(static_cast<std::size_t>(bytesBetween), 'N');
    }
    return text;
}

/// Drops everything: a rename needs a queue for its line in the log alone.
class NoQueue final : public DispatchQueue {
public:
    void async(Task) override {}
    void asyncAfter(std::chrono::milliseconds, Task) override {}
};

/// Renames one project forth and back on the real disk, which is brought up to date each time.
void rename(benchmark::State& state) {
    const ProjectsFolder folder(0, 0);
    const auto projectNamed = [&](const std::string& name) {
        return MPCProject(name, folder.path() / (name + ".xpj"), folder.path() / (name + "_[ProjectData]"), 0, 0);
    };
    auto project = projectNamed("Night Drive");
    auto renamed = projectNamed("Dawn");
    fs::create_directories(*project.dataFolderURL());
    std::ofstream(project.xpjURL()) << projectText(state.range(0));
    const auto queue = std::make_shared<NoQueue>();
    const auto scanner = MPCScanner::create({makePosixFileManager(), queue, queue, nullptr});
    scanner->folderURL.set(folder.path());
    for (auto _ : state) {
        scanner->rename(project, renamed.baseName());
        std::swap(project, renamed);
    }
}
BENCHMARK(rename)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();

void rewrite(benchmark::State& state) {
    const std::string text = projectText(state.range(0));
    for (auto _ : state) {
        replaceAllBeforeTail(text, "Night Drive", "Dawn", dataFolderSuffix,
                             [](std::string_view part) { benchmark::DoNotOptimize(part.data()); });
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(rewrite)->Arg(100)->Arg(100'000)->Unit(benchmark::kMillisecond);

void order(benchmark::State& state) {
    const auto projects = namedProjects(20'000, state.range(0) != 0);
    std::vector<std::string_view> names;
    for (const auto& project : projects) {
        names.push_back(project.baseName());
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(localizedCaseInsensitiveCompareOrder(names, "en_US").data());
    }
}
BENCHMARK(order)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void search(benchmark::State& state) {
    const auto projects = namedProjects(20'000, state.range(0) != 0);
    for (auto _ : state) {
        for (const auto& project : projects) {
            benchmark::DoNotOptimize(localizedCaseInsensitiveContains(project.baseName(), "ferry 77", "en_US"));
        }
    }
}
BENCHMARK(search)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace
