#include "foundation/icu.h"

#include <stdexcept>
#include <string>

#include <unicode/localebuilder.h>
#include <unicode/localpointer.h>
#include <unicode/uchar.h>
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

bool isMark(UChar32 character) {
    const auto isOfCategory = [](UChar32 one) { return (U_GET_GC_MASK(one) & (U_GC_MN_MASK | U_GC_ME_MASK)) != 0; };
    if (character < 0x80) {
        return false;
    }
    // A few spacing vowel signs decompose into a nonspacing one and something else.
    icu::UnicodeString decomposition;
    return isOfCategory(character) ||
           (nfd().getDecomposition(character, decomposition) && isOfCategory(decomposition.char32At(0)));
}

} // namespace tarvolt
