"""Where the keyboard focus goes, and that a held key counts as one press. With real keys on a real display."""

import re
import time

import case


class Focus(case.WindowTest):
    # How long a key is held. The display starts to repeat it after about 0.7 s.
    held = 3

    def hold(self, key):
        self.desktop.keyDown(key)
        time.sleep(self.held)
        self.desktop.keyUp(key)

    def chooseByKeys(self):
        self.program.key("Tab")
        self.waitForFocus("Select Folder")
        self.program.key("Return")
        self.typeFolder(self.folder)
        self.program.key("Return")
        self.program.waitUntilGone("dialog")

    def testGoesToTheFirstRowAfterAFolderIsChosenByKeyboard(self):
        self.chooseByKeys()
        self.waitForFocus(f"Rename {case.names[0]}")
        self.scans(1)
        self.waitForFocus(f"Rename {case.names[0]}")

    def testGoesToTheSearchFieldIfTheSearchHidesTheNewName(self):
        self.choose(self.folder)
        self.program.find("text", "Search projects...").click()
        self.program.type("LOOP")
        self.program.waitFor(lambda: self.rows() == ["Basement Loops Vol. 2", "Warehouse Loop"], "two projects")
        self.program.key("Tab")
        self.waitForFocus("Rename Basement Loops Vol. 2")
        self.program.key("Return")
        self.sheetField("Basement Loops Vol. 2")
        self.program.type("Zebra")
        self.program.key("Return")
        self.scans(2)
        self.waitForFocus("Search projects...")
        self.program.key("Return")
        self.program.type("s")
        self.program.waitFor(lambda: self.rows() == ["Warehouse Loop"] or self.rows() == [], "the list filtered")
        self.assertEqual(self.program.find("text").text, "LOOPs")

    def testAHeldSpaceScansOnce(self):
        self.choose(self.folder)
        self.scans(1)
        self.program.key("Tab")
        while self.focusedName() != "Rescan":
            self.program.key("Tab")
        self.hold("space")
        self.scans(2)
        self.assertEqual(len(self.program.elements("list item", re.compile("^Scan complete: "))), 2)

    def testAHeldEscapeClosesTheAlertAndKeepsTheSheet(self):
        self.choose(self.folder)
        self.openSheet("Sketch 014")
        self.program.type("Blue Hour")
        self.program.key("Return")
        self.program.find("button", "OK")
        self.hold("Escape")
        self.program.waitUntilGone("button", "OK")
        self.sheetField("Blue Hour")

    def testAHeldSpaceOnARowTypesNothingIntoTheSheet(self):
        self.choose(self.folder)
        self.openSheet("Sketch 014")
        self.program.key("Escape")
        self.waitForFocus("Rename Sketch 014")
        self.hold("space")
        self.sheetField("Sketch 014")

    def testAHeldSpaceInAFieldRepeats(self):
        self.choose(self.folder)
        field = self.openSheet("Sketch 014")
        self.hold("space")
        self.program.waitFor(lambda: re.fullmatch("   +", field.text), "several blanks")


if __name__ == "__main__":
    case.main()
