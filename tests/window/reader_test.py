"""The window as assistive technology sees it, and the whole flow without keyboard or mouse."""

import re
import time

import case
import hold
from driver import Element


class Reader(case.WindowTest):
    def shown(self):
        """Roles and names of all visible elements except rows and log lines, in the order of the tree."""
        everything = Element(self.program.tree, self.program).walk()
        return [(each.role, each.name) for each, _ in everything if each.showing and each.role != "list item"]

    def assertUsable(self):
        """Every control says what it is, that it can be used, and how."""
        for role in ("button", "text", "list", "slider"):
            for element in self.program.elements(role):
                self.assertNotEqual(element.name, "", role)
                self.assertTrue(all(map(element.has, ("enabled", "sensitive", "focusable"))), element.name)
        for button in self.program.elements("button"):
            self.assertEqual(button.actions().count("Press"), 1, button.name)
        for field in self.program.elements("text"):
            self.assertTrue(field.has("editable"), field.name)

    def pressIn(self, window, name):
        """Presses the button of this name in the window. Returns at once, whatever opens."""
        start = time.monotonic()
        next(each for each in window.descendants() if (each.role, each.name) == ("button", name)).press()
        self.assertLess(time.monotonic() - start, 2)

    def chooseByPresses(self, folder, button="Select Folder"):
        self.pressIn(self.program.find("frame"), button)
        panel = self.program.find("dialog", "Select Folder")
        field = next(each for each in panel.descendants() if each.role == "text")
        self.program.waitFor(lambda: field.has("focused"), "the focus on the panel's field")
        field.setText(str(folder))
        self.program.waitFor(lambda: field.text == str(folder), "the folder's path")
        self.pressIn(panel, "Select Folder")
        self.program.waitUntilGone("dialog")

    header = [("frame", "Tarvolt"), ("label", "Tarvolt")]

    def testExposesEverythingExceptDecoration(self):
        self.assertEqual(
            self.shown(),
            self.header
            + [
                ("label", "Select Your MPC Projects Folder"),
                ("label", "Choose the folder that contains your .xpj files\nand their _[ProjectData] folders"),
                ("button", "Select Folder"),
                ("label", "Everything runs locally. No files are uploaded anywhere."),
            ],
        )
        self.assertUsable()
        self.chooseByPresses(self.folder)
        self.scans(1)
        window = self.header + [
            ("label", str(self.folder)),
            ("label", "8 projects"),
            ("button", "Rescan"),
            ("button", "Change Folder"),
            ("text", "Search projects..."),
            ("list", "Projects"),
            *(("button", f"Rename {name}") for name in case.names),
            ("slider", "Width of the log"),
            ("label", "ACTIVITY LOG"),
            ("list", "ACTIVITY LOG"),
            ("notification", "Scan complete: 8 project(s)"),
        ]
        self.assertEqual(self.shown(), window)
        self.assertUsable()
        sentences = [row.name for row in self.program.elements("list item")]
        self.assertIn("Cold Storage, 212 files, 1.07 GB", sentences)
        self.assertRegex(sentences[4], "^Sketch 014, 0 files, [0-9]+ KB, No data folder$")
        lines = "\n".join(sentences[8:])
        self.assertRegex(lines, r"(?m)^Scan complete: 8 project\(s\), [0-9]+:[0-9]{2}:[0-9]{2} [AP]M$")
        self.assertEqual(len(sentences), 10)

        self.program.find("button", "Rename Sketch 014").press()
        self.sheetField("Sketch 014").setText("Blue Hour")
        sheet = [
            ("dialog", "Rename Project"),
            ("label", "Rename Project"),
            ("label", "Current: Sketch 014"),
            ("text", "New name"),
            ("label", "PREVIEW"),
            ("label", "Sketch 014.xpj"),
            ("label", "Blue Hour.xpj"),
            ("label", "+ Updates file paths inside .xpj"),
            ("button", "Cancel"),
            ("button", "Rename"),
        ]
        self.program.find("label", "PREVIEW")
        self.assertEqual(self.shown(), window + sheet)
        self.assertUsable()

    def testOffersTheFieldsMenu(self):
        self.chooseByPresses(self.folder)
        self.scans(1)
        self.program.find("button", "Rename Blue Hour").press()
        field = self.sheetField("Blue Hour")
        self.program.key("Menu")
        entries = self.program.waitFor(lambda: self.program.elements("menu item"), "the menu")
        self.assertEqual([each.name for each in entries], ["Cut", "Copy", "Paste", "Select All"])
        for entry in entries:
            self.assertEqual(entry.actions().count("Press"), 1, entry.name)
        self.assertEqual(entries[3].description, "Not available now")
        self.program.find("popup menu", "Edit")
        self.waitForFocus("Cut")
        self.picture("field-menu")
        entries[0].press()
        self.program.waitFor(lambda: field.text == "", "the name cut")
        self.program.waitUntilGone("menu item")
        self.program.waitFor(lambda: field.has("focused"), "the focus on the field again")
        self.program.key("shift+F10")
        paste = self.program.find("menu item", "Paste")
        paste.click()
        self.sheetField("Blue Hour")

    def testCancelsAndIgnoresPressesBehindTheSheetOrOnDisabledButtons(self):
        before = self.disk()
        self.chooseByPresses(self.folder)
        self.scans(1)
        self.program.find("button", "Rename Blue Hour").press()
        self.sheetField("Blue Hour")
        for name in ("Rename", "Rename Cold Storage", "Rescan", "Change Folder"):
            self.program.find("button", name).press()
        self.program.find("button", "Cancel").press()
        self.program.waitUntilGone("button", "Cancel")
        self.assertEqual(self.program.elements("dialog"), [])
        self.program.find("button", "Rescan").press()
        self.scans(2)
        self.assertEqual(len(self.program.elements("list item", re.compile("^Scan complete"))), 2)
        self.assertDisk(before)


class ReaderDuringAScan(Reader):
    before = hold.before

    def testHasAnIndicatorAndNoSecondScan(self):
        held = hold.Hold(self.folder, "listing")
        self.chooseByPresses(self.folder)
        self.program.waitFor(held.reached, "the held listing")
        self.program.find("notification", "Scanning...")
        self.program.find("label", "No activity yet")
        self.program.find("label", "0 projects")
        self.program.find("button", "Rescan").press()
        held.release()
        self.program.waitFor(lambda: self.rows() == case.names, "the projects")
        self.program.waitUntilGone("notification", "Scanning...")
        self.scans(1)
        self.program.find("button", "Rescan").press()
        self.scans(2)
        self.assertEqual(len(self.program.elements("list item", re.compile("^Found "))), 2)


if __name__ == "__main__":
    case.main()
