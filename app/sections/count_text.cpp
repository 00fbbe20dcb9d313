#include "app/sections/count_text.h"

#include "foundation/byte_count_formatter.h"
#include "foundation/localized.h"

namespace tarvolt {

std::string localizedCount(const char* context, const char* key, std::int64_t number, std::string_view locale) {
    static constexpr std::string_view placeholder = "%lld";
    std::string text = localized(context, key);
    if (const auto at = text.find(placeholder); at != std::string::npos) {
        text.replace(at, placeholder.size(), integerText(number, locale));
    }
    return text;
}

} // namespace tarvolt
