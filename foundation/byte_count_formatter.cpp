#include "foundation/byte_count_formatter.h"

#include "foundation/icu.h"

#include <algorithm>
#include <array>
#include <limits>

#include <unicode/numberformatter.h>
#include <unicode/unistr.h>

namespace tarvolt {

namespace {

using icu::number::Precision;
using icu::number::Scale;

struct Unit {
    const char* name;
    std::int32_t powerOfTen;
    std::int32_t fractionDigits;
    std::int64_t last; ///< the largest byte count that does not round to 1,000 units
};

constexpr std::array<Unit, 6> units{{{"KB", 3, 0, 999'499},
                                     {"MB", 6, 1, 999'949'999},
                                     {"GB", 9, 2, 999'994'999'999},
                                     {"TB", 12, 2, 999'994'999'999'999},
                                     {"PB", 15, 2, 999'994'999'999'999'999},
                                     {"EB", 18, 2, std::numeric_limits<std::int64_t>::max()}}};

std::string numberText(std::int64_t number, const Scale& scale, const Precision& precision, std::string_view locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::string text;
    icu::number::NumberFormatter::withLocale(icuLocale(locale))
        .scale(scale)
        .precision(precision)
        .roundingMode(UNUM_ROUND_HALFEVEN)
        .formatInt(number, status)
        .toString(status)
        .toUTF8String(text);
    throwIfFailed(status, "NumberFormatter::formatInt");
    return text;
}

} // namespace

std::string byteCountText(std::int64_t byteCount, std::string_view locale) {
    if (byteCount == 0) {
        return "Zero KB";
    }
    if (byteCount < 1'000) {
        return integerText(byteCount, locale) + (byteCount == 1 ? " byte" : " bytes");
    }
    const auto* unit = std::ranges::find_if(units, [&](const Unit& each) { return byteCount <= each.last; });
    return numberText(byteCount, Scale::powerOfTen(-unit->powerOfTen), Precision::maxFraction(unit->fractionDigits),
                      locale) +
           ' ' + unit->name;
}

std::string integerText(std::int64_t number, std::string_view locale) {
    return numberText(number, Scale::none(), Precision::integer(), locale);
}

} // namespace tarvolt
