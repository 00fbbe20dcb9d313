#include "tests/app/bridge/measures.h"

#include <QApplication>
#include <QPalette>

namespace tarvolt {
namespace {

using testing::expectColour;
using testing::Measures;
using testing::SceneWindow;

/// The platform turns dark while the window is open, as some desktops do in the evening.
class PaletteTest : public ::testing::Test {
protected:
    ~PaletteTest() override {
        QApplication::setPalette(usual);
        w.settle();
    }

    void darken() {
        QPalette palette;
        palette.setColor(QPalette::Window, QColor(0x24, 0x24, 0x24));
        palette.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
        palette.setColor(QPalette::WindowText, Qt::white);
        QApplication::setPalette(palette);
        w.settle();
    }

    const QPalette usual = QApplication::palette();
    SceneWindow w;
    Measures m{w};
};

TEST_F(PaletteTest, TheFolderPickerFollowsTheDesktop) {
    darken();
    expectColour(w.window->color(), "#242424");
    expectColour(m.colour("headerTitle"), "#F2F2F2");
    expectColour(m.colour("headerSymbol", "colour"), "#FF9F45");
    expectColour(m.colour("pickerSymbol", "colour"), "#FF9F45");
    expectColour(m.colour("pickerText"), "#B0B0B0");
    expectColour(m.colour("face"), "#F5903A");
    expectColour(m.colour("buttonText"), "#241202");
}

TEST_F(PaletteTest, TheEmptyStateFollowsTheDesktop) {
    w.choose();
    darken();
    expectColour(m.colour("emptySymbol", "colour"), "#B8B8B8");
    expectColour(m.colour("emptyTitle"), "#B0B0B0");
    expectColour(m.colour("emptyText"), "#B0B0B0");
}

TEST_F(PaletteTest, ListAndLogFollowTheDesktop) {
    w.addProjects(5);
    w.addProject("Sketch", false);
    w.choose();
    darken();
    expectColour(m.colour("headerPath"), "#B0B0B0");
    expectColour(m.colour("badgeFill"), "#FF9F45");
    expectColour(m.colour("headerLine"), "#FFFFFF", 0.13);
    expectColour(m.colour("searchFill"), "#FFFFFF", 0.14);
    expectColour(m.colour("listCard"), "#2E2E2E");
    expectColour(m.colour("rowName"), "#F2F2F2");
    expectColour(m.colour("rowSymbol", "colour"), "#FF9F45");
    expectColour(m.colour("detailText"), "#B0B0B0");
    expectColour(w.findAll("detailText")[2]->property("color").value<QColor>(), "#F3CB52");
    expectColour(w.part(w.find("rowButton"), "face")->property("color").value<QColor>(), "#3C3C3C");
    expectColour(m.colour("logFill"), "#FFFFFF", 0.14);
    expectColour(m.colour("logDot"), "#62D284");
    expectColour(m.colour("logTime"), "#E6E6E6");
    expectColour(m.colour("logMessage"), "#F2F2F2");
}

TEST_F(PaletteTest, SheetAndAlertFollowTheDesktop) {
    w.addProjects(1);
    w.choose();
    w.bridge->projects()->beginRename(0);
    w.bridge->sheet()->setNewName("New");
    darken();
    expectColour(m.colour("panelFace"), "#2D2D2D");
    expectColour(m.colour("scrim"), "#000000", 0.46);
    expectColour(m.colour("sheetTitle"), "#F2F2F2");
    expectColour(m.colour("newNameField"), "#F2F2F2");
    expectColour(m.colour("frame"), "#1E1E1E");
    expectColour(m.colour("previewOldName"), "#FF9A93");
    expectColour(m.colour("previewNewName"), "#62D284");
    w.view->showError.set(true);
    w.settle();
    expectColour(m.colour("alertMessage"), "#F2F2F2");
    expectColour(w.findAll("panelFace").back()->property("color").value<QColor>(), "#2D2D2D");
}

} // namespace
} // namespace tarvolt
