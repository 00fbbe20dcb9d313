#include "foundation/character_boundary.h"
#include "foundation/icu.h"
#include "foundation/text.h"
#include "foundation/utf8.h"

#include <algorithm>

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace tarvolt {

namespace {

bool isAscii(const icu::UnicodeString& text) {
    return std::all_of(text.getBuffer(), text.getBuffer() + text.length(), [](char16_t unit) { return unit < 0x80; });
}

bool hasTurkicCaseRules(std::string_view locale) {
    const std::string_view language = locale.substr(0, locale.find_first_of("_-@"));
    return language == "tr" || language == "az";
}

bool asciiContains(std::string_view text, std::string_view search, bool turkic) {
    // The Turkish I is no form of i, and of its own form there is none in ASCII.
    const auto folded = [turkic](char letter) {
        const bool isUpper = letter >= 'A' && letter <= 'Z' && !(turkic && letter == 'I');
        return isUpper ? static_cast<char>(letter - 'A' + 'a') : letter;
    };
    const auto equal = [&](char a, char b) { return folded(a) == folded(b); };
    return std::search(text.begin(), text.end(), search.begin(), search.end(), equal) != text.end();
}

const icu::Normalizer2& normalizer(bool composing) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* found =
        composing ? icu::Normalizer2::getNFCInstance(status) : icu::Normalizer2::getNFDInstance(status);
    throwIfFailed(status, "Normalizer2::getInstance");
    return *found;
}

/// `text` in a form in which texts that differ in case or by canonical equivalence alone are the same.
icu::UnicodeString folded(std::string_view text, bool turkic) {
    // The Turkish rules tell a dotted I from a plain one, so a dot above has to be part of its letter when they look.
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString result = normalizer(turkic).normalize(icu::UnicodeString::fromUTF8(text), status);
    result.foldCase(turkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT);
    result = normalizer(false).normalize(result, status);
    throwIfFailed(status, "Normalizer2::normalize");
    return result;
}

/// The folded search text. A whole list is filtered by one, so each thread keeps its last one ready.
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

bool isCharacterBoundary(const icu::UnicodeString& text, std::int32_t at) {
    if (at == 0 || at == text.length()) {
        return true;
    }
    const auto before = static_cast<char32_t>(text.char32At(at - 1));
    const auto after = static_cast<char32_t>(text.char32At(at));
    return !isInsideHangulSyllable(before, after);
}

bool isWhole(const icu::UnicodeString& text, std::int32_t start, std::int32_t end) {
    const bool cutsMark = end < text.length() && isMark(static_cast<char32_t>(text.char32At(end)));
    return !cutsMark && isCharacterBoundary(text, start) && isCharacterBoundary(text, end);
}

} // namespace

bool localizedCaseInsensitiveContains(std::string_view text, std::string_view search, std::string_view locale) {
    if (search.empty()) {
        return false;
    }
    const bool turkic = hasTurkicCaseRules(locale);
    const bool textIsAscii = isAscii(text);
    if (textIsAscii && isAscii(search)) {
        return asciiContains(text, search, turkic);
    }
    const icu::UnicodeString& needle = foldedSearch(search, turkic);
    if (textIsAscii && !turkic && !isAscii(needle)) {
        return false; // nothing in the text folds to what is beyond ASCII
    }
    const icu::UnicodeString haystack = folded(text, turkic);
    std::int32_t start = haystack.indexOf(needle);
    while (start >= 0 && !isWhole(haystack, start, start + needle.length())) {
        start = haystack.indexOf(needle, start + 1);
    }
    return start >= 0;
}

} // namespace tarvolt
