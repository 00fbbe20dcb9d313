#include "foundation/text.h"
#include "tests/support/random_text.h"
#include "tests/support/reference_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tarvolt {
namespace {

int sign(int number) {
    return (number > 0 ? 1 : 0) - (number < 0 ? 1 : 0);
}

int keyOrder(const CaseInsensitiveOrder& order, std::string_view a, std::string_view b) {
    return sign(order.sortKey(a).compare(order.sortKey(b)));
}

/// Names in the order in which a list shows them.
std::vector<std::string> sorted(std::vector<std::string> names, std::string_view locale = "en_US") {
    const CaseInsensitiveOrder order(locale);
    std::ranges::stable_sort(names, {}, [&](const std::string& name) { return order.sortKey(name); });
    return names;
}

using Names = std::vector<std::string>;

TEST(CaseInsensitiveOrder, AnswersAsTheReferenceTable) {
    const std::vector<testing::ReferenceRow> groups = testing::readReferenceTable("order.tsv", 104, 0);
    const CaseInsensitiveOrder english("en_US");
    const CaseInsensitiveOrder root("");
    std::size_t names = 0;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        names += groups[i].fields.size();
        for (std::size_t j = 0; j < groups.size(); ++j) {
            const int expected = (i > j ? 1 : 0) - (i < j ? 1 : 0);
            for (const std::string& a : groups[i].fields) {
                for (const std::string& b : groups[j].fields) {
                    EXPECT_EQ(sign(english.compare(a, b)), expected) << groups[i] << " against " << groups[j];
                    EXPECT_EQ(keyOrder(english, a, b), expected) << groups[i] << " against " << groups[j];
                    EXPECT_EQ(sign(root.compare(a, b)), expected) << groups[i] << " against " << groups[j];
                }
            }
        }
    }
    EXPECT_EQ(names, 130U);
}

TEST(CaseInsensitiveOrder, KeepsTheOrderOfNamesThatDifferInCaseAlone) {
    EXPECT_EQ(sorted({"beta", "Alpha", "alpha"}), (Names{"Alpha", "alpha", "beta"}));
    EXPECT_EQ(sorted({"beta", "alpha", "Alpha"}), (Names{"alpha", "Alpha", "beta"}));
}

TEST(CaseInsensitiveOrder, IsNoOrderByCodes) {
    for (const char* locale : {"", "en_US", "en_US_POSIX", "xx_YY"}) {
        EXPECT_EQ(sorted({"Zebra", "apple", "Banana", "\u00e9clair", "fig"}, locale),
                  (Names{"apple", "Banana", "\u00e9clair", "fig", "Zebra"}))
            << locale;
    }
}

TEST(CaseInsensitiveOrder, ReadsNoNumbersInDigits) {
    EXPECT_EQ(sorted({"Beat 2", "Beat 10"}), (Names{"Beat 10", "Beat 2"}));
}

TEST(CaseInsensitiveOrder, CountsPunctuationAndBlanksInEveryLocale) {
    // Thai order leaves punctuation out unless it is told not to.
    for (const char* locale : {"", "en_US", "th_TH"}) {
        const CaseInsensitiveOrder order(locale);
        EXPECT_NE(keyOrder(order, "a-b", "ab"), 0) << locale;
        EXPECT_NE(keyOrder(order, "a b", "ab"), 0) << locale;
    }
}

TEST(CaseInsensitiveOrder, FollowsTheLocale) {
    EXPECT_EQ(sorted({"\u00f6l", "zug"}, "de_DE"), (Names{"\u00f6l", "zug"}));
    EXPECT_EQ(sorted({"\u00f6l", "zug"}, "sv_SE"), (Names{"zug", "\u00f6l"}));
    EXPECT_EQ(sorted({"chata", "cukr", "dort"}, "cs_CZ"), (Names{"cukr", "dort", "chata"}));
    EXPECT_EQ(sorted({"\u0131s\u0131", "Isak", "izmir", "hal"}, "tr_TR"),
              (Names{"hal", "Isak", "\u0131s\u0131", "izmir"}));
}

TEST(CaseInsensitiveOrder, PutsNamesThatAreNotUtf8WhereTheirDisplayFormBelongs) {
    const CaseInsensitiveOrder order("en_US");
    std::mt19937 random(4);
    constexpr std::array<std::string_view, 8> pieces{"a",        "B",    "\xE9", "\xC3\xA9", "\xF0\x9F\x8E",
                                                     "\xED\xA0", "\xFF", " "};
    for (int round = 0; round < 5000; ++round) {
        const std::string a = testing::randomText(random, pieces, 5);
        const std::string b = testing::randomText(random, pieces, 5);
        ASSERT_EQ(order.compare(a, displayText(a)), 0) << ::testing::PrintToString(a);
        ASSERT_EQ(order.sortKey(a), order.sortKey(displayText(a))) << ::testing::PrintToString(a);
        ASSERT_EQ(sign(order.compare(a, b)), keyOrder(order, a, b))
            << ::testing::PrintToString(a) << " against " << ::testing::PrintToString(b);
    }
}

TEST(CaseInsensitiveOrder, HasWholeKeysForTheLongestNames) {
    // The second of these stands for eighteen letters.
    const CaseInsensitiveOrder order("en_US");
    for (const char* letter : {"\u1ec7", "\ufdfa"}) {
        std::string name;
        for (int count = 0; count < 85; ++count) {
            name += letter;
        }
        EXPECT_EQ(keyOrder(order, name, name + "a"), -1) << letter;
        EXPECT_EQ(keyOrder(order, name + "a", name + "b"), -1) << letter;
        EXPECT_EQ(keyOrder(order, name, name), 0) << letter;
        EXPECT_EQ(keyOrder(order, "", name), -1) << letter;
    }
}

} // namespace
} // namespace tarvolt
