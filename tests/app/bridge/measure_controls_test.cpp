#include "tests/app/bridge/measures.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tarvolt {
namespace {

using testing::expectColour;
using testing::Measures;
using testing::SceneWindow;

class MeasureControlsTest : public ::testing::Test {
protected:
    MeasureControlsTest() {
        w.addProject("Blue Hour");
        w.addProject("Sketch");
    }

    void openSheet() {
        w.choose();
        w.bridge->projects()->beginRename(0);
        w.settle();
    }

    QQuickItem* part(const QString& control, const QString& name) const { return w.part(w.find(control), name); }

    QColor face(const QString& button) const { return part(button, "face")->property("color").value<QColor>(); }
    QColor ink(const QString& button) const { return part(button, "buttonText")->property("color").value<QColor>(); }

    void expectLabel(const QString& button, double ratio, QFont::Weight weight) const {
        const auto font = part(button, "buttonText")->property("font").value<QFont>();
        EXPECT_NEAR(font.pointSizeF() / QGuiApplication::font().pointSizeF(), ratio, 0.01) << button.toStdString();
        EXPECT_EQ(font.weight(), weight) << button.toStdString();
    }

    void expectBox(const QString& button, double height, double padding, double radius) const {
        EXPECT_EQ(w.box(button).height(), height) << button.toStdString();
        EXPECT_EQ(m.property(button, "leftPadding").toDouble(), padding) << button.toStdString();
        EXPECT_EQ(m.property(button, "rightPadding").toDouble(), padding) << button.toStdString();
        EXPECT_EQ(part(button, "face")->property("radius").toDouble(), radius) << button.toStdString();
        EXPECT_EQ(SceneWindow::boxOf(part(button, "face")), w.box(button)) << button.toStdString();
    }

    /// The face's colours as the mouse enters, presses and leaves.
    void expectFaces(const QString& button, const char* usual, const char* hovered, const char* pressed) const {
        const QPoint inside = w.box(button).center().toPoint();
        expectColour(face(button), usual);
        QTest::mouseMove(w.window, inside);
        w.rest();
        expectColour(face(button), hovered);
        QTest::mousePress(w.window, Qt::LeftButton, {}, inside);
        expectColour(face(button), pressed);
        QTest::mouseMove(w.window, QPoint(2, 2));
        QTest::mouseRelease(w.window, Qt::LeftButton, {}, QPoint(2, 2));
        w.rest();
        expectColour(face(button), usual);
    }

    SceneWindow w;
    Measures m{w};
};

TEST_F(MeasureControlsTest, TheShadeOfABorderedButtonIsWholePixelsLower) {
    w.choose();
    const double lower = part("rowButton", "shade")->y() * w.window->effectiveDevicePixelRatio();
    EXPECT_GE(lower, 1);
    EXPECT_DOUBLE_EQ(lower, std::round(lower));
}

TEST_F(MeasureControlsTest, TheCornersOfTheCardLieOnWholePixels) {
    w.choose();
    const double ratio = w.window->effectiveDevicePixelRatio();
    const QPoint corner = (w.box("listCard").topLeft() * ratio).toPoint();
    const QImage picture = w.window->grabWindow();
    const int side = qRound(10 * ratio);
    for (int x = 0; x < side; ++x) {
        for (int y = 0; y < x; ++y) {
            ASSERT_EQ(picture.pixel(corner + QPoint(x, y)), picture.pixel(corner + QPoint(y, x))) << x << ", " << y;
        }
    }
    EXPECT_NE(picture.pixel(corner), picture.pixel(corner + QPoint(side, side)));
}

TEST_F(MeasureControlsTest, EveryEdgeIsDrawnOnWholePixels) {
    openSheet();
    w.press(Qt::Key_End);
    for (const char* name : {"listCard", "logFill", "panelFace", "caret"}) {
        EXPECT_TRUE(w.find(name)->inherits("tarvolt::SnappedItem")) << name;
    }
}

TEST_F(MeasureControlsTest, BorderedButtonsHaveTheirSizesAndColours) {
    w.choose();
    expectBox("changeFolderButton", 28, 12, 7);
    expectBox("rescanButton", 28, 0, 7);
    EXPECT_EQ(w.box("rescanButton").width(), 32);
    EXPECT_EQ(part("rescanButton", "buttonSymbol")->width(), 18);
    expectBox("rowButton", 24, 10, 6);
    expectLabel("changeFolderButton", testing::body, QFont::Normal);
    expectLabel("rowButton", testing::caption, QFont::Normal);
    for (const char* button : {"changeFolderButton", "rescanButton", "rowButton"}) {
        EXPECT_EQ(part(button, "face")->property("borderWidth").toDouble(), 1) << button;
        expectColour(part(button, "face")->property("borderColor").value<QColor>(), "#000000", 0.15);
        expectColour(part(button, "shade")->property("borderColor").value<QColor>(), "#000000", 0.1);
        EXPECT_EQ(part(button, "shade")->y(), 1) << button;
        expectColour(ink(button), "#161616");
        expectFaces(button, "#FFFFFF", "#DCDCDC", "#CBCBCB");
    }
}

TEST_F(MeasureControlsTest, ADisabledBorderedButtonIsPale) {
    w.choose();
    w.bridge->rescan();
    w.rest();
    expectColour(face("rescanButton"), "#FFFFFF", 0.45);
    expectColour(part("rescanButton", "face")->property("borderColor").value<QColor>(), "#000000", 0.08);
    EXPECT_NEAR(part("rescanButton", "buttonSymbol")->opacity(), 0.36, 0.01);
    EXPECT_FALSE(part("rescanButton", "shade")->isVisible());
    w.settle();
    EXPECT_EQ(part("rescanButton", "buttonSymbol")->opacity(), 1);
    EXPECT_TRUE(part("rescanButton", "shade")->isVisible());
}

TEST_F(MeasureControlsTest, ProminentButtonsHaveTheirSizesAndColours) {
    expectLabel("selectFolderButton", testing::body, QFont::DemiBold);
    EXPECT_EQ(part("selectFolderButton", "face")->property("radius").toDouble(), 9);
    expectColour(ink("selectFolderButton"), "#FFFFFF");
    expectFaces("selectFolderButton", "#C94E00", "#B94800", "#A54000");
    const QQuickItem* symbol = part("selectFolderButton", "buttonSymbol");
    EXPECT_EQ(symbol->width(), 18);
    expectColour(symbol->property("colour").value<QColor>(), "#FFFFFF");
    EXPECT_EQ(part("selectFolderButton", "buttonText")->x() - symbol->x() - symbol->width(), 7);
    openSheet();
    expectBox("renameButton", 28, 12, 7);
    expectLabel("renameButton", testing::body, QFont::DemiBold);
    expectColour(face("renameButton"), "#000000", 0.08);
    expectColour(ink("renameButton"), "#000000", 0.36);
    w.bridge->sheet()->setNewName("Red Hour");
    w.settle();
    expectColour(ink("renameButton"), "#FFFFFF");
    expectFaces("renameButton", "#C94E00", "#B94800", "#A54000");
    expectBox("cancelButton", 28, 12, 7);
}

TEST_F(MeasureControlsTest, TheFieldHasItsSizesAndColours) {
    openSheet();
    QQuickItem* frame = part("newNameField", "frame");
    EXPECT_EQ(w.box("newNameField").height(), 30);
    EXPECT_EQ(m.property("newNameField", "leftPadding").toDouble(), 9);
    EXPECT_EQ(m.property("newNameField", "rightPadding").toDouble(), 9);
    EXPECT_EQ(frame->property("radius").toDouble(), 7);
    expectColour(frame->property("color").value<QColor>(), "#FFFFFF");
    expectColour(m.colour("newNameField"), "#161616");
    expectColour(m.colour("newNameField", "selectedTextColor"), "#161616");
    expectColour(m.colour("newNameField", "selectionColor"), "#D75600", 0.26);
    EXPECT_EQ(frame->property("borderWidth").toDouble(), 2);
    expectColour(frame->property("borderColor").value<QColor>(), "#D75600");
    w.press(Qt::Key_Tab);
    EXPECT_EQ(frame->property("borderWidth").toDouble(), 1);
    expectColour(frame->property("borderColor").value<QColor>(), "#939393");
    QTest::mouseMove(w.window, w.box("newNameField").center().toPoint());
    expectColour(frame->property("borderColor").value<QColor>(), "#000000", 0.62);
    w.bridge->sheet()->setNewName({});
    w.settle();
    const QQuickItem* placeholder = part("newNameField", "placeholder");
    EXPECT_TRUE(placeholder->isVisible());
    EXPECT_EQ(placeholder->property("text").toString(), "Enter new project name");
    EXPECT_EQ(placeholder->property("font").value<QFont>(), m.font("newNameField"));
    expectColour(placeholder->property("color").value<QColor>(), "#606060");
}

TEST_F(MeasureControlsTest, TheFocusRingIsOrange) {
    w.choose();
    w.press(Qt::Key_Tab);
    const QQuickItem* ring = part("rescanButton", "focusRing");
    EXPECT_TRUE(ring->isVisible());
    EXPECT_EQ(ring->property("borderWidth").toDouble(), 2);
    EXPECT_EQ(ring->property("radius").toDouble(), 7 + 4);
    expectColour(ring->property("borderColor").value<QColor>(), "#D75600");
    EXPECT_EQ(SceneWindow::boxOf(part("rescanButton", "focusRing")), w.box("rescanButton").adjusted(-4, -4, 4, 4));
    w.press(Qt::Key_Tab);
    EXPECT_FALSE(ring->isVisible());
}

TEST_F(MeasureControlsTest, TheRingOfAListIsThinRoundedAndInside) {
    w.choose();
    for (int i = 0; i < 60; ++i) {
        w.view->scanner->log("line", false);
    }
    w.settle();
    w.find("logList")->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_TRUE(w.box("logList").contains(w.box("logFocus")));
    EXPECT_LT(w.box("logFocus").right(), w.box("scrollThumb").left()) << "runs over its thumb";
    EXPECT_GE(w.box("logFocus").right(), w.box("logMessage").right()) << "runs over its text";
    QQuickItem* const card = part("projectListView", "listFocus");
    EXPECT_EQ(SceneWindow::boxOf(card), SceneWindow::boxOf(card->parentItem()));
    EXPECT_EQ(card->property("radius").toDouble(), 10);
    EXPECT_EQ(m.property("logFocus", "radius").toDouble(), 6);
    for (const QQuickItem* ring : {w.find("logFocus"), card}) {
        EXPECT_EQ(ring->property("borderWidth").toDouble(), 1);
    }
}

TEST_F(MeasureControlsTest, TheRingOfALineIsWholeWhereverTheListStands) {
    w.choose();
    w.find("logList")->forceActiveFocus(Qt::TabFocusReason);
    const auto orange = w.find("logFocus")->property("borderColor").value<QColor>();
    const double ratio = w.window->effectiveDevicePixelRatio();
    for (int tenths = 0; tenths < 10; ++tenths) {
        w.find("logView")->setY(tenths / 10.0);
        const QRectF box = w.box("logFocus");
        const QRect ring = QRectF(box.topLeft() * ratio, box.size() * ratio).toAlignedRect();
        const QImage picture = w.window->grabWindow();
        int edges = 0;
        for (int row = ring.top() - 2; row <= ring.bottom() + 2; ++row) {
            edges += picture.pixelColor(ring.center().x(), row) == orange ? 1 : 0;
        }
        EXPECT_EQ(edges, 2) << tenths;
    }
}

TEST_F(MeasureControlsTest, AScrollThumbShowsOnlyIfThereIsSomethingToScroll) {
    w.choose();
    EXPECT_TRUE(w.findAll("scrollThumb").empty());
    w.addProjects(60);
    w.bridge->rescan();
    w.settle();
    ASSERT_EQ(w.findAll("scrollThumb").size(), 1U);
    const QRectF card = w.box("listCard");
    EXPECT_EQ(w.box("scrollThumb"), QRectF(card.right() + 3, card.top() + 1, 6, card.height() - 2)) << "in the gutter";
    for (int i = 0; i < 60; ++i) {
        w.view->scanner->log("line", false);
    }
    w.settle();
    const auto thumbs = w.findAll("scrollThumb");
    ASSERT_EQ(thumbs.size(), 2U);
    const QRectF log = w.box("logList");
    EXPECT_EQ(SceneWindow::boxOf(thumbs[0]), QRectF(log.right() - 8, log.top() + 4, 6, log.height() - 8));
    for (const QQuickItem* thumb : thumbs) {
        const auto* drawn = thumb->property("contentItem").value<QQuickItem*>();
        EXPECT_EQ(drawn->property("radius").toDouble(), 3);
        EXPECT_LT(drawn->height(), thumb->height());
        expectColour(drawn->property("color").value<QColor>(), "#000000", 0.26);
    }
}

TEST_F(MeasureControlsTest, TheDividerIsHighlightedWhileHoveredOrFocused) {
    w.choose();
    expectColour(m.colour("splitLine"), "#000000", 0.13);
    EXPECT_EQ(w.box("splitLine").width(), 1);
    QTest::mouseMove(w.window, w.box("splitHitArea").center().toPoint() + QPoint(3, 0));
    w.settle();
    expectColour(m.colour("splitLine"), "#000000", 0.35);
    EXPECT_EQ(w.box("splitLine").width(), 3);
    w.find("splitHandle")->forceActiveFocus(Qt::TabFocusReason);
    expectColour(m.colour("splitLine"), "#D75600");
    EXPECT_EQ(w.box("splitLine").width(), 3);
}

TEST_F(MeasureControlsTest, TheCaretIsOrangeAndHiddenByASelection) {
    openSheet();
    EXPECT_TRUE(w.findAll("caret").empty()) << "the name is selected";
    w.press(Qt::Key_End);
    ASSERT_EQ(w.findAll("caret").size(), 1U);
    EXPECT_EQ(w.box("caret").width(), 2);
    const QRectF place = w.find("newNameField")->property("cursorRectangle").toRectF();
    EXPECT_EQ(m.middle("caret"), w.find("newNameField")->mapToScene(place.topLeft()).x());
    expectColour(m.colour("caret"), "#D75600");
}

TEST_F(MeasureControlsTest, TheCaretStandsBesideThePlaceholder) {
    for (int i = 0; i < 4; ++i) {
        w.addProject("Song " + std::to_string(i));
    }
    openSheet();
    w.bridge->sheet()->setNewName({});
    w.settle();
    const auto placeholder = [this](const QString& field) { return SceneWindow::boxOf(part(field, "placeholder")); };
    EXPECT_LE(w.box("caret").right() + 1, placeholder("newNameField").left());
    w.press(Qt::Key_Escape);
    w.settle();
    w.find("searchField")->forceActiveFocus();
    EXPECT_LE(w.box("caret").right() + 1, placeholder("searchField").left());
}

TEST_F(MeasureControlsTest, SheetAndAlertStandOverTheWindow) {
    openSheet();
    w.bridge->sheet()->submitNewName();
    w.settle();
    const auto faces = w.findAll("panelFace");
    ASSERT_EQ(faces.size(), 2U);
    for (QQuickItem* panel : faces) {
        EXPECT_EQ(panel->property("radius").toDouble(), 14);
        expectColour(panel->property("color").value<QColor>(), "#F8F8F8");
        EXPECT_EQ(panel->property("borderWidth").toDouble(), 1);
        expectColour(panel->property("borderColor").value<QColor>(), "#000000", 0.1);
    }
    const auto scrims = w.findAll("scrim");
    ASSERT_EQ(scrims.size(), 2U);
    for (QQuickItem* scrim : scrims) {
        EXPECT_EQ(SceneWindow::boxOf(scrim), QRectF(0, 0, 800, 600));
        EXPECT_EQ(scrim->opacity(), 1);
    }
    expectColour(scrims[0]->property("color").value<QColor>(), "#000000", 0.26);
    expectColour(scrims[1]->property("color").value<QColor>(), "#000000", 0.2);
    const auto shadows = w.findAll("panelShadow");
    ASSERT_EQ(shadows.size(), 4U);
    // Twice two sigmas around the panel, moved down by the drop.
    EXPECT_EQ(SceneWindow::boxOf(shadows[0]), SceneWindow::boxOf(faces[0]).adjusted(-44, 16 - 44, 44, 16 + 44));
    EXPECT_NEAR(shadows[0]->opacity(), 0.34, 0.005);
}

} // namespace
} // namespace tarvolt
