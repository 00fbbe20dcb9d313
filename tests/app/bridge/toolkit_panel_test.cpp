#include "app/bridge/toolkit_panel.h"

#include <QApplication>
#include <QDir>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

TEST(ToolkitPanelTest, TakesASecondPressOfWhatOpenedItForNone) {
    ToolkitPanel panel({.canChooseDirectories = true, .canChooseFiles = false, .message = {}, .prompt = {}}, nullptr);
    panel.show();
    panel.accept();
    EXPECT_TRUE(panel.isVisible());
    QTest::qWait(700);
    panel.accept();
    EXPECT_FALSE(panel.isVisible());
}

TEST(ToolkitPanelTest, FitsOnTheScreenWhateverTheFont) {
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(60);
    QApplication::setFont(large);
    const ToolkitPanel panel({.canChooseDirectories = true, .canChooseFiles = false, .message = {}, .prompt = {}},
                             nullptr);
    QApplication::setFont(usual);
    EXPECT_LE(panel.height(), panel.screen()->availableSize().height());
}

TEST(ToolkitPanelTest, ListsFoldersBelowEachOther) {
    constexpr int many = 40;
    const QTemporaryDir folder;
    for (int i = 0; i < many; ++i) {
        QDir(folder.path()).mkdir(QStringLiteral("Folder %1").arg(i));
    }
    ToolkitPanel panel({.canChooseDirectories = true, .canChooseFiles = false, .message = {}, .prompt = {}}, nullptr);
    panel.setDirectory(folder.path());
    panel.show();
    const auto* list = panel.findChild<QTreeView*>(QStringLiteral("treeView"));
    ASSERT_NE(list, nullptr);
    const auto row = [&](int index) { return list->model()->index(index, 0, list->rootIndex()); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == many; }));
    EXPECT_EQ(list->visualRect(row(0)).left(), list->visualRect(row(many - 1)).left());
    EXPECT_LT(list->visualRect(row(0)).top(), list->visualRect(row(many - 1)).top());
}

} // namespace
} // namespace tarvolt
