#include "app/bridge/toolkit_panel.h"

#include "app/drawing/ink.h"
#include "app/drawing/platform_style.h"
#include "tests/app/bridge/scene_window.h"

#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarvolt {
namespace {

QElapsedTimer started() {
    QElapsedTimer timer;
    timer.start();
    return timer;
}

class ToolkitPanelTest : public ::testing::Test {
protected:
    ToolkitPanelTest() {
        panel.setDirectory(folder.path());
        panel.show();
        panel.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&panel));
        field = panel.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    }

    QString makeFolder(const QString& name) {
        QDir(folder.path()).mkdir(name);
        return folder.filePath(name);
    }

    /// What the panel says about the typed folder; empty if it says nothing.
    QString refusal() const {
        const auto* label = panel.findChild<QLabel*>(QStringLiteral("refusal"));
        return label == nullptr ? QStringLiteral("no label") : label->text();
    }

    const QTemporaryDir folder;
    const QElapsedTimer sinceBefore = started(); ///< runs from before the panel is made
    ToolkitPanel panel{{.message = {}, .prompt = "Select Folder"}, nullptr, &PlatformStyle::verbatim};
    QLineEdit* field = nullptr;
};

TEST_F(ToolkitPanelTest, IgnoresImpatientPressesOfTheKeyThatOpenedIt) {
    QElapsedTimer sincePress = sinceBefore;
    for (int press = 0; press < 4; ++press) {
        QTest::qWait(200);
        const QElapsedTimer sinceLast = std::exchange(sincePress, started());
        panel.accept();
        ASSERT_TRUE(panel.isVisible() || sinceLast.elapsed() >= 600) << "press " << press;
    }
    QTest::qWait(700);
    panel.accept();
    EXPECT_FALSE(panel.isVisible());
}

TEST_F(ToolkitPanelTest, AcceptsATypedFolderAtOnce) {
    const QString typed = makeFolder("Projects");
    field->setText(typed + "//");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_FALSE(panel.isVisible());
    EXPECT_EQ(panel.folder(), std::filesystem::path(typed.toStdString()));
}

TEST_F(ToolkitPanelTest, ResolvesARelativePathAgainstTheListedFolder) {
    makeFolder("Projects");
    field->setText("Projects/..//Projects");
    panel.accept();
    EXPECT_EQ(panel.folder(), std::filesystem::path(folder.filePath("Projects").toStdString()));
}

TEST_F(ToolkitPanelTest, ExpandsATildeToHome) {
    field->setText("~");
    panel.accept();
    EXPECT_EQ(panel.folder(), std::filesystem::path(QDir::homePath().toStdString()));
}

TEST_F(ToolkitPanelTest, TreatsQuotationMarksAsPartOfTheName) {
    const QString typed = makeFolder("My \"Live\" Set");
    field->setText("My \"Live\" Set");
    for (const QPushButton* button : panel.findChildren<QPushButton*>()) {
        EXPECT_TRUE(button->isEnabled()) << button->text().toStdString();
    }
    panel.accept();
    EXPECT_EQ(panel.folder(), std::filesystem::path(typed.toStdString()));
}

TEST_F(ToolkitPanelTest, SaysThatThereIsNoFolderOfTheTypedNameUntilItIsEdited) {
    QFile(folder.filePath("Song.xpj")).open(QFile::WriteOnly);
    EXPECT_EQ(refusal(), "");
    for (const char* text : {"Missing", "Song.xpj", "\"Missing\""}) {
        field->setText(text);
        QTest::keyClick(field, Qt::Key_Return);
        EXPECT_TRUE(panel.isVisible()) << text;
        EXPECT_EQ(refusal(), "There is no folder of that name.") << text;
        EXPECT_EQ(field->accessibleDescription(), refusal()) << text;
        EXPECT_EQ(field->selectedText(), text);
        EXPECT_TRUE(field->hasFocus());
        QTest::keyClick(field, Qt::Key_X);
        EXPECT_EQ(refusal(), "") << text;
        EXPECT_EQ(field->accessibleDescription(), "") << text;
    }
    EXPECT_FALSE(panel.folder());
}

TEST_F(ToolkitPanelTest, ListsFoldersInOneColumn) {
    constexpr int many = 40;
    for (int i = 0; i < many; ++i) {
        makeFolder(QStringLiteral("Folder %1").arg(i));
    }
    const auto* list = panel.findChild<QTreeView*>(QStringLiteral("treeView"));
    ASSERT_NE(list, nullptr);
    const auto row = [&](int index) { return list->model()->index(index, 0, list->rootIndex()); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == many; }));
    EXPECT_EQ(list->visualRect(row(0)).left(), list->visualRect(row(many - 1)).left());
    EXPECT_LT(list->visualRect(row(0)).top(), list->visualRect(row(many - 1)).top());
}

TEST_F(ToolkitPanelTest, DrawsNamesCharacterByCharacter) {
    QFont font("Inter", 11);
    panel.setFont(font);
    panel.setDirectory(makeFolder("0x12"));
    makeFolder("0x12/3x4");
    panel.setSidebarUrls({QUrl::fromLocalFile(folder.filePath("0x12"))});
    field->setText("0x12");
    auto* list = panel.findChild<QTreeView*>(QStringLiteral("treeView"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == 1; }));
    font.setStyleStrategy(QFont::PreferNoShaping);
    for (const char* name : {"fileNameEdit", "treeView", "sidebar", "lookInCombo"}) {
        auto* part = panel.findChild<QWidget*>(QLatin1String(name));
        const QImage drawn = part->grab().toImage();
        part->setFont(font);
        EXPECT_EQ(part->grab().toImage(), drawn) << name;
    }
    field->setText(QStringLiteral("\u0645\u0634\u0631\u0648\u0639"));
    EXPECT_FALSE(field->font().styleStrategy() & QFont::PreferNoShaping) << "letters that join";
}

TEST_F(ToolkitPanelTest, ShowsNoPictograms) {
    makeFolder("Projects");
    field->setText(folder.path() + "/P");
    const auto* list = panel.findChild<QTreeView*>(QStringLiteral("treeView"));
    auto* lookIn = panel.findChild<QComboBox*>(QStringLiteral("lookInCombo"));
    auto* completions = field->completer()->popup();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return list->model()->rowCount(list->rootIndex()) == 1 && completions->model()->rowCount() > 0; }));
    for (QWidget* part : {panel.findChild<QWidget*>("treeView"), panel.findChild<QWidget*>("sidebar"),
                          static_cast<QWidget*>(lookIn), lookIn->view()->viewport(), completions->viewport()}) {
        const QImage drawn = part->grab().toImage();
        for (int y = 0; y < drawn.height(); ++y) {
            for (int x = 0; x < drawn.width(); ++x) {
                ASSERT_EQ(drawn.pixelColor(x, y).saturation(), 0) << part->metaObject()->className() << x << " " << y;
            }
        }
    }
}

TEST(ToolkitPanelLookTest, FitsOnTheScreenWhateverTheFont) {
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(60);
    QApplication::setFont(large);
    const ToolkitPanel panel({.message = {}, .prompt = {}}, nullptr, &PlatformStyle::verbatim);
    QApplication::setFont(usual);
    EXPECT_LE(panel.height(), panel.screen()->availableSize().height());
}

/// Among the pixels around `place`, which may lie between them.
double strongestContrast(const QImage& picture, QPointF place, const QColor& base) {
    double contrast = 0;
    for (const int x : {-2, -1, 0, 1}) {
        for (const int y : {-2, -1, 0, 1}) {
            const QPoint pixel = QPointF(std::round(place.x()) + x, std::round(place.y()) + y).toPoint();
            contrast = std::max(contrast, Ink::contrastRatio(picture.pixelColor(pixel), base));
        }
    }
    return contrast;
}

TEST(ToolkitPanelLookTest, ShowsTheEdgesOfItsFieldsAndLists) {
    const QPalette usual = QApplication::palette();
    for (const QColor& base : {QColor(Qt::white), QColor(0x1E, 0x1E, 0x1E)}) {
        const bool dark = base != Qt::white;
        QPalette palette;
        palette.setColor(QPalette::Window, dark ? QColor(0x24, 0x24, 0x24) : QColor(0xEF, 0xEF, 0xEF));
        palette.setColor(QPalette::Base, base);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(role, dark ? Qt::white : Qt::black);
        }
        QApplication::setPalette(palette);
        const testing::SceneWindow w;
        qInstallMessageHandler(nullptr); // The offscreen platform complains about the panel.
        ToolkitPanel panel({.message = {}, .prompt = {}}, w.window, &PlatformStyle::verbatim);
        panel.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->clearFocus();
        const QImage picture = panel.grab().toImage();
        for (const char* name : {"fileNameEdit", "treeView", "sidebar"}) {
            const auto* part = panel.findChild<QWidget*>(QLatin1String(name));
            const QRectF box = QRect(part->mapTo(&panel, QPoint()), part->size());
            for (const QPointF side : {QPointF(box.left(), box.center().y()), QPointF(box.right(), box.center().y()),
                                       QPointF(box.center().x(), box.top()), QPointF(box.center().x(), box.bottom())}) {
                EXPECT_GE(strongestContrast(picture, side * picture.devicePixelRatio(), base), 3)
                    << name << (dark ? ", dark, " : ", light, ") << side.x() << ", " << side.y();
            }
        }
    }
    QApplication::setPalette(usual);
}

} // namespace
} // namespace tarvolt
