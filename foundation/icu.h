#pragma once

#include <string_view>

#include <unicode/locid.h>
#include <unicode/utypes.h>

namespace tarvolt {

/// Throws a std::runtime_error that names `call` and the failure, if there is one.
void throwIfFailed(UErrorCode status, const char* call);

/// The ICU locale of an identifier's language, script and territory. A language that ICU knows nothing of becomes the
/// root locale: ICU itself would take the process's default, which is `en_US_POSIX` wherever no locale is set. Variants
/// are dropped: that one sorts by ASCII code.
icu::Locale icuLocale(std::string_view identifier);

} // namespace tarvolt
