#pragma once

#include <benchmark/benchmark.h>

#include <string>

/// The least that the jobs can cost on this machine: the system calls and library calls that no program can do without,
/// and as little else as possible. No records, no messages, no way back after a failure: failures end the process.
namespace tarvolt::benchmarks {

/// Lists `folder`, pairs project files with data folders and adds up sizes, on one thread or two. Nothing is sorted.
void scanFloor(benchmark::State& state, const std::string& folder, bool onTwoThreads);

/// Reads the project file in `folder`, checks that it is UTF-8, writes it with the name replaced byte by byte, moves
/// the data folder and removes the old file. With `flushes`, each step is on disk before the next.
void renameFloor(benchmark::State& state, const std::string& folder, bool flushes);

/// The same, flushed, with all the calls that keep Tarvolt's promises about other programs and interruptions.
void carefulRenameFloor(benchmark::State& state, const std::string& folder);

/// Like renameFloor, for a project with an accented name. It finds only the references in the name's own Unicode form.
void renameOfTwoFormsFloor(benchmark::State& state, const std::string& folder);

/// Makes ICU's sort keys of the names in the file `list` and sorts their indices.
void sortFloor(benchmark::State& state, const std::string& list);

/// Folds each name in the file `list` and searches it. ASCII names are folded without ICU.
void filterFloor(benchmark::State& state, const std::string& list);

} // namespace tarvolt::benchmarks
