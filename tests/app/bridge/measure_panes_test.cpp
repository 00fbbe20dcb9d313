#include "tests/app/bridge/measures.h"

namespace tarvolt {
namespace {

using testing::SceneWindow;

class MeasurePanesTest : public ::testing::Test {
protected:
    SceneWindow w;
};

TEST_F(MeasurePanesTest, ThePanesStayWithinTheirLimitsHoweverTheyAreResized) {
    w.addProjects(2);
    w.choose();
    for (const int width : {700, 701, 800, 1024, 1600, 3000}) {
        w.window->resize(width, 600);
        for (const double wanted : {-500.0, 0.0, 219.0, 220.0, 240.0, 280.0, 281.0, 5000.0}) {
            w.find("splitArea")->setProperty("wantedLogWidth", wanted);
            QCoreApplication::processEvents();
            const double list = w.box("projectListView").width();
            const double log = w.box("logView").width();
            EXPECT_GE(list, 400) << width << ' ' << wanted;
            EXPECT_GE(log, 220) << width << ' ' << wanted;
            EXPECT_LE(log, 280) << width << ' ' << wanted;
            EXPECT_EQ(list + log + 1, width);
            EXPECT_EQ(w.box("logView").bottomRight(), QPointF(width, 600));
        }
    }
}

TEST_F(MeasurePanesTest, TheDividerStopsAtItsLimits) {
    w.addProjects(2);
    w.choose();
    EXPECT_EQ(w.box("logView").width(), 240);
    EXPECT_EQ(w.box("splitHitArea").width(), 9);
    const QPoint from = w.box("splitHandle").center().toPoint();
    const auto drag = [&](int by) {
        const QPoint start = w.box("splitHandle").center().toPoint();
        QTest::mousePress(w.window, Qt::LeftButton, {}, start);
        QTest::mouseMove(w.window, start + QPoint(by / 2, 0));
        QTest::mouseMove(w.window, start + QPoint(by, 0));
        QTest::mouseRelease(w.window, Qt::LeftButton, {}, start + QPoint(by, 0));
        QCoreApplication::processEvents();
    };
    drag(-20);
    EXPECT_NEAR(w.box("logView").width(), 260, 1);
    drag(-300);
    EXPECT_EQ(w.box("logView").width(), 280);
    drag(250);
    EXPECT_EQ(w.box("logView").width(), 220);
    EXPECT_NE(w.box("splitHandle").center().toPoint(), from);
}

} // namespace
} // namespace tarvolt
