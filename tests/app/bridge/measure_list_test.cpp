#include "tests/app/bridge/measures.h"

#include <gmock/gmock.h>

namespace tarvolt {
namespace {

using ::testing::ElementsAre;
using testing::Measures;
using testing::SceneWindow;

class MeasureListTest : public ::testing::Test {
protected:
    /// The nth visible row's item of this name.
    QQuickItem* inRow(std::size_t row, const QString& name) const {
        const auto items = w.findAll(name);
        return row < items.size() ? items[row] : nullptr;
    }

    SceneWindow w;
    Measures m{w};
};

TEST_F(MeasureListTest, ThePanesKeepTheirWidthsHoweverWindowAndDividerAreMoved) {
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

TEST_F(MeasureListTest, TheDividerIsDraggedWithinItsLimits) {
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
    drag(500);
    EXPECT_EQ(w.box("logView").width(), 220);
    EXPECT_NE(w.box("splitHandle").center().toPoint(), from);
}

TEST_F(MeasureListTest, TheSearchBarHasItsMarginsPaddingAndFill) {
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
    EXPECT_EQ(m.property("searchSymbol", "symbol").toString(), "magnifyingglass");
    EXPECT_EQ(m.colour("searchSymbol", "colour"), QColor("#606060"));
    EXPECT_EQ(m.property("searchField", "placeholderText").toString(), "Search projects...");
}

TEST_F(MeasureListTest, TheSearchBarComesWithTheSixthProject) {
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
    w.scene.disk->removeItem("/p/one more.xpj", std::nullopt);
    w.bridge->rescan();
    w.settle();
    EXPECT_TRUE(w.findAll("searchBar").empty());
    EXPECT_TRUE(w.findAll("projectRow").empty()) << "the hidden text goes on filtering";
    EXPECT_TRUE(w.findAll("listCard").empty());
}

TEST_F(MeasureListTest, TheScanIndicatorStandsAboveAnEmptyList) {
    w.addProjects(6);
    w.choose();
    w.bridge->rescan();
    QCoreApplication::processEvents();
    EXPECT_EQ(m.text("scanLabel"), "Scanning...");
    EXPECT_TRUE(w.findAll("searchBar").empty());
    EXPECT_TRUE(w.findAll("projectRow").empty());
    EXPECT_TRUE(w.findAll("emptyStateView").empty());
    EXPECT_FALSE(w.findAll("logView").empty());
    EXPECT_NEAR(m.middle("scanLabel"), m.middle("projectListView"), 0.5);
    w.settle();
    EXPECT_TRUE(w.findAll("scanIndicator").empty());
    EXPECT_EQ(w.findAll("projectRow").size(), 6U);
}

TEST_F(MeasureListTest, ARowHasItsPaddingSpacingsAndFrame) {
    w.addProject("Blue Hour");
    w.choose();
    const QRectF row = w.box("projectRow");
    EXPECT_THAT(m.padding("projectRow", "rowLayout"), ElementsAre(4, 6 + 4, 10, 6 + 4));
    EXPECT_EQ(w.box("rowSymbolFrame").width(), 28);
    EXPECT_EQ(m.middle("rowSymbol"), m.middle("rowSymbolFrame"));
    EXPECT_EQ(m.across("rowSymbolFrame", "rowTexts"), 12);
    EXPECT_EQ(m.across("rowTexts", "rowGap"), 12);
    EXPECT_EQ(m.across("rowGap", "rowButton"), 12);
    EXPECT_EQ(m.down("rowName", "rowDetails"), 3);
    EXPECT_EQ(w.box("rowButton").right(), row.right() - 10);
    for (const char* item : {"rowSymbol", "rowTexts", "rowButton"}) {
        EXPECT_NEAR(m.centre(item), row.center().y(), 0.5) << item;
    }
    const auto details = w.findAll("detailLabel");
    ASSERT_EQ(details.size(), 2U);
    EXPECT_EQ(SceneWindow::boxOf(details[1]).left() - SceneWindow::boxOf(details[0]).right(), 12);
    EXPECT_TRUE(w.findAll("rowLine").empty()) << "no line after the last row";
}

TEST_F(MeasureListTest, ARowHasItsFontsColoursAndTexts) {
    w.addProject("Blue Hour");
    w.addProject("Sketch", false);
    w.choose();
    EXPECT_EQ(m.property("rowSymbol", "symbol").toString(), "music.note.list");
    EXPECT_EQ(inRow(1, "rowSymbol")->property("symbol").toString(), "music.note");
    EXPECT_EQ(m.colour("rowSymbol", "colour"), QColor("#D75600"));
    EXPECT_EQ(m.property("rowSymbol", "size").toInt(), 2 * qRound(testing::title3 * 13.3333 * 1.3 / 2));
    EXPECT_EQ(m.text("rowName"), "Blue Hour");
    EXPECT_NEAR(m.textRatio("rowName"), testing::body, 0.01);
    EXPECT_EQ(m.font("rowName").weight(), QFont::Medium);
    EXPECT_EQ(m.font("rowName").family(), QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
    EXPECT_EQ(m.colour("rowName"), QColor("#161616"));
    const auto details = w.findAll("detailLabel");
    ASSERT_EQ(details.size(), 5U) << "two for the first row, three for the one without a data folder";
    EXPECT_EQ(details[0]->property("symbol").toString(), "doc");
    EXPECT_EQ(details[0]->property("text").toString(), "0 files");
    EXPECT_EQ(details[1]->property("symbol").toString(), "internaldrive");
    EXPECT_EQ(details[1]->property("colour").value<QColor>(), QColor("#606060"));
    EXPECT_EQ(details[4]->property("symbol").toString(), "exclamationmark.triangle");
    EXPECT_EQ(details[4]->property("text").toString(), "No data folder");
    EXPECT_EQ(details[4]->property("colour").value<QColor>(), QColor("#875F00"));
    EXPECT_EQ(m.text("rowButton"), "Rename");
    EXPECT_TRUE(m.property("rowButton", "small").toBool());
}

TEST_F(MeasureListTest, ALongNameIsCutAtItsEndAndTheButtonStays) {
    w.addProject("short");
    w.addProject(std::string(230, 'x'));
    w.choose();
    const QQuickItem* name = inRow(1, "rowName");
    EXPECT_EQ(name->property("elide").toInt(), Qt::ElideRight);
    EXPECT_TRUE(name->property("truncated").toBool());
    EXPECT_EQ(SceneWindow::boxOf(inRow(0, "rowButton")).x(), SceneWindow::boxOf(inRow(1, "rowButton")).x());
}

TEST_F(MeasureListTest, TheRenamedRowTurnsGreenAndBack) {
    w.addProject("Blue Hour");
    w.addProject("Cold Storage");
    w.choose();
    w.view->successProject.set(w.view->scanner->projects.get()[1].id);
    w.settle();
    EXPECT_EQ(inRow(0, "rowSymbol")->property("colour").value<QColor>(), QColor("#D75600"));
    EXPECT_EQ(inRow(1, "rowSymbol")->property("colour").value<QColor>(), QColor("#1A7533"));
    w.view->successProject.set(std::nullopt);
    w.settle();
    QTest::qWait(400);
    EXPECT_EQ(inRow(1, "rowSymbol")->property("colour").value<QColor>(), QColor("#D75600"));
}

TEST_F(MeasureListTest, ALongListScrollsInItsCardAndAShortOneIsHugged) {
    w.addProjects(3);
    w.choose();
    const double row = w.box("projectRow").height();
    EXPECT_EQ(w.box("listCard").height(), 3 * row);
    EXPECT_EQ(w.box("listCard").left(), 12);
    EXPECT_EQ(w.box("listCard").right(), w.box("projectListView").right() - 12);
    w.addProjects(40);
    w.bridge->rescan();
    w.settle();
    EXPECT_EQ(w.box("listCard").bottom(), 600 - 12);
    EXPECT_EQ(m.property("listCard", "radius").toDouble(), 10);
}

} // namespace
} // namespace tarvolt
