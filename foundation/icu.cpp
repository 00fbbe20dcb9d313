#include "foundation/icu.h"

#include <stdexcept>
#include <string>

#include <unicode/localpointer.h>
#include <unicode/ures.h>

namespace tarvolt {

void throwIfFailed(UErrorCode status, const char* call) {
    if (U_FAILURE(status)) {
        throw std::runtime_error(std::string(call) + ": " + u_errorName(status));
    }
}

icu::Locale icuLocale(std::string_view identifier) {
    icu::Locale locale(std::string(identifier).c_str());
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUResourceBundlePointer bundle(ures_open(nullptr, locale.getName(), &status));
    if (locale.isBogus() || U_FAILURE(status) || status == U_USING_DEFAULT_WARNING) {
        return icu::Locale::getRoot();
    }
    return locale;
}

} // namespace tarvolt
