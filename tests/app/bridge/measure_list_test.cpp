#include "tests/app/bridge/measures.h"

#include <gmock/gmock.h>

namespace tarvolt {
namespace {

using ::testing::ElementsAre;
using testing::expectColour;
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

TEST_F(MeasureListTest, ARowHasItsPaddingSpacingsAndFrame) {
    w.addProject("Blue Hour");
    w.choose();
    const QRectF row = w.box("projectRow");
    EXPECT_THAT(m.padding("projectRow", "rowLayout"), ElementsAre(4, 6 + 4, 10, 6 + 4));
    EXPECT_EQ(w.box("rowSymbolFrame").width(), 28);
    EXPECT_EQ(m.middle("rowSymbol"), m.middle("rowSymbolFrame"));
    EXPECT_EQ(m.across("rowSymbolFrame", "rowTexts"), 12);
    EXPECT_EQ(m.across("rowTexts", "rowButton"), 12);
    EXPECT_EQ(m.down("rowName", "rowDetails"), 3);
    EXPECT_EQ(w.box("rowButton").right(), row.right() - 10);
    for (const char* item : {"rowSymbol", "rowTexts", "rowButton"}) {
        EXPECT_NEAR(m.centre(item), row.center().y(), 0.5) << item;
    }
    ASSERT_EQ(w.findAll("detailLabel").size(), 2U);
    EXPECT_EQ(SceneWindow::boxOf(w.findAll("detailSymbol")[1]).left() - w.box("detailText").right(), 12);
    EXPECT_TRUE(w.findAll("rowLine").empty()) << "no line after the last row";
}

TEST_F(MeasureListTest, ARowHasItsFontsColoursAndTexts) {
    w.addProject("Blue Hour");
    w.addProject("Sketch", false);
    w.choose();
    EXPECT_EQ(m.property("rowSymbol", "symbol").toString(), "music.note.list");
    EXPECT_EQ(inRow(1, "rowSymbol")->property("symbol").toString(), "music.note");
    EXPECT_EQ(m.colour("rowSymbol", "colour"), QColor("#D75600"));
    EXPECT_EQ(m.property("rowSymbol", "size").toInt(), testing::symbolSide(testing::title3));
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
    EXPECT_EQ(details[1]->property("text").toString(), "1 byte");
    EXPECT_EQ(details[1]->property("colour").value<QColor>(), QColor("#606060"));
    EXPECT_EQ(details[4]->property("symbol").toString(), "exclamationmark.triangle");
    EXPECT_EQ(details[4]->property("text").toString(), "No data folder");
    EXPECT_EQ(details[4]->property("colour").value<QColor>(), QColor("#875F00"));
    EXPECT_EQ(m.text("rowButton"), "Rename");
    EXPECT_TRUE(m.property("rowButton", "small").toBool());
    for (QQuickItem* detail : details) {
        QQuickItem* text = SceneWindow::part(detail, "detailText");
        QQuickItem* symbol = SceneWindow::part(detail, "detailSymbol");
        const char* colour = detail == details[4] ? "#875F00" : "#606060";
        EXPECT_NEAR(text->property("font").value<QFont>().pointSizeF(), 10 * testing::caption, 0.1);
        expectColour(text->property("color").value<QColor>(), colour);
        expectColour(symbol->property("colour").value<QColor>(), colour);
        EXPECT_EQ(symbol->width(), 14);
        EXPECT_EQ(text->x() - symbol->width(), 4);
        EXPECT_NEAR(SceneWindow::boxOf(text).center().y(), SceneWindow::boxOf(symbol).center().y(), 0.5);
    }
    const QRectF line = w.box("rowLine");
    EXPECT_EQ(w.findAll("rowLine").size(), 1U) << "between the two rows";
    EXPECT_EQ(line.left(), w.box("rowTexts").left());
    EXPECT_EQ(line.right(), w.box("rowButton").right());
    EXPECT_EQ(line.bottom(), w.box("projectRow").bottom());
    expectColour(m.colour("rowLine"), "#000000", 0.09);
    expectColour(m.colour("listCard"), "#FFFFFF");
    expectColour(m.colour("listCard", "borderColor"), "#000000", 0.1);
}

TEST_F(MeasureListTest, ALongNameIsCutAtItsEndAndTheButtonStays) {
    w.addProject("short");
    w.addProject(std::string(230, 'x'));
    w.choose();
    const QQuickItem* name = inRow(1, "rowName");
    EXPECT_EQ(name->property("elide").toInt(), Qt::ElideRight);
    EXPECT_TRUE(name->property("truncated").toBool());
    EXPECT_EQ(name->property("lineCount").toInt(), 1);
    EXPECT_EQ(SceneWindow::boxOf(inRow(0, "rowButton")).x(), SceneWindow::boxOf(inRow(1, "rowButton")).x());
}

TEST_F(MeasureListTest, NamesOfEveryScriptAreOnTheLeftAndNeverMarkup) {
    const std::string names[] = {"<b>bold</i> &amp;", "line\nbreak", "\u05E9\u05DC\u05D5\u05DD", "\u0645\u0634\u0631"};
    for (const std::string& name : names) {
        w.view->scanner->folderURL.set("/p");
        w.view->scanner->projects.set({MPCProject(name, "/p/x.xpj", std::nullopt, 0, 0)});
        w.settle();
        EXPECT_EQ(m.property("rowName", "effectiveHorizontalAlignment").toInt(), Qt::AlignLeft) << name;
        EXPECT_EQ(m.property("rowName", "textFormat").toInt(), Qt::PlainText) << name;
        EXPECT_EQ(m.lines("rowName"), 1) << name;
        QString shown = QString::fromStdString(name);
        EXPECT_EQ(m.text("rowName"), shown.replace('\n', ' ')) << name;
    }
}

TEST_F(MeasureListTest, AClickBesideTheButtonDoesNothing) {
    w.addProjects(2);
    w.choose();
    const QQuickItem* focus = w.window->activeFocusItem();
    for (const char* place : {"rowName", "rowSymbol", "rowDetails", "listCard"}) {
        w.click(place);
        w.settle();
        EXPECT_FALSE(w.bridge->sheet()->open()) << place;
        EXPECT_EQ(w.window->activeFocusItem(), focus) << place;
        EXPECT_EQ(m.property("projectList", "currentIndex").toInt(), -1) << place;
    }
}

TEST_F(MeasureListTest, TheRenamedRowTurnsGreenAndBack) {
    w.addProject("Blue Hour");
    w.addProject("Cold Storage");
    w.choose();
    w.view->successProject.set(w.view->scanner->projects.get()[1].id());
    w.settle();
    EXPECT_EQ(inRow(0, "rowSymbol")->property("colour").value<QColor>(), QColor("#D75600"));
    EXPECT_EQ(inRow(1, "rowSymbol")->property("colour").value<QColor>(), QColor("#1A7533"));
    w.view->successProject.set(std::nullopt);
    w.settle();
    EXPECT_EQ(inRow(1, "rowSymbol")->property("colour").value<QColor>(), QColor("#D75600"));
}

TEST_F(MeasureListTest, TheEdgeOfTheCardIsWholeWhereverTheListIsScrolled) {
    w.addProjects(40);
    w.choose();
    QQuickItem* const list = w.find("projectList");
    const double row = w.box("projectRow").height();
    const QRect card = w.box("listCard").toRect();
    // A row ends at the lower edge, which its line would thicken, and a button crosses the upper edge.
    for (const double place : {20 * row - list->height(), 20.5 * row}) {
        list->setProperty("contentY", place);
        const QImage picture = w.window->grabWindow();
        const bool rowEnds = place < 20 * row;
        for (const int y : {card.top(), card.bottom(), rowEnds ? card.bottom() - 1 : card.bottom()}) {
            for (int x = card.left() + 10; x < card.right() - 10; ++x) {
                ASSERT_EQ(picture.pixel(x, y), picture.pixel(card.left() + 10, y)) << place << ": " << x << ", " << y;
            }
        }
    }
}

TEST_F(MeasureListTest, TheCardFitsAShortListAndScrollsALongOne) {
    w.addProjects(3);
    w.choose();
    const double row = w.box("projectRow").height();
    EXPECT_EQ(w.box("listCard").height(), 3 * row + 2) << "the rows and the border";
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
