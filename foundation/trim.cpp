#include "foundation/icu.h"
#include "foundation/text.h"

#include <unicode/uniset.h>

namespace tarvolt {

std::string_view trimWhitespace(std::string_view text) {
    static const icu::UnicodeSet whitespace = [] {
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeSet set(u"[\\t\\p{Zs}]", status);
        throwIfFailed(status, "UnicodeSet");
        set.freeze();
        return set;
    }();
    const auto length = static_cast<std::int32_t>(text.size());
    const auto back = whitespace.spanBackUTF8(text.data(), length, USET_SPAN_CONTAINED);
    const auto front = whitespace.spanUTF8(text.data(), back, USET_SPAN_CONTAINED);
    return text.substr(static_cast<std::size_t>(front), static_cast<std::size_t>(back - front));
}

} // namespace tarvolt
