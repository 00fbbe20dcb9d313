#include "model/mpc_project.h"

#include <gtest/gtest.h>

#include <unordered_set>

namespace tarvolt {
namespace {

MPCProject song() {
    return {UUID::random(), "Song", "/p/Song.xpj", std::filesystem::path("/p/Song_[ProjectData]"), 3, 520};
}

TEST(MPCProject, IsUnequalToAnotherOfTheSameFields) {
    EXPECT_NE(song(), song());
}

TEST(MPCProject, IsEqualToItsCopy) {
    const auto project = song();
    const auto copy = project; // NOLINT(performance-unnecessary-copy-initialization): the copy is what is tested
    EXPECT_EQ(project, copy);
}

TEST(MPCProject, StaysEqualAndKeepsItsHashWhenItsCopyIsChanged) {
    const auto project = song();
    auto copy = project;
    copy.baseName = "Other";
    copy.totalSize = 1;
    EXPECT_EQ(project, copy);
    EXPECT_EQ(std::hash<MPCProject>{}(project), std::hash<MPCProject>{}(copy));
    EXPECT_TRUE(std::unordered_set<MPCProject>{project}.contains(copy));
}

TEST(MPCProject, IsUnequalToOneOfAnotherIdentityOnly) {
    const auto project = song();
    auto other = project;
    other.id = UUID::random();
    EXPECT_NE(project, other);
}

} // namespace
} // namespace tarvolt
