#pragma once

#include <string_view>

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/umachine.h>
#include <unicode/unistr.h>

namespace tarvolt {

/// Throws a std::runtime_error that names `call` and the failure, if there is one.
void throwIfFailed(UErrorCode status, const char* call);

/// The ICU locale of an identifier's language, script and territory. Variants are dropped, because `en_US_POSIX` sorts
/// by ASCII code. A language unknown to ICU gives the root locale; ICU would use the process's default, which is
/// `en_US_POSIX` wherever no locale is set.
icu::Locale icuLocale(std::string_view identifier);

/// Canonical decomposition (NFD) and composition (NFC).
const icu::Normalizer2& nfd();
const icu::Normalizer2& nfc();

/// `text` normalised by `normalizer`.
icu::UnicodeString normalized(const icu::Normalizer2& normalizer, const icu::UnicodeString& text);

/// Whether `character` belongs to the one before it: it, or the first character of its canonical decomposition, is of
/// general category Mn or Me.
bool isMark(UChar32 character);

} // namespace tarvolt
