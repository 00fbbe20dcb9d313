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

// ICU's macro does not keep this project's warnings.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wsign-conversion"

/// The character at `at`, which moves behind it; negative where there is no well-formed one.
UChar32 nextCharacter(std::string_view bytes, std::size_t& at) {
    UChar32 character = 0;
    U8_NEXT(bytes, at, bytes.size(), character);
    return character;
}

#pragma GCC diagnostic pop

} // namespace

bool isAscii(std::string_view bytes) {
    return skipAscii(bytes, 0) == bytes.size();
}

DecodedCharacter firstCharacter(std::string_view bytes) {
    std::size_t end = 0;
    const UChar32 character = nextCharacter(bytes, end);
    return character < 0 ? DecodedCharacter{illFormed, 1} : DecodedCharacter{static_cast<char32_t>(character), end};
}

DecodedCharacter lastCharacter(std::string_view bytes) {
    for (std::size_t length = 1; length <= U8_MAX_LENGTH && length <= bytes.size(); ++length) {
        const DecodedCharacter decoded = firstCharacter(bytes.substr(bytes.size() - length));
        if (decoded.character != illFormed && decoded.length == length) {
            return decoded;
        }
    }
    return {illFormed, 1};
}

bool isValidUtf8(std::string_view bytes) {
    std::size_t at = 0;
    while ((at = skipAscii(bytes, at)) < bytes.size()) {
        if (nextCharacter(bytes, at) < 0) {
            return false;
        }
    }
    return true;
}

std::string displayText(std::string_view bytes) {
    std::string text;
    if (isValidUtf8(bytes)) {
        text = bytes;
    } else {
        icu::UnicodeString::fromUTF8(bytes).toUTF8String(text);
    }
    return text;
}

} // namespace tarvolt
