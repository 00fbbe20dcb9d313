#include "foundation/icu.h"
#include "foundation/text.h"

#include <algorithm>
#include <type_traits>

#include <unicode/uchar.h>

namespace tarvolt {

namespace {

/// Whether all of `text`, bytes or UTF-16, is ASCII. There is no early exit, so that the compiler can vectorise it.
template<class Unit> bool isAscii(const Unit* text, std::size_t length) {
    unsigned bits = 0;
    for (std::size_t i = 0; i < length; ++i) {
        bits |= static_cast<std::make_unsigned_t<Unit>>(text[i]);
    }
    return bits < 0x80;
}

bool hasTurkicCaseRules(std::string_view locale) {
    // No ICU locale is made, because this is asked for every name.
    return (locale.starts_with("tr") || locale.starts_with("az")) &&
           std::min(locale.find_first_of("_-@"), locale.size()) == 2;
}

bool asciiContains(std::string_view text, std::string_view search, bool turkic) {
    // In Turkish, I is not the capital of i, and the small letter that belongs to it is not in ASCII.
    const auto equal = [turkic](char a, char b) {
        constexpr int caseBit = 'a' - 'A';
        const int small = a | caseBit;
        return a == b || ((a ^ b) == caseBit && small >= 'a' && small <= 'z' && !(turkic && small == 'i'));
    };
    return std::search(text.begin(), text.end(), search.begin(), search.end(), equal) != text.end();
}

/// `text` in a form that is the same for all texts that differ only in case or by canonical equivalence.
icu::UnicodeString folded(std::string_view text, bool turkic) {
    // The Turkish rules distinguish a dotted I from a plain one, so a dot above must first be composed with its letter.
    icu::UnicodeString result = normalized(turkic ? nfc() : nfd(), icu::UnicodeString::fromUTF8(text));
    return normalized(nfd(), result.foldCase(turkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT));
}

/// The folded search text. Each thread caches its last one, because a whole list is filtered by the same text.
const icu::UnicodeString& foldedSearch(std::string_view search, bool turkic) {
    struct Last {
        std::string search;
        bool turkic = false;
        icu::UnicodeString folded;
    };
    thread_local Last last;
    if (last.search != search || last.turkic != turkic) {
        last = {std::string(search), turkic, folded(search, turkic)};
    }
    return last.folded;
}

/// Whether the neighbours `before` and `after`, of a decomposed text, are parts of one Hangul syllable: a leading
/// consonant, a vowel and perhaps a trailing consonant, one of each. A second one of the same kind starts a new
/// character.
bool isInsideHangulSyllable(UChar32 before, UChar32 after) {
    constexpr UChar32 firstJamo = 0x1100;
    if (before < firstJamo) {
        return false;
    }
    const auto kind = [](UChar32 character) { return u_getIntPropertyValue(character, UCHAR_HANGUL_SYLLABLE_TYPE); };
    return (kind(before) == U_HST_LEADING_JAMO && kind(after) == U_HST_VOWEL_JAMO) ||
           (kind(before) == U_HST_VOWEL_JAMO && kind(after) == U_HST_TRAILING_JAMO);
}

/// Whether a match that is not empty may end at `end`.
bool isCharacterEnd(const icu::UnicodeString& text, std::int32_t end) {
    return end == text.length() ||
           !(isMark(text.char32At(end)) || isInsideHangulSyllable(text.char32At(end - 1), text.char32At(end)));
}

} // namespace

bool localizedCaseInsensitiveContains(std::string_view text, std::string_view search, std::string_view locale) {
    if (search.empty()) {
        return false;
    }
    const bool turkic = hasTurkicCaseRules(locale);
    const bool textIsAscii = isAscii(text.data(), text.size());
    if (textIsAscii && isAscii(search.data(), search.size())) {
        return asciiContains(text, search, turkic);
    }
    const icu::UnicodeString& needle = foldedSearch(search, turkic);
    if (textIsAscii && !turkic && !isAscii(needle.getBuffer(), static_cast<std::size_t>(needle.length()))) {
        return false; // ASCII text folds to ASCII
    }
    const icu::UnicodeString haystack = folded(text, turkic);
    std::int32_t start = haystack.indexOf(needle);
    while (start >= 0 && !isCharacterEnd(haystack, start + needle.length())) {
        start = haystack.indexOf(needle, start + 1);
    }
    return start >= 0;
}

} // namespace tarvolt
