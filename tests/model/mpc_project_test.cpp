#include "model/mpc_project.h"

#include <gtest/gtest.h>

#include <unordered_set>

namespace tarvolt {
namespace {

MPCProject song() {
    return {"Song", "/p/Song.xpj", std::filesystem::path("/p/Song_[ProjectData]"), 3, 520};
}

TEST(MPCProject, DiffersFromAnotherWithTheSameFields) {
    EXPECT_NE(song(), song());
}

TEST(MPCProject, EqualsItsCopyAndHashesLikeIt) {
    const auto project = song();
    const auto copy = project; // NOLINT(performance-unnecessary-copy-initialization): the copy is what is tested
    EXPECT_EQ(project, copy);
    EXPECT_EQ(std::hash<MPCProject>{}(project), std::hash<MPCProject>{}(copy));
    const std::unordered_set<MPCProject> set{project, song()};
    EXPECT_EQ(set.size(), 2U);
    EXPECT_TRUE(set.contains(copy));
}

} // namespace
} // namespace tarvolt
