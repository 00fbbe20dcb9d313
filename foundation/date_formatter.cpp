#include "foundation/date_formatter.h"

#include "foundation/icu.h"

#include <ctime>

#include <unicode/simpletz.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

namespace tarvolt {

struct DateFormatter::Format {
    Format(const icu::UnicodeString& pattern, const icu::Locale& locale, UErrorCode& status)
        : icuFormat(pattern, locale, status) {}

    icu::SimpleDateFormat icuFormat;
    bool inUsersZone = false;
};

namespace {

/// How far the user's clock is ahead of UTC at that moment, according to the C library. ICU has its own time zone data,
/// which may be older than the system's, and does not support zones written as POSIX rules.
std::chrono::milliseconds usersOffset(std::chrono::milliseconds sinceEpoch) {
    const std::time_t time = std::chrono::floor<std::chrono::seconds>(sinceEpoch).count();
    std::tm local{};
    ::tzset(); // the zone may have changed since
    return ::localtime_r(&time, &local) != nullptr ? std::chrono::seconds(local.tm_gmtoff) : std::chrono::seconds(0);
}

} // namespace

DateFormatter::DateFormatter(std::string_view pattern, std::string_view locale, std::string_view timeZone) {
    UErrorCode status = U_ZERO_ERROR;
    format_ = std::make_unique<Format>(icu::UnicodeString::fromUTF8(pattern), icuLocale(locale), status);
    throwIfFailed(status, "SimpleDateFormat");
    format_->inUsersZone = timeZone.empty();
    if (!timeZone.empty()) {
        format_->icuFormat.adoptTimeZone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(timeZone)));
    }
}

DateFormatter::DateFormatter(DateFormatter&&) noexcept = default;
DateFormatter& DateFormatter::operator=(DateFormatter&&) noexcept = default;
DateFormatter::~DateFormatter() = default;

std::string DateFormatter::text(std::chrono::system_clock::time_point time) const {
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(time.time_since_epoch());
    if (format_->inUsersZone) {
        const auto offset = static_cast<std::int32_t>(usersOffset(milliseconds).count());
        format_->icuFormat.setTimeZone(icu::SimpleTimeZone(offset, icu::UnicodeString()));
    }
    icu::UnicodeString text;
    format_->icuFormat.format(static_cast<UDate>(milliseconds.count()), text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

} // namespace tarvolt
