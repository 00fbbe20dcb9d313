#include "app/sections/list_texts.h"
#include "foundation/localized.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvolt {
namespace {

MPCProject project(bool withDataFolder) {
    return withDataFolder ? MPCProject("Slow Glass", "/p/Slow Glass.xpj", "/p/Slow Glass_[ProjectData]", 12, 3200000)
                          : MPCProject("Slow Glass", "/p/Slow Glass.xpj", std::nullopt, 0, 48000);
}

TEST(ProjectCountText, HasASingularForExactlyOne) {
    EXPECT_EQ(projectCountText(0, "en_US"), "0 projects");
    EXPECT_EQ(projectCountText(1, "en_US"), "1 project");
    EXPECT_EQ(projectCountText(2, "en_US"), "2 projects");
    EXPECT_EQ(projectCountText(21, "en_US"), "21 projects");
}

TEST(ProjectCountText, WritesTheNumberAsTheLocaleDoes) {
    EXPECT_EQ(projectCountText(20000, "en_US"), "20,000 projects");
    EXPECT_EQ(projectCountText(20000, "de_DE"), "20.000 projects");
    EXPECT_EQ(projectCountText(12, "fa_IR"), "۱۲ projects");
}

TEST(ProjectRowTexts, HaveNoSingularForFiles) {
    EXPECT_EQ(fileCountText(0, "en_US"), "0 files");
    EXPECT_EQ(fileCountText(1, "en_US"), "1 files");
    EXPECT_EQ(fileCountText(12, "en_US"), "12 files");
}

TEST(ProjectRowTexts, UseTheTranslationOfTheFilesKey) {
    setTranslator([](const char*, const char* key) {
        return std::string(key) == "%lld files" ? std::string("Dateien: %lld") : std::string(key);
    });
    EXPECT_EQ(fileCountText(1200, "de_DE"), "Dateien: 1.200");
    setTranslator([](const char*, const char*) { return std::string("viele Dateien"); });
    EXPECT_EQ(fileCountText(1200, "de_DE"), "viele Dateien") << "the translation leaves the number out";
    setTranslator({});
    EXPECT_EQ(fileCountText(3, "en_US"), "3 files");
}

TEST(ProjectRowTexts, DescribeTheWholeRowInOneSentence) {
    EXPECT_EQ(projectRowSentence(project(true), false, "en_US"), "Slow Glass, 12 files, 3.2 MB");
    EXPECT_EQ(projectRowSentence(project(true), true, "en_US"), "Slow Glass, 12 files, 3.2 MB, Renamed");
    EXPECT_EQ(projectRowSentence(project(false), false, "en_US"), "Slow Glass, 0 files, 48 KB, No data folder");
    EXPECT_EQ(projectDetailsSentence(project(false), true, "en_US"), "0 files, 48 KB, No data folder, Renamed");
}

TEST(ProjectRowTexts, DistinguishAnEmptyDataFolderFromNone) {
    const MPCProject empty("Slow Glass", "/p/Slow Glass.xpj", "/p/Slow Glass_[ProjectData]", 0, 3200000);
    EXPECT_EQ(projectRowSentence(empty, false, "en_US"), "Slow Glass, 0 files, 3.2 MB");
}

TEST(ProjectRowTexts, NameTheProjectThatTheButtonRenames) {
    EXPECT_EQ(renameButtonSentence(project(true)), "Rename Slow Glass");
}

} // namespace
} // namespace tarvolt
