#include "foundation/icu.h"
#include "foundation/text.h"

#include <unicode/coll.h>
#include <unicode/unistr.h>

namespace tarvolt {

struct CaseInsensitiveOrder::Rules {
    std::unique_ptr<icu::Collator> collator;
};

CaseInsensitiveOrder::CaseInsensitiveOrder(std::string_view locale) : rules_(std::make_unique<Rules>()) {
    UErrorCode status = U_ZERO_ERROR;
    rules_->collator.reset(icu::Collator::createInstance(icuLocale(locale), status));
    throwIfFailed(status, "Collator::createInstance");
    // A locale's own rules may have each of these the other way, as Thai has the punctuation, so all are said.
    rules_->collator->setAttribute(UCOL_STRENGTH, UCOL_SECONDARY, status);
    rules_->collator->setAttribute(UCOL_CASE_LEVEL, UCOL_OFF, status);
    rules_->collator->setAttribute(UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, status);
    rules_->collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    rules_->collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_OFF, status);
    throwIfFailed(status, "Collator::setAttribute");
}

CaseInsensitiveOrder::~CaseInsensitiveOrder() = default;

int CaseInsensitiveOrder::compare(std::string_view a, std::string_view b) const {
    UErrorCode status = U_ZERO_ERROR;
    const int order = rules_->collator->compareUTF8(a, b, status);
    throwIfFailed(status, "Collator::compareUTF8");
    return order;
}

std::string CaseInsensitiveOrder::sortKey(std::string_view text) const {
    const icu::UnicodeString units = icu::UnicodeString::fromUTF8(text);
    std::string key(4 * text.size() + 16, '\0');
    const auto fill = [&] {
        return static_cast<std::size_t>(rules_->collator->getSortKey(units, reinterpret_cast<std::uint8_t*>(key.data()),
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

} // namespace tarvolt
