#include "foundation/date_formatter.h"

#include "foundation/icu.h"

#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

namespace tarvolt {

struct DateFormatter::Format {
    Format(const icu::UnicodeString& pattern, const icu::Locale& locale, UErrorCode& status)
        : icuFormat(pattern, locale, status) {}

    icu::SimpleDateFormat icuFormat;
};

DateFormatter::DateFormatter(std::string_view pattern, std::string_view locale, std::string_view timeZone) {
    UErrorCode status = U_ZERO_ERROR;
    format_ = std::make_unique<Format>(icu::UnicodeString::fromUTF8(pattern), icuLocale(locale), status);
    throwIfFailed(status, "SimpleDateFormat");
    format_->icuFormat.adoptTimeZone(timeZone.empty()
                                         ? icu::TimeZone::createDefault()
                                         : icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(timeZone)));
}

DateFormatter::DateFormatter(DateFormatter&&) noexcept = default;
DateFormatter& DateFormatter::operator=(DateFormatter&&) noexcept = default;
DateFormatter::~DateFormatter() = default;

std::string DateFormatter::text(std::chrono::system_clock::time_point time) const {
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(time.time_since_epoch());
    icu::UnicodeString text;
    format_->icuFormat.format(static_cast<UDate>(milliseconds.count()), text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

} // namespace tarvolt
