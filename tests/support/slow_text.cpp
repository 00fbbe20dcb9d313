#include "tests/support/slow_text.h"

#include "tests/support/utf8_of.h"

#include <cstdint>
#include <utility>

#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/unorm2.h>

namespace tarvolt::testing {

namespace {

using Characters = std::vector<char32_t>;

UChar32 icuCharacter(char32_t character) {
    return static_cast<UChar32>(character);
}

/// The first character of `bytes`, decoded bit by bit; `length` is 0 if there is none.
char32_t decodeByBits(std::string_view bytes, std::size_t& length) {
    const auto byte = [&](std::size_t index) { return static_cast<std::uint8_t>(bytes[index]); };
    const std::uint8_t lead = byte(0);
    length = lead < 0x80 ? 1U : (lead >> 5U) == 6 ? 2U : (lead >> 4U) == 14 ? 3U : (lead >> 3U) == 30 ? 4U : 0U;
    if (length > bytes.size()) {
        length = 0;
    }
    if (length < 2) {
        return lead;
    }
    char32_t character = lead & ((1U << (7U - length)) - 1U);
    for (std::size_t index = 1; index < length; ++index) {
        if ((byte(index) >> 6U) != 2) {
            length = 0;
            return 0;
        }
        character = character * 64 + (byte(index) & 63U);
    }
    return character;
}

bool isSlowMark(char32_t character) {
    const auto category = u_charType(icuCharacter(character));
    return category == U_NON_SPACING_MARK || category == U_ENCLOSING_MARK;
}

bool isIn(char32_t character, char32_t first, char32_t last) {
    return character >= first && character <= last;
}

bool isLeading(char32_t c) {
    return isIn(c, 0x1100, 0x115F) || isIn(c, 0xA960, 0xA97C);
}

bool isVowel(char32_t c) {
    return isIn(c, 0x1160, 0x11A7) || isIn(c, 0xD7B0, 0xD7C6);
}

bool isTrailing(char32_t c) {
    return isIn(c, 0x11A8, 0x11FF) || isIn(c, 0xD7CB, 0xD7FB);
}

/// Whether two adjacent characters of a decomposed text belong to one syllable.
bool isOneSyllable(char32_t before, char32_t after) {
    return (isLeading(before) && isVowel(after)) || (isVowel(before) && isTrailing(after));
}

void decomposeInto(char32_t character, Characters& result) {
    UErrorCode status = U_ZERO_ERROR;
    UChar units[8];
    const std::int32_t length =
        unorm2_getRawDecomposition(unorm2_getNFDInstance(&status), icuCharacter(character), units, 8, &status);
    if (length < 0) {
        result.push_back(character);
        return;
    }
    const icu::UnicodeString pair(units, length);
    for (std::int32_t at = 0; at < pair.length(); at = pair.moveIndex32(at, 1)) {
        decomposeInto(static_cast<char32_t>(pair.char32At(at)), result);
    }
}

void putInOrder(Characters& text) {
    for (bool swapped = true; swapped;) {
        swapped = false;
        for (std::size_t at = 1; at < text.size(); ++at) {
            const int before = u_getCombiningClass(icuCharacter(text[at - 1]));
            const int after = u_getCombiningClass(icuCharacter(text[at]));
            if (after != 0 && before > after) {
                std::swap(text[at - 1], text[at]);
                swapped = true;
            }
        }
    }
}

Characters decompose(const Characters& text) {
    Characters result;
    for (const char32_t character : text) {
        decomposeInto(character, result);
    }
    putInOrder(result);
    return result;
}

Characters composed(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    std::string utf8;
    const icu::UnicodeString source = icu::UnicodeString::fromUTF8(text);
    UChar units[1024];
    const std::int32_t length =
        unorm2_normalize(unorm2_getNFCInstance(&status), source.getBuffer(), source.length(), units, 1024, &status);
    return slowDecode(icu::UnicodeString(units, length).toUTF8String(utf8));
}

Characters foldOne(char32_t character, bool turkic) {
    if (turkic && (character == U'I' || character == 0x130)) {
        return {character == U'I' ? char32_t{0x131} : U'i'};
    }
    std::string utf8;
    return slowDecode(icu::UnicodeString(icuCharacter(character)).foldCase().toUTF8String(utf8));
}

Characters slowFold(std::string_view text, bool turkic) {
    Characters result;
    for (const char32_t character : turkic ? composed(text) : slowDecompose(text)) {
        const Characters folded = foldOne(character, turkic);
        result.insert(result.end(), folded.begin(), folded.end());
    }
    return decompose(result);
}

/// Whether a match may end with `last` where `next` follows it in a decomposed text.
bool mayEndBetween(char32_t last, char32_t next) {
    return !isSlowMark(next) && !isOneSyllable(last, next);
}

std::string encoded(const Characters& characters) {
    std::string text;
    for (const char32_t character : characters) {
        text += utf8Of(character);
    }
    return text;
}

Characters part(const Characters& text, std::size_t start, std::size_t end) {
    return {text.begin() + static_cast<std::ptrdiff_t>(start), text.begin() + static_cast<std::ptrdiff_t>(end)};
}

/// The end of the match of `wanted`, which is decomposed, at `start`, or 0 if there is none.
std::size_t matchEnd(const Characters& text, std::size_t start, const Characters& wanted) {
    Characters match;
    for (std::size_t end = start; end < text.size() && match.size() < wanted.size();) {
        decomposeInto(text[end++], match);
        if (match.size() == wanted.size()) {
            putInOrder(match);
            const bool endsWell = end == text.size() || mayEndBetween(match.back(), decompose({text[end]}).front());
            return match == wanted && endsWell ? end : 0;
        }
    }
    return 0;
}

} // namespace

bool slowIsValidUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        std::size_t length = 0;
        const char32_t character = decodeByBits(bytes, length);
        const bool isShortest = length != 0 && utf8Of(character).size() == length;
        if (!isShortest || isIn(character, 0xD800, 0xDFFF) || character > 0x10FFFF) {
            return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

std::vector<char32_t> slowDecode(std::string_view text) {
    Characters characters;
    while (!text.empty()) {
        std::size_t length = 0;
        characters.push_back(decodeByBits(text, length));
        text.remove_prefix(length);
    }
    return characters;
}

std::vector<char32_t> slowDecompose(std::string_view text) {
    return decompose(slowDecode(text));
}

bool slowContains(std::string_view text, std::string_view search, bool turkic) {
    const Characters haystack = slowFold(text, turkic);
    const Characters needle = slowFold(search, turkic);
    for (std::size_t start = 0; !needle.empty() && start + needle.size() <= haystack.size(); ++start) {
        const std::size_t end = start + needle.size();
        if (part(haystack, start, end) == needle &&
            (end == haystack.size() || mayEndBetween(needle.back(), haystack[end]))) {
            return true;
        }
    }
    return false;
}

std::string slowReplaceAll(std::string_view text, std::string_view oldText, std::string_view newText) {
    const Characters characters = slowDecode(text);
    const Characters wanted = slowDecompose(oldText);
    std::string result;
    for (std::size_t at = 0; at < characters.size();) {
        if (const std::size_t end = matchEnd(characters, at, wanted); end != 0) {
            result += newText;
            at = end;
        } else {
            result += encoded({characters[at++]});
        }
    }
    return result;
}

} // namespace tarvolt::testing
