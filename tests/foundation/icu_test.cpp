#include "foundation/icu.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tarvolt {
namespace {

TEST(Icu, ThrowsForAFailureAndNamesTheCallAndTheError) {
    EXPECT_NO_THROW(throwIfFailed(U_ZERO_ERROR, "call"));
    EXPECT_NO_THROW(throwIfFailed(U_USING_DEFAULT_WARNING, "call"));
    try {
        throwIfFailed(U_MEMORY_ALLOCATION_ERROR, "call");
        FAIL() << "nothing was thrown";
    } catch (const std::runtime_error& failure) {
        EXPECT_STREQ(failure.what(), "call: U_MEMORY_ALLOCATION_ERROR");
    }
}

TEST(Icu, UsesTheRootForWhatIsNotALocale) {
    EXPECT_STREQ(icuLocale("sr_Latn_RS").getName(), "sr_Latn_RS");
    for (const char* identifier : {"", "xx_YY", "a", "1"}) {
        EXPECT_STREQ(icuLocale(identifier).getName(), "") << identifier;
    }
}

} // namespace
} // namespace tarvolt
