#include "app/sections/sheet_texts.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

MPCProject song() {
    return {"Song", "/p/Song.xpj", std::nullopt, 0, 10};
}

TEST(RenameSheetTexts, PreviewOnlyTheFileWithoutADataFolder) {
    EXPECT_EQ(previewRows(song(), "Beat"), (std::vector<PreviewRow>{{"Song.xpj", "Beat.xpj"}}));
}

TEST(RenameSheetTexts, PreviewTheFileAndTheDataFolder) {
    const MPCProject project("Song", "/p/Song.xpj", "/p/Song_[ProjectData]", 0, 10);
    EXPECT_EQ(previewRows(project, "Beat"),
              (std::vector<PreviewRow>{{"Song.xpj", "Beat.xpj"}, {"Song_[ProjectData]", "Beat_[ProjectData]"}}));
}

TEST(RenameSheetTexts, PreviewTheNameAsTypedWithItsSpaces) {
    EXPECT_EQ(previewRows(song(), "  ").front().newText, "  .xpj");
}

} // namespace
} // namespace tarvolt
