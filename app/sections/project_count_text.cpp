#include "app/sections/project_count_text.h"

#include "app/sections/count_text.h"
#include "foundation/localized.h"

namespace tarvolt {

std::string projectCountText(std::int64_t count, std::string_view locale) {
    return withNumber(localized("HeaderView", "%lld"), count, locale) + " project" + (count == 1 ? "" : "s");
}

} // namespace tarvolt
