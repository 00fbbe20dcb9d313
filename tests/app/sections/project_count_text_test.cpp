#include "app/sections/project_count_text.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

TEST(ProjectCountText, SaysProjectForExactlyOneAndProjectsElse) {
    EXPECT_EQ(projectCountText(0, "en_US"), "0 projects");
    EXPECT_EQ(projectCountText(1, "en_US"), "1 project");
    EXPECT_EQ(projectCountText(2, "en_US"), "2 projects");
    EXPECT_EQ(projectCountText(21, "en_US"), "21 projects");
}

TEST(ProjectCountText, WritesTheNumberAsTheLocaleDoes) {
    EXPECT_EQ(projectCountText(20000, "en_US"), "20,000 projects");
    EXPECT_EQ(projectCountText(20000, "de_DE"), "20.000 projects");
    EXPECT_EQ(projectCountText(12, "fa_IR"), "۱۲ projects");
}

} // namespace
} // namespace tarvolt
