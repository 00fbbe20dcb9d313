#include "tests/app/bridge/measures.h"

namespace tarvolt {
namespace {

using testing::expectColour;
using testing::Measures;
using testing::SceneWindow;

class MeasureSearchTest : public ::testing::Test {
protected:
    SceneWindow w;
    Measures m{w};
};

TEST_F(MeasureSearchTest, TheSearchBarHasItsMarginsPaddingAndFill) {
    w.addProjects(6);
    w.choose();
    const QRectF pane = w.box("projectListView");
    const QRectF bar = w.box("searchBar");
    EXPECT_EQ(bar.left() - pane.left(), 12);
    EXPECT_EQ(pane.right() - bar.right(), 12);
    EXPECT_EQ(bar.top() - pane.top(), 12);
    EXPECT_EQ(w.box("listCard").top() - bar.bottom(), 4 + 8) << "the bar's own margin and the card's";
    EXPECT_EQ(w.box("searchSymbol").left() - bar.left(), 8);
    EXPECT_EQ(bar.right() - w.box("searchField").right(), 8);
    EXPECT_EQ(bar.height(), 16 + std::max(w.box("searchSymbol").height(), w.box("searchField").height()));
    EXPECT_EQ(m.across("searchSymbol", "searchField"), 8);
    EXPECT_EQ(m.property("searchFill", "radius").toDouble(), 8);
    EXPECT_DOUBLE_EQ(m.opacity("searchFill"), 0.5);
    expectColour(m.colour("searchFill"), "#000000", 0.11);
    EXPECT_EQ(m.property("searchSymbol", "symbol").toString(), "magnifyingglass");
    EXPECT_EQ(m.property("searchSymbol", "size").toInt(), 18);
    EXPECT_EQ(m.colour("searchSymbol", "colour"), QColor("#606060"));
    EXPECT_NEAR(m.centre("searchSymbol"), m.centre("searchField"), 0.5);
    EXPECT_NEAR(m.textRatio("searchField"), testing::body, 0.01);
    EXPECT_FALSE(m.isMonospaced("searchField"));
    expectColour(m.colour("searchField"), "#161616");
    expectColour(m.colour("placeholder"), "#606060");
    EXPECT_EQ(m.text("placeholder"), "Search projects...");
    EXPECT_EQ(m.font("placeholder"), m.font("searchField"));
    w.find("searchField")->forceActiveFocus();
    EXPECT_EQ(w.box("searchFocus"), bar);
    EXPECT_EQ(m.property("searchFocus", "borderWidth").toDouble(), 2);
    EXPECT_EQ(m.property("searchFocus", "radius").toDouble(), 8);
    expectColour(m.colour("searchFocus", "borderColor"), "#D75600");
}

TEST_F(MeasureSearchTest, TheSearchBarAppearsWithTheSixthProject) {
    w.addProjects(5);
    w.choose();
    EXPECT_TRUE(w.findAll("searchBar").empty());
    EXPECT_EQ(w.box("listCard").top() - w.box("projectListView").top(), 12);
    w.addProject("one more");
    w.bridge->rescan();
    w.settle();
    EXPECT_EQ(w.findAll("searchBar").size(), 1U);
    w.find("searchField")->forceActiveFocus();
    w.type("one");
    w.settle();
    EXPECT_EQ(w.findAll("projectRow").size(), 1U);
    EXPECT_EQ(m.text("badgeText"), "6 projects");
    w.scene.disk->lose("/p/one more.xpj");
    w.bridge->rescan();
    w.settle();
    EXPECT_TRUE(w.findAll("searchBar").empty());
    EXPECT_TRUE(w.findAll("projectRow").empty()) << "the hidden text goes on filtering";
    EXPECT_TRUE(w.findAll("listCard").empty());
}

TEST_F(MeasureSearchTest, TheScanIndicatorStandsAboveAnEmptyList) {
    w.addProjects(6);
    w.choose();
    w.bridge->rescan();
    QCoreApplication::processEvents();
    EXPECT_EQ(m.text("scanLabel"), "Scanning...");
    EXPECT_TRUE(w.findAll("searchBar").empty());
    EXPECT_TRUE(w.findAll("projectRow").empty());
    EXPECT_TRUE(w.findAll("emptyStateView").empty());
    EXPECT_FALSE(w.findAll("logView").empty());
    const QRectF pane = w.box("projectListView");
    EXPECT_EQ(w.box("scanIndicator").top(), pane.top());
    EXPECT_EQ(w.box("scanIndicator").width(), pane.width());
    EXPECT_EQ(w.box("spinner").size(), QSizeF(22, 22));
    EXPECT_EQ(w.box("spinner").top() - pane.top(), 16);
    EXPECT_EQ(m.down("spinner", "scanLabel"), 8);
    EXPECT_EQ(m.down("scanLabel", "scanIndicator") + w.box("scanIndicator").height(), 16);
    EXPECT_NEAR(m.middle("spinner"), pane.center().x(), 0.5);
    EXPECT_NEAR(m.middle("scanLabel"), pane.center().x(), 0.5);
    EXPECT_NEAR(m.textRatio("scanLabel"), testing::body, 0.01);
    expectColour(m.colour("scanLabel"), "#606060");
    expectColour(m.colour("spinner", "colour"), "#000000", 0.14);
    expectColour(m.colour("spinnerQuarter", "colour"), "#D75600");
    w.settle();
    EXPECT_TRUE(w.findAll("scanIndicator").empty());
    EXPECT_EQ(w.findAll("projectRow").size(), 6U);
}

TEST_F(MeasureSearchTest, FieldsStartAtTheLeftInEveryScript) {
    w.addProjects(6);
    w.choose();
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    w.bridge->projects()->setSearchText(QStringLiteral("\u0645\u0631\u062d\u0628\u0627"));
    w.settle();
    EXPECT_EQ(w.find("searchField")->property("effectiveHorizontalAlignment").toInt(), Qt::AlignLeft);
    w.bridge->projects()->setSearchText({});
    w.settle();
    w.bridge->projects()->beginRename(0);
    w.bridge->sheet()->setNewName(QStringLiteral("\u0645\u0631\u062d\u0628\u0627"));
    w.settle();
    EXPECT_EQ(w.find("newNameField")->property("effectiveHorizontalAlignment").toInt(), Qt::AlignLeft);
    QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
}

} // namespace
} // namespace tarvolt
