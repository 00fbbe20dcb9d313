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

/// Appends to `keys` bytes that compare as `text` does.
void appendSortKey(std::string& keys, const icu::Collator& collator, std::string_view text) {
    const icu::UnicodeString units = icu::UnicodeString::fromUTF8(text);
    const std::size_t start = keys.size();
    std::size_t size = 4 * text.size() + 16;
    for (std::size_t room = 0; room < size;) {
        room = size;
        keys.resize(start + room);
        size = static_cast<std::size_t>(collator.getSortKey(units, reinterpret_cast<std::uint8_t*>(keys.data() + start),
                                                            static_cast<std::int32_t>(room)));
    }
    keys.resize(start + size);
}

} // namespace

std::vector<std::size_t> localizedCaseInsensitiveCompareOrder(const std::vector<std::string_view>& names,
                                                              std::string_view locale) {
    const auto collator = caseInsensitiveCollator(locale);
    std::string keys; // back to back, because keys that lie close together sort faster
    std::vector<std::size_t> ends;
    for (const std::string_view name : names) {
        appendSortKey(keys, *collator, name);
        ends.push_back(keys.size());
    }
    std::vector<std::pair<std::string_view, std::size_t>> sorted;
    std::size_t start = 0;
    for (const std::size_t end : ends) {
        sorted.emplace_back(std::string_view(keys).substr(start, end - start), sorted.size());
        start = end;
    }
    std::ranges::sort(sorted); // equal keys by index, which keeps their order
    std::vector<std::size_t> order;
    order.reserve(sorted.size());
    for (const auto& [key, index] : sorted) {
        order.push_back(index);
    }
    return order;
}

} // namespace tarvolt
