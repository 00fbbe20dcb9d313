#include "tests/support/utf8_of.h"

namespace tarvolt::testing {

std::string utf8Of(char32_t character) {
    const auto trailing = [&](unsigned shift) { return static_cast<char>(0x80U | ((character >> shift) & 0x3FU)); };
    const auto leading = [&](unsigned mark, unsigned shift) { return static_cast<char>(mark | (character >> shift)); };
    if (character < 0x80) {
        return {static_cast<char>(character)};
    }
    if (character < 0x800) {
        return {leading(0xC0, 6), trailing(0)};
    }
    if (character < 0x10000) {
        return {leading(0xE0, 12), trailing(6), trailing(0)};
    }
    return {leading(0xF0, 18), trailing(12), trailing(6), trailing(0)};
}

} // namespace tarvolt::testing
