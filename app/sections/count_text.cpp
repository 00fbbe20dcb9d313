#include "app/sections/count_text.h"

#include "foundation/byte_count_formatter.h"

namespace tarvolt {

std::string withNumber(std::string text, std::int64_t number, std::string_view locale) {
    static constexpr std::string_view placeholder = "%lld";
    if (const auto at = text.find(placeholder); at != std::string::npos) {
        text.replace(at, placeholder.size(), integerText(number, locale));
    }
    return text;
}

} // namespace tarvolt
