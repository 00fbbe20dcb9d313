#include "tests/app/bridge/scene_window.h"

namespace tarvolt {
namespace {

using testing::SceneWindow;

class KeyboardTest : public ::testing::Test {
protected:
    KeyboardTest() {
        w.addProject("Blue Hour");
        w.addProject("Midnight Ferry");
        w.choose();
    }

    void openSheet(int row) {
        w.bridge->beginRename(row);
        w.settle();
    }

    SceneWindow w;
};

TEST_F(KeyboardTest, OpensTheSheetWithTheFieldFocusedAndTheNameSelected) {
    openSheet(1);
    EXPECT_EQ(w.focused(), "newNameField");
    EXPECT_EQ(w.find("newNameField")->property("selectedText").toString(), "Midnight Ferry");
}

TEST_F(KeyboardTest, ReturnInTheAlertClosesItAndTheFieldHasTheFocusAndTheTextAgain) {
    openSheet(1);
    w.type("Blue Hour");
    w.press(Qt::Key_Return);
    w.settle();
    EXPECT_TRUE(w.bridge->alertOpen());
    EXPECT_EQ(w.focused(), "alertButton");
    w.press(Qt::Key_Return);
    w.settle();
    EXPECT_FALSE(w.bridge->alertOpen());
    EXPECT_TRUE(w.bridge->sheetOpen());
    EXPECT_EQ(w.focused(), "newNameField");
    EXPECT_EQ(w.find("newNameField")->property("text").toString(), "Blue Hour");
}

} // namespace
} // namespace tarvolt
