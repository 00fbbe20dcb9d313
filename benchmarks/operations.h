#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tarvolt::benchmarks {

/// A job and its input: a folder, a list of names, or a number, depending on the job.
using Operation = std::function<void(benchmark::State& state, const std::string& input)>;

/// The main function of a program with these operations: PROGRAM OPERATION INPUT [OPTION OF GOOGLE BENCHMARK...].
inline int runOperation(int argc, char** argv, const std::map<std::string, Operation>& operations) {
    const auto chosen = argc < 3 ? operations.end() : operations.find(argv[1]);
    if (chosen == operations.end()) {
        std::fprintf(stderr, "usage: %s OPERATION INPUT [OPTION...]\n", argv[0]);
        return 2;
    }
    benchmark::RegisterBenchmark(argv[1], chosen->second, std::string(argv[2]))->UseRealTime();
    std::vector<char*> options{argv[0]};
    options.insert(options.end(), argv + 3, argv + argc);
    int count = static_cast<int>(options.size());
    benchmark::Initialize(&count, options.data());
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

/// The lines of a file.
inline std::vector<std::string> linesOf(const std::string& path) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// The project that the inputs of a rename contain, and the name it gets.
inline constexpr const char* projectName = "Night Drive";
inline constexpr const char* accentedName = "Café Noir";
inline constexpr const char* otherName = "Dawn Patrol";

/// Measures `rename`, a function of the old and the new name, on a project that gets its new name and loses it again in
/// turn.
template<class Rename> void renameThereAndBack(benchmark::State& state, const Rename& rename) {
    std::string present = projectName;
    std::string absent = otherName;
    for (auto _ : state) {
        rename(present, absent);
        std::swap(present, absent);
    }
    if (present == otherName) {
        rename(present, absent);
    }
}

/// Measures `rename` on a project whose references are in two Unicode forms. A rename leaves only one of them, so the
/// project is made anew each time.
template<class Rename>
void renameAnew(benchmark::State& state, const std::filesystem::path& folder, const Rename& rename) {
    const std::string name = accentedName;
    const std::string newName = otherName;
    std::filesystem::copy_file(folder / (name + ".xpj"), folder / "copy");
    for (auto _ : state) {
        rename(name, newName);
        state.PauseTiming();
        std::filesystem::rename(folder / (newName + "_[ProjectData]"), folder / (name + "_[ProjectData]"));
        std::filesystem::remove(folder / (newName + ".xpj"));
        std::filesystem::copy_file(folder / "copy", folder / (name + ".xpj"));
        state.ResumeTiming();
    }
    std::filesystem::remove(folder / "copy");
}

/// What the list is searched for.
inline constexpr const char* searchText = "mi";

} // namespace tarvolt::benchmarks
