#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace tarvolt::testing {

/// Runs `body` on a thread that alone sees an empty file system of this many bytes, on its own device, at the path
/// passed to it. Returns why that is not available here (`body` has then not run), or nothing. Rethrows what `body`
/// throws.
std::optional<std::string> withSmallDisk(std::size_t bytes,
                                         const std::function<void(const std::filesystem::path&)>& body);

/// Runs `body` while no file of this process can grow beyond this many bytes: the write that exceeds it is cut
/// short and the next one fails. Nothing must be printed meanwhile.
void withLimitedFileSize(std::size_t bytes, const std::function<void()>& body);

} // namespace tarvolt::testing
