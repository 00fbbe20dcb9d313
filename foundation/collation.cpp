#include "foundation/icu.h"
#include "foundation/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <memory>
#include <memory_resource>
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

/// Bytes that compare as `text` does. They live as long as `keys`.
std::string_view sortKey(std::pmr::memory_resource& keys, const icu::Collator& collator, std::string_view text) {
    const icu::UnicodeString units = icu::UnicodeString::fromUTF8(text);
    std::array<std::uint8_t, 256> usual; // longer keys are rare and made twice
    const std::int32_t size = collator.getSortKey(units, usual.data(), usual.size());
    auto* const key = static_cast<std::uint8_t*>(keys.allocate(static_cast<std::size_t>(size), 1));
    if (size <= std::ssize(usual)) {
        std::copy_n(usual.data(), size, key);
    } else {
        collator.getSortKey(units, key, size);
    }
    return {reinterpret_cast<const char*>(key), static_cast<std::size_t>(size)};
}

} // namespace

std::vector<std::size_t> localizedCaseInsensitiveCompareOrder(const std::vector<std::string_view>& names,
                                                              std::string_view locale) {
    const auto collator = caseInsensitiveCollator(locale);
    std::pmr::monotonic_buffer_resource keys; // back to back, because keys that lie close together sort faster
    std::vector<std::pair<std::string_view, std::size_t>> sorted;
    sorted.reserve(names.size());
    for (const std::string_view name : names) {
        sorted.emplace_back(sortKey(keys, *collator, name), sorted.size());
    }
    std::ranges::sort(sorted); // equal keys by index, which keeps their order
    std::vector<std::size_t> order(sorted.size());
    std::ranges::transform(sorted, order.begin(), [](const auto& entry) { return entry.second; });
    return order;
}

} // namespace tarvolt
