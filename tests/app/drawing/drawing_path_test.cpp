#include "app/drawing/drawing_path.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

TEST(DrawingPathTest, ReadsAbsoluteAndRelativeCommandsPackedClosely) {
    const QPainterPath path = drawingPath("M1 2h3v4L-1-2.5.5.5l1,1Zm1 1");
    ASSERT_EQ(path.elementCount(), 8);
    const QPointF expected[] = {{1, 2}, {4, 2}, {4, 6}, {-1, -2.5}, {.5, .5}, {1.5, 1.5}, {1, 2}, {2, 3}};
    for (int i = 0; i < path.elementCount(); ++i) {
        EXPECT_EQ(QPointF(path.elementAt(i)), expected[i]) << i;
    }
}

struct ArcRow {
    const char* data;
    QRectF bounds;
};

TEST(DrawingPathTest, DrawsArcsTheWayTheirFlagsSay) {
    const ArcRow rows[] = {
        {"M0 0A10 10 0 0 1 10 10", {0, 0, 10, 10}},   {"M0 0A10 10 0 0 0 10 10", {0, 0, 10, 10}},
        {"M0 0A10 10 0 1 1 10 10", {0, -10, 20, 20}}, {"M0 0A10 10 0 1 0 10 10", {-10, 0, 20, 20}},
        {"M0 0a5 5 0 0 1 10 0", {0, -5, 10, 5}},      {"M0 0a5 5 0 0 0 10 0", {0, 0, 10, 5}},
        {"M0 0a1 1 0 0 1 10 0", {0, -5, 10, 5}},      {"M3 3a5 5 0 0 1 0 0", {3, 3, 0, 0}},
    };
    for (const auto& row : rows) {
        const QRectF bounds = drawingPath(row.data).boundingRect();
        EXPECT_NEAR(bounds.left(), row.bounds.left(), 0.01) << row.data;
        EXPECT_NEAR(bounds.top(), row.bounds.top(), 0.01) << row.data;
        EXPECT_NEAR(bounds.right(), row.bounds.right(), 0.01) << row.data;
        EXPECT_NEAR(bounds.bottom(), row.bounds.bottom(), 0.01) << row.data;
    }
}

TEST(DrawingPathTest, DrawsCurves) {
    const QRectF bounds = drawingPath("M0 0c0 10 10 10 10 0").boundingRect();
    EXPECT_NEAR(bounds.bottom(), 7.5, 0.01);
    EXPECT_NEAR(bounds.right(), 10, 0.01);
}

} // namespace
} // namespace tarvolt
