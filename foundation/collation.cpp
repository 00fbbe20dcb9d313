#include "foundation/icu.h"
#include "foundation/text.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <unicode/coll.h>
#include <unicode/unistr.h>

namespace tarvolt {

namespace {

std::unique_ptr<icu::Collator> caseInsensitiveCollator(std::string_view locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icuLocale(locale), status));
    throwIfFailed(status, "Collator::createInstance");
    // Every attribute is set, because a locale may have its own default: Thai ignores punctuation.
    collator->setAttribute(UCOL_STRENGTH, UCOL_SECONDARY, status);
    collator->setAttribute(UCOL_CASE_LEVEL, UCOL_OFF, status);
    collator->setAttribute(UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, status);
    collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_OFF, status);
    throwIfFailed(status, "Collator::setAttribute");
    return collator;
}

/// Bytes that compare as `text` does.
std::string sortKey(const icu::Collator& collator, std::string_view text) {
    const icu::UnicodeString units = icu::UnicodeString::fromUTF8(text);
    std::string key(4 * text.size() + 16, '\0');
    const auto fill = [&] {
        return static_cast<std::size_t>(collator.getSortKey(units, reinterpret_cast<std::uint8_t*>(key.data()),
                                                            static_cast<std::int32_t>(key.size())));
    };
    const std::size_t size = fill();
    if (size > key.size()) {
        key.resize(size);
        fill();
    }
    key.resize(size);
    return key;
}

} // namespace

std::vector<std::size_t> localizedCaseInsensitiveCompareOrder(const std::vector<std::string_view>& names,
                                                              std::string_view locale) {
    const auto collator = caseInsensitiveCollator(locale);
    std::vector<std::pair<std::string, std::size_t>> keys;
    keys.reserve(names.size());
    for (const std::string_view name : names) {
        keys.emplace_back(sortKey(*collator, name), keys.size());
    }
    std::ranges::sort(keys); // equal keys by index, which keeps their order
    std::vector<std::size_t> order;
    order.reserve(keys.size());
    for (const auto& key : keys) {
        order.push_back(key.second);
    }
    return order;
}

} // namespace tarvolt
