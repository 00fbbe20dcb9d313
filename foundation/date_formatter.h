#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace tarvolt {

/// `time` formatted by a pattern of Unicode date fields (UTS #35) such as "h:mm:ss a", in `locale` (an identifier, see
/// UserLocale) and the user's time zone. The zone is what the C library has at the time of the call (TZ, else the
/// system's). Only its offset is used, not its name.
std::string dateText(std::chrono::system_clock::time_point time, std::string_view pattern, std::string_view locale);

} // namespace tarvolt
