#include "app/bridge/toolkit_panel.h"

#include <QDir>
#include <QListView>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

TEST(ToolkitPanelTest, ListsFoldersBelowEachOther) {
    constexpr int many = 40;
    const QTemporaryDir folder;
    for (int i = 0; i < many; ++i) {
        QDir(folder.path()).mkdir(QStringLiteral("Folder %1").arg(i));
    }
    ToolkitPanel panel({.canChooseDirectories = true, .canChooseFiles = false, .message = {}, .prompt = {}}, nullptr);
    panel.setDirectory(folder.path());
    panel.show();
    const auto* list = panel.findChild<QListView*>(QStringLiteral("listView"));
    ASSERT_NE(list, nullptr);
    const auto row = [&](int index) { return list->model()->index(index, 0, list->rootIndex()); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == many; }));
    EXPECT_EQ(list->visualRect(row(0)).left(), list->visualRect(row(many - 1)).left());
    EXPECT_LT(list->visualRect(row(0)).top(), list->visualRect(row(many - 1)).top());
}

} // namespace
} // namespace tarvolt
