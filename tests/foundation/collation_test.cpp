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

/// Negative, zero or positive as `a` is before, equal to or after `b`.
int compare(std::string_view a, std::string_view b, std::string_view locale = "en_US") {
    using Order = std::vector<std::size_t>;
    const bool isAfter = localizedCaseInsensitiveCompareOrder({a, b}, locale) == Order{1, 0};
    const bool isBefore = localizedCaseInsensitiveCompareOrder({b, a}, locale) == Order{1, 0};
    return (isAfter ? 1 : 0) - (isBefore ? 1 : 0);
}

/// Names in the order in which a list shows them.
std::vector<std::string> sorted(const std::vector<std::string>& names, std::string_view locale = "en_US") {
    std::vector<std::string> result;
    for (const std::size_t index : localizedCaseInsensitiveCompareOrder({names.begin(), names.end()}, locale)) {
        result.push_back(names[index]);
    }
    return result;
}

using Names = std::vector<std::string>;

TEST(LocalizedCaseInsensitiveCompareOrder, AgreesWithTheReferenceTable) {
    const std::vector<testing::ReferenceRow> groups = testing::readReferenceTable("order.tsv", 104, 0);
    std::vector<std::string_view> ascending;
    for (const testing::ReferenceRow& group : groups) {
        ascending.insert(ascending.end(), group.fields.begin(), group.fields.end());
    }
    ASSERT_EQ(ascending.size(), 130U);
    // Reversed, all groups are in the wrong order, and the equal names within a group are to keep theirs.
    const std::vector<std::string_view> descending(ascending.rbegin(), ascending.rend());
    for (const char* locale : {"en_US", ""}) {
        std::vector<std::string_view> expected;
        for (const testing::ReferenceRow& group : groups) {
            expected.insert(expected.end(), group.fields.rbegin(), group.fields.rend());
        }
        std::vector<std::string_view> found;
        for (const std::size_t index : localizedCaseInsensitiveCompareOrder(descending, locale)) {
            found.push_back(descending[index]);
        }
        EXPECT_EQ(found, expected) << locale;
        for (std::size_t i = 0; i < groups.size(); ++i) {
            for (const std::string& name : groups[i].fields) {
                EXPECT_EQ(compare(groups[i].fields.front(), name, locale), 0) << groups[i];
                EXPECT_EQ(compare(groups[i == 0 ? 0 : i - 1].fields.front(), name, locale), i == 0 ? 0 : -1)
                    << groups[i];
            }
        }
    }
}

TEST(LocalizedCaseInsensitiveCompareOrder, KeepsTheOrderOfNamesThatDifferOnlyInCase) {
    EXPECT_EQ(sorted({"beta", "Alpha", "alpha"}), (Names{"Alpha", "alpha", "beta"}));
    EXPECT_EQ(sorted({"beta", "alpha", "Alpha"}), (Names{"alpha", "Alpha", "beta"}));
}

TEST(LocalizedCaseInsensitiveCompareOrder, DoesNotSortByCodes) {
    for (const char* locale : {"", "en_US", "en_US_POSIX", "xx_YY"}) {
        EXPECT_EQ(sorted({"Zebra", "apple", "Banana", "\u00e9clair", "fig"}, locale),
                  (Names{"apple", "Banana", "\u00e9clair", "fig", "Zebra"}))
            << locale;
    }
}

TEST(LocalizedCaseInsensitiveCompareOrder, DoesNotReadDigitsAsNumbers) {
    EXPECT_EQ(sorted({"Beat 2", "Beat 10"}), (Names{"Beat 10", "Beat 2"}));
}

TEST(LocalizedCaseInsensitiveCompareOrder, CountsPunctuationAndBlanksInEveryLocale) {
    // Thai collation ignores punctuation by default.
    for (const char* locale : {"", "en_US", "th_TH"}) {
        EXPECT_NE(compare("a-b", "ab", locale), 0) << locale;
        EXPECT_NE(compare("a b", "ab", locale), 0) << locale;
    }
}

TEST(LocalizedCaseInsensitiveCompareOrder, FollowsTheLocale) {
    EXPECT_EQ(sorted({"\u00f6l", "zug"}, "de_DE"), (Names{"\u00f6l", "zug"}));
    EXPECT_EQ(sorted({"\u00f6l", "zug"}, "sv_SE"), (Names{"zug", "\u00f6l"}));
    EXPECT_EQ(sorted({"chata", "cukr", "dort"}, "cs_CZ"), (Names{"cukr", "dort", "chata"}));
    EXPECT_EQ(sorted({"\u0131s\u0131", "Isak", "izmir", "hal"}, "tr_TR"),
              (Names{"hal", "Isak", "\u0131s\u0131", "izmir"}));
}

TEST(LocalizedCaseInsensitiveCompareOrder, SortsNamesThatAreNotUtf8ByTheirDisplayForm) {
    std::mt19937 random(4);
    constexpr std::array<std::string_view, 8> pieces{"a",        "B",    "\xE9", "\xC3\xA9", "\xF0\x9F\x8E",
                                                     "\xED\xA0", "\xFF", " "};
    std::vector<std::string> names;
    std::vector<std::string> shown;
    for (int round = 0; round < 5000; ++round) {
        names.push_back(testing::randomText(random, pieces, 5));
        shown.push_back(displayText(names.back()));
    }
    EXPECT_EQ(localizedCaseInsensitiveCompareOrder({names.begin(), names.end()}, "en_US"),
              localizedCaseInsensitiveCompareOrder({shown.begin(), shown.end()}, "en_US"));
    for (std::size_t i = 0; i < 100; ++i) {
        EXPECT_EQ(compare(names[i], shown[i]), 0) << ::testing::PrintToString(names[i]);
    }
}

TEST(LocalizedCaseInsensitiveCompareOrder, ComparesTheLongestNamesToTheEnd) {
    // The second of these decomposes into eighteen letters.
    for (const char* letter : {"\u1ec7", "\ufdfa"}) {
        std::string name;
        for (int count = 0; count < 85; ++count) {
            name += letter;
        }
        EXPECT_EQ(compare(name, name + "a"), -1) << letter;
        EXPECT_EQ(compare(name + "a", name + "b"), -1) << letter;
        EXPECT_EQ(compare(name, name), 0) << letter;
        EXPECT_EQ(compare("", name), -1) << letter;
    }
}

} // namespace
} // namespace tarvolt
