#include "app/sections/log_time_text.h"

namespace tarvolt {

DateFormatter makeLogTimeFormatter(std::string_view locale, std::string_view timeZone) {
    return {"h:mm:ss a", locale, timeZone};
}

} // namespace tarvolt
