#pragma once

#include "foundation/date_formatter.h"

#include <string_view>

namespace tarvolt {

/// Formats the times of log lines: pattern "h:mm:ss a" in a locale and time zone (empty: the user's own).
inline DateFormatter makeLogTimeFormatter(std::string_view locale, std::string_view timeZone = {}) {
    return {"h:mm:ss a", locale, timeZone};
}

} // namespace tarvolt
