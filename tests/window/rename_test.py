"""One rename in the real window, from the folder to the updated list, and the ways it can go wrong."""

import re

import case


class Rename(case.WindowTest):
    characters = "Üé→"

    def assertNoAlert(self):
        if self.program.elements("label", "Rename Failed"):
            self.fail(f"there is an alert\n{self.program.dump()}")

    def testRenamesOnDiskInTheListAndInTheLog(self):
        before = self.disk()
        self.choose(self.folder)
        self.logged("Scan complete: 8 project(s)")
        self.program.waitFor(lambda: self.rows() == case.names, "all projects")

        self.openSheet("Midnight Ferry")
        self.program.type("Übung é → 2 & so")
        self.program.find("label", "Übung é → 2 & so.xpj")
        self.program.find("label", "Übung é → 2 & so_[ProjectData]")
        self.program.key("Return")

        self.program.waitUntilGone("button", "Cancel")
        self.logged('Renamed "Midnight Ferry" → "Übung é → 2 & so"')
        self.assertDisk(self.renamed(before, "Midnight Ferry", "Übung é → 2 & so"))
        expected = [name for name in case.names if name != "Midnight Ferry"]
        expected.insert(6, "Übung é → 2 & so")
        self.program.waitFor(lambda: self.rows() == expected, "the new name in its place")

    def testRenamesByTheButtonToo(self):
        self.choose(self.folder)
        field = self.openSheet("Blue Hour")
        # There is nothing to rename yet. A click there changes neither the sheet nor the focus.
        self.program.find("button", "Rename").click()
        self.program.type("Red Hour")
        self.program.waitFor(lambda: field.text == "Red Hour", "the new name")
        self.program.find("button", "Rename").click()
        self.program.find("button", "Rename Red Hour")
        self.assertTrue((self.folder / "Red Hour_[ProjectData]").is_dir())

    def testRenamesThroughTheAccessibilityTreeAlone(self):
        self.choose(self.folder)
        self.program.find("button", "Rename Slow Glass").press()
        field = self.sheetField("Slow Glass")
        field.setText("Fast Glass")
        self.program.waitFor(lambda: field.text == "Fast Glass", "the new name")
        self.program.find("button", "Rename").press()
        self.program.find("button", "Rename Fast Glass")
        self.assertTrue((self.folder / "Fast Glass.xpj").is_file())

    def testSaysWhyARenameFailedAndAllowsCorrectingTheName(self):
        before = self.disk()
        self.choose(self.folder)
        self.openSheet("Sketch 014")
        self.program.type("Blue Hour")
        self.program.key("Return")
        self.program.find("label", "Rename Failed")
        self.program.find("label", 'A project named "Blue Hour" already exists.')
        self.assertDisk(before)

        self.program.key("Escape")
        self.program.waitUntilGone("label", "Rename Failed")
        self.sheetField("Blue Hour")
        self.program.key("End")
        self.program.type(" 2")
        self.program.key("Return")
        self.program.find("button", "Rename Blue Hour 2")
        self.assertDisk(self.renamed(before, "Sketch 014", "Blue Hour 2"))

    def testChangesNothingWhenTheSheetIsCancelled(self):
        before = self.disk()
        self.choose(self.folder)
        self.openSheet("Sketch 014")
        self.program.type("Other")
        self.program.key("Escape")
        self.program.waitUntilGone("button", "Cancel")
        self.openSheet("Warehouse Loop")
        self.program.find("button", "Cancel").click()
        self.program.waitUntilGone("button", "Cancel")
        self.assertDisk(before)
        self.assertEqual(self.rows(), case.names)

    def testRenamesOnceWhenReturnIsHeldOrPressedTwice(self):
        self.choose(self.folder)
        self.openSheet("Cold Storage")
        self.program.type("Warm Storage")
        self.desktop.input("key", "--delay", "5", "Return", "Return")
        self.program.find("button", "Rename Warm Storage")
        self.assertNoAlert()

        self.openSheet("Warm Storage")
        self.program.type("Hot Storage")
        self.desktop.input("keydown", "KP_Enter")
        self.program.find("button", "Rename Hot Storage")
        self.desktop.input("keyup", "KP_Enter")
        self.assertNoAlert()
        lines = self.program.elements("list item", re.compile("^Renamed "))
        self.assertEqual(len(lines), 2)


if __name__ == "__main__":
    case.main()
