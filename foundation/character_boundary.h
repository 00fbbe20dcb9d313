#pragma once

namespace tarvolt {

/// Whether `character` belongs to the one before it: it, or what it canonically decomposes into, begins with one of
/// general category Mn or Me.
bool isMark(char32_t character);

/// Whether `before` and `after`, side by side, are parts of one Hangul syllable: leading consonant, vowel and perhaps a
/// trailing consonant, one of each. A further one of the same kind is a character of its own.
bool isInsideHangulSyllable(char32_t before, char32_t after);

} // namespace tarvolt
