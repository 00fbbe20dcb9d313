// Odd names, each given to a project and taken away again, byte for byte.
#include "foundation/file_manager.h"
#include "model/mpc_scanner.h"
#include "tests/support/renaming.h"
#include "tests/support/scene.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace tarvolt {
namespace {

using ::testing::Contains;
using ::testing::Not;
using testing::TemporaryFolder;

class OddName : public ::testing::TestWithParam<std::tuple<const char*, std::string>> {};

INSTANTIATE_TEST_SUITE_P(
    OfAll, OddName,
    ::testing::Values(std::tuple("OfLineBreaks", "\n\r\n"), std::tuple("WithControls", "a\x01\x1b[2J\x7f"),
                      std::tuple("WithARightToLeftOverride", "gpj.\u202egnoS"), std::tuple("OfDots", "..."),
                      std::tuple("ThatIsHidden", ".hidden"), std::tuple("WithItsExtensionTwice", "a.xpj.xpj"),
                      std::tuple("OfADataFolder", "Song_[ProjectData]"), std::tuple("WithBlanksAround", " a "),
                      std::tuple("WithADashInFront", "-rf"), std::tuple("OfTheLongestFolder", std::string(241, 'n'))),
    [](const auto& test) { return std::string(std::get<0>(test.param)); });

TEST_P(OddName, IsGivenAndTakenAwayByteForByte) {
    const std::string& name = std::get<1>(GetParam());
    const TemporaryFolder folder;
    folder.write("Song.xpj", "<a>Song_[ProjectData]/kick.wav</a>");
    folder.write("Song_[ProjectData]/kick.wav", "boom");
    const auto before = folder.tree();
    const testing::Scene scene;
    const auto scanner = MPCScanner::create(scene.services(makePosixFileManager()));
    scanner->folderURL.set(folder.path());
    EXPECT_EQ(testing::errorOfRename(*scanner, testing::projectIn(folder.path()), name), "");
    EXPECT_THAT(folder.tree(), Contains(name + ".xpj=<a>" + name + "_[ProjectData]/kick.wav</a>"));
    EXPECT_THAT(folder.tree(), Contains(name + "_[ProjectData]/kick.wav=boom"));
    EXPECT_THAT(folder.tree(), Not(Contains("Song_[ProjectData]/")));
    EXPECT_EQ(testing::errorOfRename(*scanner, testing::projectIn(folder.path(), name), "Song"), "");
    EXPECT_EQ(folder.tree(), before);
}

TEST(OddNameOfAnOldProject, ThatIsNotUtf8IsTakenAwayByteForByte) {
    const TemporaryFolder folder;
    const std::string name = "caf\xe9 \xff";
    folder.write(name + ".xpj", "text");
    folder.write(name + "_[ProjectData]/kick.wav", "boom");
    const testing::Scene scene;
    const auto scanner = MPCScanner::create(scene.services(makePosixFileManager()));
    scanner->folderURL.set(folder.path());
    scanner->scan();
    scene.settle();
    ASSERT_EQ(scanner->projects.get().size(), 1U);
    EXPECT_EQ(testing::errorOfRename(*scanner, scanner->projects.get().front(), "Song"), "");
    EXPECT_THAT(folder.tree(),
                ::testing::ElementsAre("Song.xpj=text", "Song_[ProjectData]/", "Song_[ProjectData]/kick.wav=boom"));
}

} // namespace
} // namespace tarvolt
