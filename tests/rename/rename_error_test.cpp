#include "rename/rename_error.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

TEST(RenameError, QuotesTheNameOfAnExistingDestination) {
    const auto error = RenameError::destinationExists("Beat");
    EXPECT_EQ(error.kind(), RenameError::Case::destinationExists);
    EXPECT_EQ(error.payload(), "Beat");
    EXPECT_EQ(error.errorDescription(), "A project named \"Beat\" already exists.");
    EXPECT_STREQ(error.what(), "A project named \"Beat\" already exists.");
}

TEST(RenameError, StartsEveryOtherDescriptionWithTheTextOfItsCase) {
    EXPECT_EQ(RenameError::readFailed("Song.xpj").errorDescription(), "Failed to read file: Song.xpj");
    EXPECT_EQ(RenameError::writeFailed("Beat.xpj").errorDescription(), "Failed to write file: Beat.xpj");
    EXPECT_EQ(RenameError::deleteFailed("why").errorDescription(), "Failed to delete: why");
    EXPECT_EQ(RenameError::invalidName("why").errorDescription(), "Invalid name: why");
}

TEST(RenameError, KeepsThePayloadVerbatim) {
    const std::string payload("a\"b\\\n\0\xff&<%1", 11);
    EXPECT_EQ(RenameError::destinationExists(payload).errorDescription(),
              "A project named \"" + payload + "\" already exists.");
    EXPECT_EQ(RenameError::writeFailed("").errorDescription(), "Failed to write file: ");
}

TEST(RenameError, KeepsTheFiveCasesInTheirOrder) {
    EXPECT_EQ(static_cast<int>(RenameError::Case::destinationExists), 0);
    EXPECT_EQ(static_cast<int>(RenameError::Case::readFailed), 1);
    EXPECT_EQ(static_cast<int>(RenameError::Case::writeFailed), 2);
    EXPECT_EQ(static_cast<int>(RenameError::Case::deleteFailed), 3);
    EXPECT_EQ(static_cast<int>(RenameError::Case::invalidName), 4);
}

} // namespace
} // namespace tarvolt
