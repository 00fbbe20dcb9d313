#pragma once

#include <cstddef>
#include <string_view>

namespace tarvolt {

/// Whether no byte is above 7F.
bool isAscii(std::string_view bytes);

/// One character of a UTF-8 text and the number of bytes it takes.
struct DecodedCharacter {
    char32_t character;
    std::size_t length;
};

/// What a byte decodes to that is no part of a well-formed character; each such byte counts by itself.
inline constexpr char32_t illFormed = 0xFFFFFFFF;

/// The first character of `bytes`, which must not be empty.
DecodedCharacter firstCharacter(std::string_view bytes);

/// The last character of `bytes`, which must not be empty.
DecodedCharacter lastCharacter(std::string_view bytes);

} // namespace tarvolt
