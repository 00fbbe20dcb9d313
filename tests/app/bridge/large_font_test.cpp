#include "tests/app/bridge/scene_window.h"

#include <QFont>
#include <QGuiApplication>

namespace tarvolt {
namespace {

using testing::SceneWindow;

/// All visible items with a text, in the topmost layer and those behind it.
void collectTexts(QQuickItem* item, std::vector<QQuickItem*>& texts) {
    if (!item->isVisible()) {
        return;
    }
    const bool shows = item->inherits("QQuickText") || item->inherits("QQuickTextInput");
    if (shows && !item->property("text").toString().isEmpty()) {
        texts.push_back(item);
    }
    for (QQuickItem* child : item->childItems()) {
        collectTexts(child, texts);
    }
}

/// Where a text is drawn in the scene.
QRectF drawnBox(QQuickItem* text) {
    const double width = std::min(text->property("contentWidth").toDouble(), text->width());
    const int alignment = text->property("effectiveHorizontalAlignment").toInt();
    const double left = alignment == Qt::AlignHCenter ? (text->width() - width) / 2 : 0;
    return text->mapRectToScene(QRectF(left, 0, width, text->height()));
}

/// The part of it that is not scrolled out of sight.
QRectF shownBox(QQuickItem* text) {
    QRectF box = drawnBox(text);
    for (QQuickItem* around = text->parentItem(); around != nullptr; around = around->parentItem()) {
        if (around->clip()) {
            box = box.intersected(SceneWindow::boxOf(around));
        }
    }
    return box;
}

bool isInside(QQuickItem* item, const QQuickItem* ancestor) {
    while (item != nullptr && item != ancestor) {
        item = item->parentItem();
    }
    return item != nullptr;
}

/// The layer of an item: the window's content or a panel's.
const QQuickItem* layerOf(const QQuickItem* item, const QQuickItem* root) {
    const QQuickItem* layer = item;
    while (layer->parentItem() != nullptr && layer->parentItem() != root) {
        layer = layer->parentItem();
    }
    if (layer->inherits("QQuickOverlay")) {
        for (layer = item; !layer->parentItem()->inherits("QQuickOverlay");) {
            layer = layer->parentItem();
        }
    }
    return layer;
}

struct Look {
    int points;
    QSize window;
};

std::ostream& operator<<(std::ostream& out, const Look& look) {
    return out << look.points << " points in " << look.window.width() << " x " << look.window.height();
}

class LargeFontTest : public ::testing::TestWithParam<Look> {
protected:
    LargeFontTest() {
        QFont font = QGuiApplication::font();
        font.setPointSizeF(GetParam().points);
        QGuiApplication::setFont(font);
        w = std::make_unique<SceneWindow>();
        w->window->resize(GetParam().window);
        w->settle();
    }

    ~LargeFontTest() override {
        w.reset();
        QGuiApplication::setFont(usual);
    }

    /// Fails if a text is cut, extends beyond its container, or runs into another text or a button.
    void expectWhole(const char* state) const {
        std::vector<QQuickItem*> texts;
        collectTexts(w->window->contentItem(), texts);
        EXPECT_FALSE(texts.empty()) << state;
        for (QQuickItem* text : texts) {
            const std::string shown =
                std::string(state) + ": \"" + text->property("text").toString().toStdString() + '"';
            expectUncut(text, shown);
            expectContained(text, shown);
            expectAlone(text, texts, shown);
        }
    }

    void expectUncut(QQuickItem* text, const std::string& shown) const {
        if (text->inherits("QQuickTextInput")) {
            EXPECT_LE(text->property("contentHeight").toDouble(), text->height() + 0.5) << shown;
            return;
        }
        const QString name = text->objectName();
        const bool mayBeElided = name == "headerPath" || name == "rowName" || name == "sheetCurrentName";
        EXPECT_TRUE(mayBeElided || !text->property("truncated").toBool()) << shown << " is cut";
        EXPECT_LE(text->property("contentHeight").toDouble(), text->height() + 0.5) << shown << " is too high";
        EXPECT_LE(text->property("contentWidth").toDouble(), text->width() + 0.5) << shown << " is too wide";
    }

    void expectContained(QQuickItem* text, const std::string& shown) const {
        const QRectF box = drawnBox(text);
        for (QQuickItem* around = text->parentItem(); around != nullptr; around = around->parentItem()) {
            const QRectF outer = SceneWindow::boxOf(around);
            if (around->parentItem() != nullptr && around->parentItem()->inherits("QQuickFlickable")) {
                EXPECT_LE(box.right(), SceneWindow::boxOf(around->parentItem()).right() + 0.5) << shown;
                return; // One can scroll to what is further down.
            }
            if (outer.isEmpty()) {
                continue;
            }
            EXPECT_TRUE(outer.adjusted(-0.5, -0.5, 0.5, 0.5).contains(box))
                << shown << " leaves " << around->metaObject()->className() << ' ' << around->objectName().toStdString()
                << " by " << box.right() - outer.right() << ", " << box.bottom() - outer.bottom();
        }
    }

    void expectAlone(QQuickItem* text, const std::vector<QQuickItem*>& texts, const std::string& shown) const {
        const QQuickItem* root = w->window->contentItem();
        const QRectF box = shownBox(text).adjusted(0.5, 0.5, -0.5, -0.5);
        for (QQuickItem* other : texts) {
            const bool apart = other == text || layerOf(other, root) != layerOf(text, root);
            EXPECT_TRUE(apart || !box.intersects(shownBox(other)))
                << shown << " runs into \"" << other->property("text").toString().toStdString() << '"';
        }
        for (const char* name : {"rescanButton", "changeFolderButton", "rowButton", "cancelButton", "renameButton"}) {
            for (QQuickItem* button : w->findAll(name)) {
                const bool apart = isInside(text, button) || layerOf(button, root) != layerOf(text, root);
                EXPECT_TRUE(apart || !box.intersects(SceneWindow::boxOf(button))) << shown << " runs into " << name;
            }
        }
    }

    void showProjects() {
        w->addProjects(1);
        w->choose();
        w->view->scanner->folderURL.set("/home/mara/Music/MPC Projects/" + std::string(120, 'x'));
        std::vector<MPCProject> projects;
        for (const char* name :
             {"Basement Loops Vol. 2", "Blue Hour", "The Long Way Home From The Late Show (take 3)"}) {
            projects.emplace_back(name, "/p/x.xpj", "/p/x", 212'345, 999'990'000'000);
        }
        for (int i = 0; i < 5; ++i) {
            projects.emplace_back("Sketch", "/p/x.xpj", std::nullopt, 0, 888'800'000);
        }
        w->view->scanner->projects.set(std::move(projects));
        w->view->scanner->log("Scan error: /home/mara/Music/MPC Projects: No such file or directory", true);
        w->settle();
    }

    const QFont usual = QGuiApplication::font();
    std::unique_ptr<SceneWindow> w;
};

TEST_P(LargeFontTest, NoTextIsCutBeforeAFolderIsChosen) {
    expectWhole("folder picker");
}

TEST_P(LargeFontTest, NoTextIsCutInTheEmptyState) {
    w->choose();
    expectWhole("empty state");
}

TEST_P(LargeFontTest, NoTextIsCutInTheListAndTheLog) {
    showProjects();
    for (const double log : {220, 240, 280}) {
        w->find("splitArea")->setProperty("wantedLogWidth", log);
        w->settle();
        expectWhole("list");
    }
    w->view->successProject.set(w->view->scanner->projects.get()[0].id());
    w->settle();
    expectWhole("renamed");
}

TEST_P(LargeFontTest, TheSymbolOfARowStaysInItsFrame) {
    showProjects();
    EXPECT_LE(w->find("rowSymbol")->width(), w->find("rowSymbolFrame")->width());
}

TEST_P(LargeFontTest, NoTextIsCutDuringAScan) {
    w->view->scanner->folderURL.set("/p");
    w->view->scanner->isScanning.set(true);
    w->settle();
    expectWhole("scan");
}

TEST_P(LargeFontTest, NoTextIsCutInTheSheet) {
    showProjects();
    w->bridge->projects()->beginRename(0);
    w->settle();
    expectWhole("sheet");
    for (const QString& name : {QString(), QStringLiteral("Attic Loops"), QString(200, u'x')}) {
        w->bridge->sheet()->setNewName(name);
        w->settle();
        expectWhole("sheet with a name");
    }
}

TEST_P(LargeFontTest, NoTextIsCutInTheAlert) {
    showProjects();
    w->view->errorMessage.set("Failed to write file: " + std::string(240, 'x') + ": No space left on device");
    w->view->showError.set(true);
    w->settle();
    expectWhole("alert");
}

INSTANTIATE_TEST_SUITE_P(Of, LargeFontTest,
                         ::testing::Values(Look{10, {700, 500}}, Look{10, {800, 600}}, Look{15, {700, 500}},
                                           Look{15, {800, 600}}));

} // namespace
} // namespace tarvolt
