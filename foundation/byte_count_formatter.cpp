#include "foundation/byte_count_formatter.h"

#include "foundation/icu.h"

#include <array>
#include <optional>

#include <unicode/numberformatter.h>
#include <unicode/unistr.h>

namespace tarvolt {

namespace {

struct Unit {
    const char* name;
    std::int64_t bytes;
    std::int64_t steps; ///< how many of the smallest shown difference are one unit
};

constexpr std::array<Unit, 6> units{{{"KB", 1'000, 1},
                                     {"MB", 1'000'000, 10},
                                     {"GB", 1'000'000'000, 100},
                                     {"TB", 1'000'000'000'000, 100},
                                     {"PB", 1'000'000'000'000'000, 100},
                                     {"EB", 1'000'000'000'000'000'000, 100}}};

/// The number format of a locale. Making one is slow and lists ask for the same again and again, so each thread keeps
/// its last one ready.
const icu::number::LocalizedNumberFormatter& numberFormat(std::string_view locale) {
    struct Last {
        std::optional<std::string> locale;
        icu::number::LocalizedNumberFormatter format;
    };
    thread_local Last last;
    if (last.locale != locale) {
        last.format =
            icu::number::NumberFormatter::withLocale(icuLocale(locale)).precision(icu::number::Precision::unlimited());
        last.locale = locale;
    }
    return last.format;
}

std::string decimalText(const std::string& decimal, std::string_view locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::string text;
    numberFormat(locale).formatDecimal(decimal, status).toString(status).toUTF8String(text);
    throwIfFailed(status, "NumberFormatter::formatDecimal");
    return text;
}

/// `byteCount` in steps of `unit`, halves rounded to the even number.
std::int64_t roundedSteps(std::int64_t byteCount, const Unit& unit) {
    const std::int64_t step = unit.bytes / unit.steps;
    const std::int64_t whole = byteCount / step;
    const std::int64_t rest = byteCount % step;
    const bool up = rest > step / 2 || (rest == step / 2 && whole % 2 != 0);
    return whole + (up ? 1 : 0);
}

/// `steps` of a `unit` as a decimal number without trailing zeros.
std::string decimalOf(std::int64_t steps, const Unit& unit) {
    std::string decimal = std::to_string(steps / unit.steps);
    std::string fraction = std::to_string(unit.steps + steps % unit.steps).substr(1);
    fraction.erase(fraction.find_last_not_of('0') + 1);
    return fraction.empty() ? decimal : decimal + '.' + fraction;
}

} // namespace

std::string byteCountText(std::int64_t byteCount, std::string_view locale) {
    if (byteCount == 0) {
        return "Zero KB";
    }
    if (byteCount < 1'000) {
        const std::string count = decimalText(std::to_string(byteCount), locale);
        return count + (byteCount == 1 ? " byte" : " bytes");
    }
    // The unit is chosen by the rounded count: what rounds to 1,000 of a unit is 1 of the next.
    const Unit* unit = units.data();
    std::int64_t steps = roundedSteps(byteCount, *unit);
    while (steps >= 1'000 * unit->steps) {
        ++unit;
        steps = roundedSteps(byteCount, *unit);
    }
    return decimalText(decimalOf(steps, *unit), locale) + ' ' + unit->name;
}

std::string integerText(std::int64_t number, std::string_view locale) {
    return decimalText(std::to_string(number), locale);
}

} // namespace tarvolt
