#include "app/sections/sheet_texts.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tarvolt {
namespace {

MPCProject song() {
    return {"Song", "/p/Song.xpj", std::nullopt, 0, 10};
}

using Names = std::vector<std::pair<std::string, std::string>>;

Names previewedNames(const MPCProject& project, std::string_view newName) {
    Names names;
    for (const auto& [oldText, newText] : previewRows(project, newName)) {
        names.emplace_back(oldText, newText);
    }
    return names;
}

TEST(RenameSheetTexts, PreviewOnlyTheFileWithoutADataFolder) {
    EXPECT_EQ(previewedNames(song(), "Beat"), (Names{{"Song.xpj", "Beat.xpj"}}));
}

TEST(RenameSheetTexts, PreviewTheFileAndTheDataFolder) {
    const MPCProject project("Song", "/p/Song.xpj", "/p/Song_[ProjectData]", 0, 10);
    EXPECT_EQ(previewedNames(project, "Beat"),
              (Names{{"Song.xpj", "Beat.xpj"}, {"Song_[ProjectData]", "Beat_[ProjectData]"}}));
}

TEST(RenameSheetTexts, PreviewTheNameAsTypedWithItsSpaces) {
    EXPECT_EQ(previewedNames(song(), "  "), (Names{{"Song.xpj", "  .xpj"}}));
}

} // namespace
} // namespace tarvolt
