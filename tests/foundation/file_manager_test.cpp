#include "foundation/file_manager.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <string>

namespace tarvolt {
namespace {

TEST(FileError, IsDescribedInTheWordsOfTheOperatingSystem) {
    EXPECT_EQ(FileError(EACCES, "open", "/p/Song.xpj").localizedDescription(), "Permission denied");
    EXPECT_EQ(FileError(ENOTEMPTY, "rename", "/p").localizedDescription(), "Directory not empty");
}

enum Status { described, notDescribed, noGermanTexts };

/// Ends the process, which has German messages in a character set other than UTF-8.
void describeInGerman() {
    setenv("LANGUAGE", "de", 1);
    setenv("OUTPUT_CHARSET", "ISO-8859-1", 1);
    std::setlocale(LC_MESSAGES, "C.UTF-8");
    const FileError error(EBUSY, "unlink", "/p/Song.xpj");
    if (error.code().message() != "Das Ger\xe4t oder die Ressource ist belegt") {
        std::_Exit(noGermanTexts);
    }
    const bool isUtf8 = error.localizedDescription() == "Das Ger\uFFFDt oder die Ressource ist belegt";
    std::_Exit(isUtf8 ? described : notDescribed);
}

TEST(FileError, IsDescribedInUtf8EvenIfTheLocaleHasAnotherCharacterSet) {
    int status = -1;
    const auto isNotWrong = [&](int ending) {
        status = WIFEXITED(ending) ? WEXITSTATUS(ending) : notDescribed;
        return status == described || status == noGermanTexts;
    };
    EXPECT_EXIT(describeInGerman(), isNotWrong, "");
    if (status == noGermanTexts) {
        GTEST_SKIP() << "the C library has no German texts here, or none in that character set";
    }
}

TEST(FileError, HasACodeAPathAndTheCallInItsText) {
    const FileError error(ENOENT, "open", "/p/Song.xpj");
    EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
    EXPECT_EQ(error.path(), "/p/Song.xpj");
    EXPECT_STREQ(error.what(), "open /p/Song.xpj: No such file or directory");
}

} // namespace
} // namespace tarvolt
