#include "foundation/byte_count_formatter.h"
#include "tests/support/reference_table.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace tarvolt {
namespace {

std::string english(std::int64_t byteCount) {
    return byteCountText(byteCount, "en_US");
}

TEST(ByteCountText, AgreesWithTheReferenceTable) {
    for (const testing::ReferenceRow& row : testing::readReferenceTable("byte_count.tsv", 325, 2)) {
        EXPECT_EQ(english(std::stoll(row.fields[0])), row.fields[1]) << row;
    }
}

TEST(ByteCountText, SpellsOutZeroAndHasASingular) {
    EXPECT_EQ(english(0), "Zero KB");
    EXPECT_EQ(english(1), "1 byte");
    EXPECT_EQ(english(2), "2 bytes");
    EXPECT_EQ(english(999), "999 bytes");
    EXPECT_EQ(english(1000), "1 KB");
}

TEST(ByteCountText, HasMoreFractionDigitsForLargerUnits) {
    EXPECT_EQ(english(1'234), "1 KB");
    EXPECT_EQ(english(1'234'000), "1.2 MB");
    EXPECT_EQ(english(1'234'000'000), "1.23 GB");
    EXPECT_EQ(english(1'234'000'000'000), "1.23 TB");
    EXPECT_EQ(english(1'234'000'000'000'000), "1.23 PB");
    EXPECT_EQ(english(1'234'000'000'000'000'000), "1.23 EB");
}

TEST(ByteCountText, RoundsHalvesToTheEvenDigit) {
    EXPECT_EQ(english(1'500), "2 KB");
    EXPECT_EQ(english(2'500), "2 KB");
    EXPECT_EQ(english(2'501), "3 KB");
    EXPECT_EQ(english(1'050'000), "1 MB");
    EXPECT_EQ(english(1'150'000), "1.2 MB");
    EXPECT_EQ(english(1'250'000), "1.2 MB");
    EXPECT_EQ(english(1'250'001), "1.3 MB");
    EXPECT_EQ(english(1'005'000'000), "1 GB");
    EXPECT_EQ(english(1'015'000'000), "1.02 GB");
    EXPECT_EQ(english(1'025'000'000), "1.02 GB");
}

TEST(ByteCountText, DropsTrailingZeros) {
    EXPECT_EQ(english(3'000'000), "3 MB");
    EXPECT_EQ(english(3'100'000'000), "3.1 GB");
    EXPECT_EQ(english(3'010'000'000), "3.01 GB");
    EXPECT_EQ(english(100'000'000), "100 MB");
}

TEST(ByteCountText, RollsOverToTheNextUnitWhereRoundingReachesAThousand) {
    EXPECT_EQ(english(999'499), "999 KB");
    EXPECT_EQ(english(999'500), "1 MB");
    EXPECT_EQ(english(999'949'999), "999.9 MB");
    EXPECT_EQ(english(999'950'000), "1 GB");
    EXPECT_EQ(english(999'994'999'999), "999.99 GB");
    EXPECT_EQ(english(999'995'000'000), "1 TB");
    EXPECT_EQ(english(999'994'999'999'999), "999.99 TB");
    EXPECT_EQ(english(999'995'000'000'000), "1 PB");
    EXPECT_EQ(english(999'994'999'999'999'999), "999.99 PB");
    EXPECT_EQ(english(999'995'000'000'000'000), "1 EB");
}

TEST(ByteCountText, CoversTheLargestCount) {
    EXPECT_EQ(english(std::numeric_limits<std::int64_t>::max()), "9.22 EB");
}

TEST(ByteCountText, TakesTheSeparatorAndDigitsFromTheLocale) {
    EXPECT_EQ(byteCountText(1'234'000'000, "de_DE"), "1,23 GB");
    EXPECT_EQ(byteCountText(1'234'000'000, "fr_FR"), "1,23 GB");
    EXPECT_EQ(byteCountText(1'234'000'000, "de_CH"), "1.23 GB");
    EXPECT_EQ(byteCountText(1'234'000'000, "ar_EG"), "\u0661\u066b\u0662\u0663 GB");
    EXPECT_EQ(byteCountText(1'234'000'000, "fa_IR"), "\u06f1\u066b\u06f2\u06f3 GB");
    EXPECT_EQ(byteCountText(12, "ar_EG"), "\u0661\u0662 bytes");
    EXPECT_EQ(byteCountText(12'000, "ar_EG"), "\u0661\u0662 KB");
    EXPECT_EQ(byteCountText(0, "ar_EG"), "Zero KB");
}

TEST(ByteCountText, IsEnglishForTheRootLocaleAndUnknownOnes) {
    for (const char* locale : {"", "xx_YY", "en_US_POSIX"}) {
        EXPECT_EQ(byteCountText(1'234'000'000, locale), "1.23 GB") << locale;
    }
}

/// The same computed with 128 bits and a search through every unit.
std::string slowByteCountText(std::int64_t byteCount) {
    constexpr const char* names[] = {"KB", "MB", "GB", "TB", "PB", "EB"};
    __extension__ using Wide = unsigned __int128;
    Wide unit = 1000;
    for (int index = 0;; ++index, unit *= 1000) {
        const Wide parts = index == 0 ? 1 : index == 1 ? 10 : 100;
        const Wide twice = static_cast<Wide>(byteCount) * parts * 2;
        Wide rounded = twice / (2 * unit);
        const Wide rest = twice % (2 * unit);
        if (rest > unit || (rest == unit && rounded % 2 == 1)) {
            ++rounded;
        }
        if (rounded < 1000 * parts) {
            const auto hundredths = static_cast<std::uint64_t>(rounded * (100 / parts));
            std::string text = std::to_string(hundredths / 100);
            text += '.';
            text += std::to_string(100 + hundredths % 100).substr(1);
            text.erase(text.find_last_not_of('0') + 1);
            if (text.back() == '.') {
                text.pop_back();
            }
            return text + ' ' + names[index];
        }
    }
}

TEST(ByteCountText, AgreesWithASimpleFormatterOnRandomCountsAndAllBoundaries) {
    std::mt19937_64 random(5);
    for (int round = 0; round < 20000; ++round) {
        const auto count = static_cast<std::int64_t>(1000 + (random() >> (2 + random() % 49)));
        ASSERT_EQ(english(count), slowByteCountText(count)) << count;
    }
    for (std::int64_t step = 500; step <= 500'000'000'000'000'000; step *= 10) {
        for (const std::int64_t factor : {1, 2, 3, 5, 9, 10, 11, 13}) {
            for (const std::int64_t offset : {-1, 0, 1}) {
                const std::int64_t count = step * factor + offset;
                if (count >= 1000) {
                    ASSERT_EQ(english(count), slowByteCountText(count)) << count;
                }
            }
        }
    }
}

TEST(IntegerText, IsGroupedAsInTheLocale) {
    EXPECT_EQ(integerText(1234567, "en_US"), "1,234,567");
    EXPECT_EQ(integerText(1234567, "de_DE"), "1.234.567");
    EXPECT_EQ(integerText(1234567, "hi_IN"), "12,34,567");
    EXPECT_EQ(integerText(1234, "es_ES"), "1234");
    EXPECT_EQ(integerText(0, "en_US"), "0");
}

TEST(IntegerText, TakesTheDigitsFromTheLocale) {
    EXPECT_EQ(integerText(12, "ar_EG"), "\u0661\u0662");
    EXPECT_EQ(integerText(1234, "fa_IR"), "\u06f1\u066c\u06f2\u06f3\u06f4");
}

TEST(IntegerText, CoversTheWholeRange) {
    EXPECT_EQ(integerText(std::numeric_limits<std::int64_t>::max(), "en_US"), "9,223,372,036,854,775,807");
    EXPECT_EQ(integerText(std::numeric_limits<std::int64_t>::min(), "en_US"), "-9,223,372,036,854,775,808");
}

TEST(IntegerText, IsEnglishForTheRootLocaleAndUnknownOnes) {
    for (const char* locale : {"", "xx_YY"}) {
        EXPECT_EQ(integerText(1234567, locale), "1,234,567") << locale;
    }
}

} // namespace
} // namespace tarvolt
