#include "foundation/character_boundary.h"

#include "foundation/icu.h"

#include <unicode/uchar.h>

namespace tarvolt {

bool isMark(UChar32 character) {
    const auto isOfCategory = [](UChar32 one) { return (U_GET_GC_MASK(one) & (U_GC_MN_MASK | U_GC_ME_MASK)) != 0; };
    if (character < 0x80) {
        return false;
    }
    // A few spacing vowel signs decompose into a nonspacing one and something else.
    icu::UnicodeString decomposition;
    return isOfCategory(character) ||
           (nfd().getDecomposition(character, decomposition) && isOfCategory(decomposition.char32At(0)));
}

bool isInsideHangulSyllable(UChar32 before, UChar32 after) {
    constexpr UChar32 firstJamo = 0x1100;
    if (before < firstJamo) {
        return false;
    }
    const auto kind = [](UChar32 character) { return u_getIntPropertyValue(character, UCHAR_HANGUL_SYLLABLE_TYPE); };
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
