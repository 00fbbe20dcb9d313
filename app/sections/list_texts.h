#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvolt {

/// The header's badge: "0 projects", "1 project", "2 projects", with the number as `locale` writes it.
std::string projectCountText(std::int64_t count, std::string_view locale);

/// "12 files", also "1 files", with the number as `locale` writes it.
std::string fileCountText(std::int64_t fileCount, std::string_view locale);

} // namespace tarvolt
