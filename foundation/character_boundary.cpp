#include "foundation/character_boundary.h"

#include <unicode/uchar.h>

namespace tarvolt {

bool isMark(char32_t character) {
    return (U_GET_GC_MASK(static_cast<UChar32>(character)) & (U_GC_MN_MASK | U_GC_ME_MASK)) != 0;
}

bool isInsideHangulSyllable(char32_t before, char32_t after) {
    const auto kind = [](char32_t character) {
        return u_getIntPropertyValue(static_cast<UChar32>(character), UCHAR_HANGUL_SYLLABLE_TYPE);
    };
    switch (kind(before)) {
    case U_HST_LEADING_JAMO:
        return kind(after) == U_HST_VOWEL_JAMO;
    case U_HST_VOWEL_JAMO:
    case U_HST_LV_SYLLABLE:
        return kind(after) == U_HST_TRAILING_JAMO;
    default:
        return false;
    }
}

} // namespace tarvolt
