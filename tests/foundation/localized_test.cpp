#include "foundation/localized.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvolt {
namespace {

class Localized : public ::testing::Test {
protected:
    void TearDown() override { setTranslator(nullptr); }
};

TEST_F(Localized, IsTheKeyItselfWithoutATranslator) {
    EXPECT_EQ(localized("ProjectRow", "%lld files"), "%lld files");
}

TEST_F(Localized, AsksTheTranslatorWithContextAndKey) {
    setTranslator([](const char* context, const char* key) { return std::string(context) + '/' + key; });
    EXPECT_EQ(localized("ProjectRow", "%lld files"), "ProjectRow/%lld files");
}

TEST_F(Localized, IsTheKeyAgainOnceTheTranslatorIsRemoved) {
    setTranslator([](const char*, const char*) { return std::string("x"); });
    setTranslator(nullptr);
    EXPECT_EQ(localized("ProjectRow", "%lld files"), "%lld files");
}

} // namespace
} // namespace tarvolt
