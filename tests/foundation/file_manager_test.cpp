#include "foundation/file_manager.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

namespace tarvolt {
namespace {

TEST(Appending, PutsOneStopBetweenFolderAndName) {
    EXPECT_EQ(appending("/p", "Song.xpj"), "/p/Song.xpj");
    EXPECT_EQ(appending("/p/", "Song.xpj"), "/p/Song.xpj");
    EXPECT_EQ(appending("/", "Song.xpj"), "/Song.xpj");
}

TEST(Appending, LeadsNoNameFromNowhereToTheRoot) {
    EXPECT_EQ(appending("", "Song.xpj"), "Song.xpj");
}

TEST(Appending, KeepsTheBytesOfTheName) {
    for (const std::string& name : {std::string(".."), std::string("caf\xe9"), std::string("Be\0at", 5)}) {
        EXPECT_EQ(appending("/p", name).native(), "/p/" + name);
    }
}

TEST(FileError, DescribesItselfInTheWordsOfTheOperatingSystem) {
    EXPECT_EQ(FileError(EACCES, "open", "/p/Song.xpj").localizedDescription(), "Permission denied");
    EXPECT_EQ(FileError(ENOTEMPTY, "rename", "/p").localizedDescription(), "Directory not empty");
}

TEST(FileError, KnowsItsCodeItsCallAndItsPath) {
    const FileError error(ENOENT, "open", "/p/Song.xpj");
    EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
    EXPECT_EQ(error.call(), "open");
    EXPECT_EQ(error.path(), "/p/Song.xpj");
    EXPECT_STREQ(error.what(), "open /p/Song.xpj: No such file or directory");
}

} // namespace
} // namespace tarvolt
