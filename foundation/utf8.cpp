#include "foundation/utf8.h"

#include "foundation/text.h"

#include <cstdint>
#include <cstring>

#include <unicode/unistr.h>

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

/// The number of bytes of a character by its first one, and the limits of its second. All later bytes are 80 to BF;
/// what is overlong, a surrogate or too large shows in the second byte already.
struct Shape {
    std::size_t length = 0;
    std::uint8_t lowest = 0x80;
    std::uint8_t highest = 0xBF;
};

Shape shapeOf(std::uint8_t lead) {
    switch (lead) {
    case 0xE0:
        return {3, 0xA0, 0xBF};
    case 0xED:
        return {3, 0x80, 0x9F};
    case 0xF0:
        return {4, 0x90, 0xBF};
    case 0xF4:
        return {4, 0x80, 0x8F};
    default:
        return {lead >= 0xF5 || lead < 0xC2 ? 0U : lead >= 0xF0 ? 4U : lead >= 0xE0 ? 3U : 2U};
    }
}

/// The length of the well-formed character beyond ASCII at the start of `bytes`, or 0 when there is none.
std::size_t multiByteLength(std::string_view bytes) {
    const auto byteAt = [&](std::size_t index) { return static_cast<std::uint8_t>(bytes[index]); };
    const Shape shape = shapeOf(byteAt(0));
    if (shape.length == 0 || bytes.size() < shape.length || byteAt(1) < shape.lowest || byteAt(1) > shape.highest) {
        return 0;
    }
    for (std::size_t index = 2; index < shape.length; ++index) {
        if ((byteAt(index) & 0xC0) != 0x80) {
            return 0;
        }
    }
    return shape.length;
}

} // namespace

bool isAscii(std::string_view bytes) {
    return skipAscii(bytes, 0) == bytes.size();
}

DecodedCharacter firstCharacter(std::string_view bytes) {
    const auto lead = static_cast<std::uint8_t>(bytes[0]);
    if (lead < 0x80) {
        return {lead, 1};
    }
    const std::size_t length = multiByteLength(bytes);
    if (length == 0) {
        return {illFormed, 1};
    }
    char32_t character = lead & (0x7FU >> length);
    for (std::size_t index = 1; index < length; ++index) {
        character = (character << 6U) | (static_cast<std::uint8_t>(bytes[index]) & 0x3FU);
    }
    return {character, length};
}

DecodedCharacter lastCharacter(std::string_view bytes) {
    for (std::size_t length = 1; length <= 4 && length <= bytes.size(); ++length) {
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
        const std::size_t length = multiByteLength(bytes.substr(at));
        if (length == 0) {
            return false;
        }
        at += length;
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
