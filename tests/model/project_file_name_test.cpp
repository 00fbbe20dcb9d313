#include "model/folder_scan.h"
#include "tests/support/reference_table.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

TEST(ProjectFileName, IsRecognisedAndCutAsInTheReferenceTable) {
    for (const testing::ReferenceRow& row : testing::readReferenceTable("paths.tsv", 23, 4)) {
        const bool isOne = row.fields[3] == "1";
        EXPECT_EQ(isProjectFileName(row.fields[0]), isOne) << row;
        if (isOne) {
            EXPECT_EQ(baseNameOf(row.fields[0]), row.fields[2]) << row;
        }
    }
}

TEST(ProjectFileName, LosesItsLastExtensionOnly) {
    EXPECT_EQ(baseNameOf("Beat.final.xpj"), "Beat.final");
}

TEST(ProjectFileName, HasItsExtensionInAnyCaseOfAsciiLetters) {
    for (const char* name : {"a.xpj", "a.XPJ", "a.xPj"}) {
        EXPECT_TRUE(isProjectFileName(name)) << name;
    }
    for (const char* name : {"xpj", "axpj", "a.xpj2", "a.xp", "a.xp\u0237", "a.\uff58\uff50\uff4a", ""}) {
        EXPECT_FALSE(isProjectFileName(name)) << name;
    }
}

} // namespace
} // namespace tarvolt
