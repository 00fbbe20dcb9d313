#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace tarvolt::testing {

/// Runs `body` on a thread that alone sees an empty file system of so many bytes, on a device of its own, at the path
/// it is given. Returns why that cannot be had here (`body` has then not run), or nothing. What `body` throws is thrown
/// on.
std::optional<std::string> withSmallDisk(std::size_t bytes,
                                         const std::function<void(const std::filesystem::path&)>& body);

/// Runs `body` while no file of this process can grow beyond so many bytes: the write that crosses the line is cut
/// short and the next one fails. Nothing may be printed meanwhile.
void withLimitedFileSize(std::size_t bytes, const std::function<void()>& body);

} // namespace tarvolt::testing
