#include "foundation/icu.h"

#include <stdexcept>
#include <string>

#include <unicode/localebuilder.h>
#include <unicode/localpointer.h>
#include <unicode/ures.h>

namespace tarvolt {

void throwIfFailed(UErrorCode status, const char* call) {
    if (U_FAILURE(status)) {
        throw std::runtime_error(std::string(call) + ": " + u_errorName(status));
    }
}

icu::Locale icuLocale(std::string_view identifier) {
    const icu::Locale named(std::string(identifier).c_str());
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale = icu::LocaleBuilder()
                             .setLanguage(named.getLanguage())
                             .setScript(named.getScript())
                             .setRegion(named.getCountry())
                             .build(status);
    const icu::LocalUResourceBundlePointer bundle(ures_open(nullptr, locale.getName(), &status));
    return U_FAILURE(status) || status == U_USING_DEFAULT_WARNING ? icu::Locale::getRoot() : locale;
}

const icu::Normalizer2& nfd() {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* normalizer = icu::Normalizer2::getNFDInstance(status);
    throwIfFailed(status, "Normalizer2::getNFDInstance");
    return *normalizer;
}

const icu::Normalizer2& nfc() {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* normalizer = icu::Normalizer2::getNFCInstance(status);
    throwIfFailed(status, "Normalizer2::getNFCInstance");
    return *normalizer;
}

icu::UnicodeString normalized(const icu::Normalizer2& normalizer, const icu::UnicodeString& text) {
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString result = normalizer.normalize(text, status);
    throwIfFailed(status, "Normalizer2::normalize");
    return result;
}

} // namespace tarvolt
