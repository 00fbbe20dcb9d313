#include "tests/app/bridge/measures.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

using testing::expectColour;
using testing::Measures;
using testing::SceneWindow;

class MeasureLogTest : public ::testing::Test {
protected:
    SceneWindow w;
    Measures m{w};
};

TEST_F(MeasureLogTest, TheTitleHasItsPaddingAndTheLineFollows) {
    w.addProjects(1);
    w.choose();
    const QRectF panel = w.box("logView");
    EXPECT_EQ(w.box("logTitle").left() - panel.left(), 12);
    EXPECT_EQ(w.box("logTitle").top() - panel.top(), 12);
    EXPECT_EQ(m.down("logTitle", "logLine"), 8);
    EXPECT_EQ(m.down("logLine", "logList"), 0);
    EXPECT_EQ(w.box("logLine").width(), panel.width());
    EXPECT_EQ(w.box("logFill"), panel);
    EXPECT_DOUBLE_EQ(m.opacity("logFill"), 0.3);
    expectColour(m.colour("logFill"), "#000000", 0.11);
    expectColour(m.colour("logLine"), "#000000", 0.13);
    EXPECT_EQ(m.text("logTitle"), "ACTIVITY LOG");
    EXPECT_EQ(m.font("logTitle").weight(), QFont::DemiBold);
    EXPECT_NEAR(m.font("logTitle").letterSpacing(), 0.3, 0.01);
    EXPECT_NEAR(m.textRatio("logTitle"), testing::caption, 0.01);
    EXPECT_EQ(m.colour("logTitle"), QColor("#606060"));
}

TEST_F(MeasureLogTest, AnEmptyLogSaysSoInTheCentreBelowTheLine) {
    w.view->scanner->folderURL.set("/p");
    w.view->scanner->isScanning.set(true);
    w.settle();
    EXPECT_EQ(m.text("logEmptyText"), "No activity yet");
    EXPECT_NEAR(m.middle("logEmptyText"), m.middle("logView"), 0.5);
    const double top = w.box("logLine").bottom();
    EXPECT_NEAR(m.centre("logEmptyText"), (top + 600) / 2, 1);
    EXPECT_NEAR(m.textRatio("logEmptyText"), testing::caption, 0.01);
    EXPECT_EQ(m.colour("logEmptyText"), QColor("#0B0B0B"));
    EXPECT_DOUBLE_EQ(m.opacity("logEmptyText"), 0.6);
    EXPECT_TRUE(w.findAll("logList").empty()) << "no scrolling area";
}

TEST_F(MeasureLogTest, ARowHasItsPaddingSpacingsAndDot) {
    w.addProjects(1);
    w.choose();
    const auto rows = w.findAll("logRow");
    ASSERT_EQ(rows.size(), 2U);
    const QRectF row = SceneWindow::boxOf(rows[0]);
    const QRectF dot = w.box("logDot");
    EXPECT_EQ(dot.size(), QSizeF(5, 5));
    EXPECT_EQ(m.property("logDot", "radius").toDouble(), 2.5);
    EXPECT_EQ(dot.left() - row.left(), 12);
    EXPECT_EQ(dot.top() - row.top(), 4 + 5);
    EXPECT_EQ(m.across("logDot", "logTexts"), 6);
    EXPECT_EQ(w.box("logTexts").top() - row.top(), 4);
    EXPECT_NEAR(row.bottom() - w.box("logTexts").bottom(), 4.5, 0.5) << "a row is a whole number of pixels high";
    EXPECT_EQ(row.right() - w.box("logTexts").right(), 12);
    EXPECT_EQ(m.down("logTime", "logMessage"), 1);
    EXPECT_EQ(SceneWindow::boxOf(rows[1]).top() - row.bottom(), 2);
    EXPECT_EQ(row.top(), w.box("logList").top());
}

TEST_F(MeasureLogTest, RowsHaveTheirFontsAndColours) {
    w.addProjects(1);
    w.choose();
    w.view->scanner->log("a failure", true);
    w.settle();
    const auto dots = w.findAll("logDot");
    const auto texts = w.findAll("logMessage");
    ASSERT_EQ(dots.size(), 3U);
    EXPECT_EQ(texts[0]->property("text").toString(), "a failure");
    EXPECT_EQ(texts[0]->property("color").value<QColor>(), QColor("#C01C28"));
    EXPECT_EQ(dots[0]->property("color").value<QColor>(), QColor("#C01C28"));
    EXPECT_EQ(dots[0]->opacity(), 1);
    EXPECT_EQ(texts[1]->property("color").value<QColor>(), QColor("#161616"));
    EXPECT_EQ(dots[1]->property("color").value<QColor>(), QColor("#00521C"));
    EXPECT_DOUBLE_EQ(dots[1]->opacity(), 0.6);
    EXPECT_NEAR(m.textRatio("logMessage"), testing::caption, 0.01);
    EXPECT_DOUBLE_EQ(m.property("logMessage", "lineHeight").toDouble(), 1.1);
    EXPECT_NEAR(m.textRatio("logTime"), testing::caption2, 0.01);
    EXPECT_EQ(m.font("logTime").family(), QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
    EXPECT_EQ(m.colour("logTime"), QColor("#0B0B0B"));
    EXPECT_DOUBLE_EQ(m.opacity("logTime"), 0.6);
}

TEST_F(MeasureLogTest, ALongMessageWrapsAndPushesTheNextRowDown) {
    w.addProjects(1);
    w.choose();
    const double before = w.box("logRow").height();
    w.view->scanner->log(std::string(200, 'x') + " " + std::string(200, 'y'), false);
    w.settle();
    const auto rows = w.findAll("logRow");
    EXPECT_GT(SceneWindow::boxOf(rows[0]).height(), 5 * before);
    EXPECT_EQ(SceneWindow::boxOf(rows[1]).top() - SceneWindow::boxOf(rows[0]).bottom(), 2);
    EXPECT_FALSE(m.property("logMessage", "truncated").toBool());
    EXPECT_LE(m.property("logMessage", "contentWidth").toDouble(), w.box("logTexts").width() + 0.5);
}

} // namespace
} // namespace tarvolt
