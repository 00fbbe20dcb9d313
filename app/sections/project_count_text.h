#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvolt {

/// The header's badge: "0 projects", "1 project", "2 projects", the number in the digits of `locale`.
std::string projectCountText(std::int64_t count, std::string_view locale);

} // namespace tarvolt
