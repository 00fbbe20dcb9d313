#pragma once

#include <cstddef>
#include <string_view>

#include <unicode/umachine.h>

namespace tarvolt {

/// One character of a UTF-8 text and the number of bytes it takes.
struct DecodedCharacter {
    UChar32 character;
    std::size_t length;
};

/// The first character of `text`, which must be well-formed and not empty.
DecodedCharacter firstCharacter(std::string_view text);

/// The last character of `text`, which must be well-formed and not empty.
DecodedCharacter lastCharacter(std::string_view text);

} // namespace tarvolt
