#include "foundation/character_boundary.h"

#include "foundation/icu.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace tarvolt {

bool isMark(char32_t character) {
    if (character < 0x80) {
        return false;
    }
    const auto isOfCategory = [](UChar32 one) { return (U_GET_GC_MASK(one) & (U_GC_MN_MASK | U_GC_ME_MASK)) != 0; };
    if (isOfCategory(static_cast<UChar32>(character))) {
        return true;
    }
    // A few spacing vowel signs are equivalent to a nonspacing one with something behind it.
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* normalizer = icu::Normalizer2::getNFDInstance(status);
    throwIfFailed(status, "Normalizer2::getNFDInstance");
    icu::UnicodeString decomposition;
    return normalizer->getDecomposition(static_cast<UChar32>(character), decomposition) &&
           isOfCategory(decomposition.char32At(0));
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
