#include "foundation/date_formatter.h"

#include "foundation/icu.h"

#include <ctime>
#include <memory>

#include <unicode/simpletz.h>
#include <unicode/smpdtfmt.h>

namespace tarvolt {

namespace {

/// How far the user's clock is ahead of UTC at that moment, according to the C library. ICU has its own time zone data,
/// which may be older than the system's, and does not support zones written as POSIX rules.
std::chrono::milliseconds usersOffset(std::chrono::milliseconds sinceEpoch) {
    const std::time_t time = std::chrono::floor<std::chrono::seconds>(sinceEpoch).count();
    std::tm local{};
    ::tzset();                    // the zone may have changed since
    ::localtime_r(&time, &local); // fails only beyond the years that fit in milliseconds
    return std::chrono::seconds(local.tm_gmtoff);
}

/// Formats are slow to make, and a log needs the same one again and again, so each thread keeps its last.
icu::SimpleDateFormat& formatFor(std::string_view pattern, std::string_view locale) {
    struct Last {
        std::string pattern;
        std::string locale;
        std::unique_ptr<icu::SimpleDateFormat> format;
    };
    thread_local Last last;
    if (!last.format || last.pattern != pattern || last.locale != locale) {
        UErrorCode status = U_ZERO_ERROR;
        auto format =
            std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString::fromUTF8(pattern), icuLocale(locale), status);
        throwIfFailed(status, "SimpleDateFormat");
        last = {std::string(pattern), std::string(locale), std::move(format)};
    }
    return *last.format;
}

} // namespace

std::string dateText(std::chrono::system_clock::time_point time, std::string_view pattern, std::string_view locale) {
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(time.time_since_epoch());
    icu::SimpleDateFormat& format = formatFor(pattern, locale);
    format.setTimeZone(
        icu::SimpleTimeZone(static_cast<std::int32_t>(usersOffset(milliseconds).count()), icu::UnicodeString()));
    icu::UnicodeString text;
    format.format(static_cast<UDate>(milliseconds.count()), text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

} // namespace tarvolt
