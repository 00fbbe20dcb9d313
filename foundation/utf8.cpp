#include "foundation/utf8.h"

#include "foundation/text.h"

#include <cstdint>
#include <cstring>

#include <unicode/unistr.h>
#include <unicode/utf8.h>

namespace tarvolt {

namespace {

std::size_t skipAscii(std::string_view bytes, std::size_t at) {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::uint64_t word = 0;
    while (at + sizeof word <= bytes.size()) {
        std::memcpy(&word, bytes.data() + at, sizeof word);
        if ((word & highBits) != 0) {
            break;
        }
        at += sizeof word;
    }
    while (at < bytes.size() && static_cast<std::uint8_t>(bytes[at]) < 0x80) {
        ++at;
    }
    return at;
}

// ICU's macros do not compile without warnings.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wsign-conversion"

/// The character at `at`, which is moved past it; negative if there is no well-formed one.
UChar32 nextCharacter(std::string_view bytes, std::size_t& at) {
    UChar32 character = 0;
    U8_NEXT(bytes, at, bytes.size(), character);
    return character;
}

#pragma GCC diagnostic pop

} // namespace

bool isValidUtf8(std::string_view bytes) {
    std::size_t at = 0;
    while ((at = skipAscii(bytes, at)) < bytes.size()) {
        if (nextCharacter(bytes, at) < 0) {
            return false;
        }
    }
    return true;
}

DecodedCharacter firstCharacter(std::string_view text) {
    DecodedCharacter first{0, 0};
    first.character = nextCharacter(text, first.length);
    return first;
}

DecodedCharacter lastCharacter(std::string_view text) {
    std::size_t start = text.size() - 1;
    while (U8_IS_TRAIL(text[start])) {
        --start;
    }
    return firstCharacter(text.substr(start));
}

std::string displayText(std::string_view bytes) {
    if (isValidUtf8(bytes)) {
        return std::string(bytes);
    }
    std::string text;
    return icu::UnicodeString::fromUTF8(bytes).toUTF8String(text);
}

} // namespace tarvolt
