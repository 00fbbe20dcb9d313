#pragma once

#include "foundation/date_formatter.h"

namespace tarvolt {

/// The time of a log line, such as "3:07:09 PM", in a locale and the user's time zone.
inline std::string logTimeText(std::chrono::system_clock::time_point time, std::string_view locale) {
    return dateText(time, "h:mm:ss a", locale);
}

} // namespace tarvolt
