#pragma once

#include "foundation/date_formatter.h"

#include <string_view>

namespace tarvolt {

/// Makes the log's time texts: pattern "h:mm:ss a" in a locale and time zone (empty: the user's own).
DateFormatter makeLogTimeFormatter(std::string_view locale, std::string_view timeZone = {});

} // namespace tarvolt
