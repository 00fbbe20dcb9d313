#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <string>
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

/// The project that the inputs of a rename contain, and the name it gets and loses again in turn.
inline constexpr const char* projectName = "Night Drive";
inline constexpr const char* otherName = "Dawn Patrol";

/// What the list is searched for.
inline constexpr const char* searchText = "mi";

} // namespace tarvolt::benchmarks
