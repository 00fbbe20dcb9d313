#include "foundation/character_boundary.h"
#include "foundation/icu.h"
#include "foundation/text.h"

#include <algorithm>

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace tarvolt {

namespace {

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

bool hasTurkicCaseRules(std::string_view locale) {
    const std::string_view language = locale.substr(0, locale.find_first_of("_-@"));
    return language == "tr" || language == "az";
}

char asciiLower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool asciiContains(std::string_view text, std::string_view search) {
    const auto equal = [](char a, char b) { return asciiLower(a) == asciiLower(b); };
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
    if (!turkic && isAscii(text) && isAscii(search)) {
        return asciiContains(text, search);
    }
    const icu::UnicodeString haystack = folded(text, turkic);
    const icu::UnicodeString needle = folded(search, turkic);
    std::int32_t start = haystack.indexOf(needle);
    while (start >= 0 && !isWhole(haystack, start, start + needle.length())) {
        start = haystack.indexOf(needle, start + 1);
    }
    return start >= 0;
}

} // namespace tarvolt
