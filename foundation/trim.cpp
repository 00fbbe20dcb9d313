#include "foundation/text.h"
#include "foundation/utf8.h"

#include <unicode/uchar.h>

namespace tarvolt {

namespace {

bool isWhitespace(char32_t character) {
    return character == U'\t' || u_charType(static_cast<UChar32>(character)) == U_SPACE_SEPARATOR;
}

} // namespace

std::string_view trimWhitespace(std::string_view text) {
    while (!text.empty()) {
        const DecodedCharacter first = firstCharacter(text);
        if (!isWhitespace(first.character)) {
            break;
        }
        text.remove_prefix(first.length);
    }
    while (!text.empty()) {
        const DecodedCharacter last = lastCharacter(text);
        if (!isWhitespace(last.character)) {
            break;
        }
        text.remove_suffix(last.length);
    }
    return text;
}

} // namespace tarvolt
