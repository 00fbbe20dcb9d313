#include "foundation/file_manager.h"
#include "model/folder_scan.h"
#include "tests/support/renaming.h"
#include "tests/support/scene.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tarvolt {
namespace {

namespace fs = std::filesystem;

const fs::path golden = fs::path(TARVOLT_TEST_DATA) / "golden";

/// The first difference of two trees, abbreviated, because the lines contain whole files.
std::string difference(const std::vector<std::string>& found, const std::vector<std::string>& expected) {
    const auto [at, wanted] = std::mismatch(found.begin(), found.end(), expected.begin(), expected.end());
    if (at == found.end() && wanted == expected.end()) {
        return {};
    }
    const std::string is = at == found.end() ? "nothing" : *at;
    const std::string shouldBe = wanted == expected.end() ? "nothing" : *wanted;
    const auto byte = std::mismatch(is.begin(), is.end(), shouldBe.begin(), shouldBe.end()).first - is.begin();
    const auto from = static_cast<std::size_t>(std::max<std::ptrdiff_t>(byte - 60, 0));
    return "at byte " + std::to_string(byte) + " of " + is.substr(0, 60) + ": " +
           is.substr(std::min(from, is.size()), 120) + "\ninstead of " +
           shouldBe.substr(std::min(from, shouldBe.size()), 120);
}

TEST(GoldenProject, IsRenamedToTheExpectedTreeByteForByte) {
    const testing::TemporaryFolder folder;
    fs::copy(golden / "before", folder.path(), fs::copy_options::recursive);
    const testing::Scene scene;
    const auto disk = makePosixFileManager();
    const auto scanner = MPCScanner::create(scene.services(disk));
    scanner->folderURL.set(folder.path());
    scanner->scan();
    scene.settle();
    const auto& projects = scanner->projects.get();
    const auto project = std::find_if(projects.begin(), projects.end(),
                                      [](const auto& found) { return found.baseName() == "Nachtcaf\u00e9 2024"; });
    ASSERT_NE(project, projects.end());
    EXPECT_TRUE(project->dataFolderURL().has_value());

    EXPECT_EQ(testing::errorOfRename(*scanner, MPCProject(*project), "Gro\u00dfe Fahrt (live)"), "");

    EXPECT_EQ(difference(folder.tree(), testing::treeOf(golden / "after")), "");
}

TEST(GoldenProject, HasOneFormOfItsReferencesWhenItIsRenamedBack) {
    const testing::TemporaryFolder folder;
    fs::copy(golden / "after", folder.path(), fs::copy_options::recursive);
    const testing::Scene scene;
    const auto scanner = MPCScanner::create(scene.services(makePosixFileManager()));
    scanner->folderURL.set(folder.path());
    const std::string name = "Nachtcaf\u00e9 2024";
    EXPECT_EQ(testing::errorOfRename(*scanner, testing::projectIn(folder.path(), "Gro\u00dfe Fahrt (live)"), name), "");
    // References with a combining accent now have a composed one; nothing else differs.
    auto expected = testing::readFile(golden / "before" / (name + ".xpj"));
    const std::string tail = "_[ProjectData]";
    const std::string decomposed = "Nachtcafe\u0301 2024" + tail;
    for (auto at = expected.find(decomposed); at != std::string::npos; at = expected.find(decomposed, at)) {
        expected.replace(at, decomposed.size(), name + tail);
    }
    EXPECT_EQ(difference({testing::readFile(folder / (name + ".xpj"))}, {expected}), "");
}

} // namespace
} // namespace tarvolt
