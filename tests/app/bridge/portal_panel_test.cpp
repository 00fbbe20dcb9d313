#include "app/bridge/portal_panel.h"

#include <gtest/gtest.h>

namespace tarvolt::testing {
namespace {

std::string pathIn(const char* uri) {
    const auto path = localPath(QString::fromLatin1(uri));
    return path ? path->string() : "none";
}

TEST(LocalPathTest, KeepsTheBytesOfTheName) {
    EXPECT_EQ(pathIn("file:///home/mara/Night%20Ferry"), "/home/mara/Night Ferry");
    EXPECT_EQ(pathIn("file://localhost/a%25b%3Fc%23d%3Be"), "/a%b?c#d;e");
    EXPECT_EQ(pathIn("file:///Caf%E9%FF"), "/Caf\xE9\xFF");
    EXPECT_EQ(pathIn("file:///Cafe%CC%81"), "/Cafe\xCC\x81");
    EXPECT_EQ(pathIn("file:///a%0Ab/../c"), "/a\nb/../c");
    EXPECT_EQ(pathIn("file:///"), "/");
}

TEST(LocalPathTest, AcceptsUnescapedSpacesAndPercentSigns) {
    EXPECT_EQ(pathIn("file:///home/mara/My Projects"), "/home/mara/My Projects");
    EXPECT_EQ(pathIn("file:///home/mara/100% mine"), "/home/mara/100% mine");
}

TEST(LocalPathTest, HasNoTrailingSlash) {
    EXPECT_EQ(pathIn("file:///home/mara/Projects//"), "/home/mara/Projects");
}

TEST(LocalPathTest, IsAbsentForPlacesThatAreNotOnThisMachine) {
    for (const char* uri : {"", "/home", "file:", "file:home", "smb://server/share", "file://server/share",
                            "file:///a%00b", "file://[/a", "trash:///a"}) {
        EXPECT_EQ(pathIn(uri), "none") << uri;
    }
}

} // namespace
} // namespace tarvolt::testing
