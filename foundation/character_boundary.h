#pragma once

#include <unicode/umachine.h>

namespace tarvolt {

/// Whether `character` belongs to the one before it: it, or the first character of its canonical decomposition, is of
/// general category Mn or Me.
bool isMark(UChar32 character);

/// Whether the neighbours `before` and `after` are parts of one Hangul syllable: a leading consonant, a vowel and
/// perhaps a trailing consonant, one of each. A second one of the same kind starts a new character.
bool isInsideHangulSyllable(UChar32 before, UChar32 after);

} // namespace tarvolt
