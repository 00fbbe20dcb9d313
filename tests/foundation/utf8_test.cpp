#include "foundation/text.h"
#include "foundation/utf8.h"
#include "tests/support/slow_text.h"
#include "tests/support/utf8_of.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace tarvolt {
namespace {

using namespace std::string_literals;

TEST(IsValidUtf8, AcceptsEveryCodePointExceptSurrogates) {
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
        ASSERT_EQ(isValidUtf8(testing::utf8Of(character)), !isSurrogate) << std::hex << std::uint32_t{character};
    }
}

TEST(IsValidUtf8, AcceptsAnEmptyTextAndANulByte) {
    EXPECT_TRUE(isValidUtf8(""));
    EXPECT_TRUE(isValidUtf8("a\0b"s));
}

TEST(IsValidUtf8, AgreesWithASimpleDecoderOnEverySequenceOfUpToThreeBytes) {
    for (std::uint32_t bytes = 0; bytes < 0x1000000; ++bytes) {
        const std::string text{static_cast<char>(bytes >> 16U), static_cast<char>(bytes >> 8U),
                               static_cast<char>(bytes)};
        if (isValidUtf8(text) != testing::slowIsValidUtf8(text)) {
            FAIL() << std::hex << bytes;
        }
    }
}

TEST(IsValidUtf8, RefusesOverlongTooLargeAndTruncatedSequences) {
    for (const std::string& bytes :
         {"\xC0\x80"s, "\xC1\xBF"s, "\xE0\x9F\xBF"s, "\xF0\x8F\xBF\xBF"s, "\xF4\x90\x80\x80"s, "\xF5\x80\x80\x80"s,
          "\xF8\x88\x80\x80\x80"s, "\xFE"s, "\xFF"s, "\x80"s, "\xC3"s, "\xE2\x82"s, "\xF0\x9F\x8E"s, "\xED\xA0\x80"s}) {
        EXPECT_FALSE(isValidUtf8(bytes)) << ::testing::PrintToString(bytes);
        EXPECT_FALSE(isValidUtf8("12345678" + bytes)) << ::testing::PrintToString(bytes);
        EXPECT_FALSE(isValidUtf8(bytes + "12345678")) << ::testing::PrintToString(bytes);
    }
}

TEST(IsValidUtf8, RefusesUtf16) {
    EXPECT_FALSE(isValidUtf8("\xFF\xFE<\0x\0"s));
}

TEST(IsValidUtf8, FindsABadByteAnywhereInALongText) {
    const std::string text(100, 'a');
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string broken = text;
        broken[at] = '\xE9';
        ASSERT_FALSE(isValidUtf8(broken)) << at;
    }
}

TEST(DisplayText, KeepsWhatIsWellFormed) {
    EXPECT_EQ(displayText("Caf\u00e9 \U0001F3B5"), "Caf\u00e9 \U0001F3B5");
    EXPECT_EQ(displayText(""), "");
}

TEST(DisplayText, ReplacesEachIllFormedPartWithOneReplacementCharacter) {
    EXPECT_EQ(displayText("Caf\xE9.xpj"), "Caf\uFFFD.xpj");
    EXPECT_EQ(displayText("\xF0\x9F\x8E"), "\uFFFD");
    EXPECT_EQ(displayText("\xF0\x9F\x8E\xFF"), "\uFFFD\uFFFD");
    EXPECT_EQ(displayText("\xC0\x80"), "\uFFFD\uFFFD");
    EXPECT_EQ(displayText("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
}

TEST(DisplayText, IsWellFormedForAnyBytes) {
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        std::string bytes(random() % 12, '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(random());
        }
        ASSERT_TRUE(testing::slowIsValidUtf8(displayText(bytes))) << ::testing::PrintToString(bytes);
    }
}

TEST(Utf8, IsDecodedTheSameFromBothEnds) {
    const std::string text = "a\u00e9\u20ac\U0001F3B5";
    std::vector<char32_t> forward;
    std::vector<char32_t> backward;
    for (std::string_view rest = text; !rest.empty(); rest.remove_prefix(firstCharacter(rest).length)) {
        forward.push_back(static_cast<char32_t>(firstCharacter(rest).character));
    }
    for (std::string_view rest = text; !rest.empty(); rest.remove_suffix(lastCharacter(rest).length)) {
        backward.push_back(static_cast<char32_t>(lastCharacter(rest).character));
    }
    std::ranges::reverse(backward);
    EXPECT_EQ(forward, testing::slowDecode(text));
    EXPECT_EQ(backward, forward);
}

} // namespace
} // namespace tarvolt
