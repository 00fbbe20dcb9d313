"""Everything by the keyboard alone."""

import re

import case


class Keyboard(case.WindowTest):
    def chooseByKeys(self, folder):
        self.program.key("Return")
        self.typeFolder(folder)
        self.program.key("Return")
        self.program.waitUntilGone("dialog")

    def tabTo(self, name, key="Tab", most=30):
        """Presses the key until the element of this name has the focus; returns the names on the way."""
        way = []
        while self.focusedName() != name:
            self.assertLess(len(way), most, way)
            last = self.focusedName()
            self.program.key(key)
            self.program.waitFor(lambda: self.focusedName() not in (None, last), f"the focus to leave {last!r}")
            way.append(self.focusedName())
        return way

    def testLeadsFromTheFolderToTheRenamedRow(self):
        self.tabTo("Select Folder")
        self.chooseByKeys(self.folder)
        self.scans(1)
        self.tabTo("Rename Cold Storage")
        self.program.key("space")
        field = self.sheetField("Cold Storage")
        self.program.type("Blue Hour")
        self.program.key("Return")
        self.waitForFocus("OK")
        self.program.key("Return")
        self.program.waitUntilGone("button", "OK")
        self.sheetField("Blue Hour")
        self.program.key("ctrl+a")
        self.program.type("Zero Storage")
        self.program.waitFor(lambda: field.text == "Zero Storage", "the new name")
        self.assertEqual(self.tabTo("New name", most=5), [])
        self.program.key("Tab", "Tab")
        self.waitForFocus("Rename")
        self.program.key("KP_Enter")
        self.waitForFocus("Rename Zero Storage")
        self.assertTrue((self.folder / "Zero Storage.xpj").is_file())
        self.program.key("Return")
        self.sheetField("Zero Storage")
        self.program.key("Escape")
        self.program.waitUntilGone("button", "Cancel")
        self.waitForFocus("Rename Zero Storage")

    def testFollowsTheOrderOfTheWindowByTab(self):
        self.choose(self.folder)
        self.scans(1)
        names = [f"Rename {name}" for name in case.names]
        order = ["Change Folder", "Search projects...", *names, "Width of the log", "ACTIVITY LOG", "Rescan"]
        self.tabTo("Rescan")
        self.program.key("Tab")
        self.waitForFocus("Change Folder")
        self.assertEqual(["Change Folder", *self.tabTo("Rescan")], order)
        self.program.key("shift+Tab")
        self.waitForFocus("ACTIVITY LOG")
        way = ["ACTIVITY LOG", *self.tabTo("Rescan", "shift+Tab")]
        self.assertEqual(way, [*reversed(order[:-1]), "Rescan"])

    def testKeepsTheFocusOnRescanDuringTheScan(self):
        self.choose(self.folder)
        self.scans(1)
        self.tabTo("Rescan")
        self.program.key("Return")
        self.scans(2)
        self.waitForFocus("Rescan")
        self.program.key("space")
        self.scans(3)

    def testShowsWhereTheFocusIs(self):
        self.choose(self.folder)
        self.scans(1)
        window = self.program.find("frame").box
        pictures = {}
        for name in (
            "Rescan", "Change Folder", "Search projects...", "Rename Blue Hour", "Width of the log", "ACTIVITY LOG"
        ):
            self.tabTo(name)
            box = self.program.focused().box
            pictures[name] = self.picture(f"focus-on-{name.lower().replace(' ', '-').strip('.')}"), box
        for name, (picture, box) in pictures.items():
            other = next(each for each, _ in pictures.values() if each is not picture)
            place = (box[0] - window[0] - 8, box[1] - window[1] - 8, box[2] + 16, box[3] + 16)
            self.assertNotEqual(picture.cut(*place), other.cut(*place), f"{name} looks the same without the focus")

    def testScrollsTheListsByKeys(self):
        for index in range(30):
            (self.folder / f"Take {index:02}.xpj").write_text("<Project/>")
        self.choose(self.folder)
        self.scans(1)
        self.tabTo("Rename Basement Loops Vol. 2")
        first, second, *_, last = case.names
        for key, name in (("End", last), ("Up", case.names[-2]), ("Home", first), ("Down", second)):
            self.program.key(key)
            self.waitForFocus(f"Rename {name}")
            self.assertInSight(self.program.focused())
        self.program.key("Next")
        self.program.waitFor(lambda: self.focusedName() != "Rename Blue Hour", "the next page")
        self.assertInSight(self.program.focused())
        self.program.key("Prior")
        self.waitForFocus("Rename Blue Hour")

        self.tabTo("Rescan", "shift+Tab")
        for count in range(39, 49):
            (self.folder / f"Take {count}.xpj").write_text("<Project/>")
            self.program.key("Return")
            self.logged(f"Scan complete: {count} project(s)")
            self.waitForFocus("Rescan")
        self.tabTo("ACTIVITY LOG", "shift+Tab")
        oldest, newest = (re.compile(rf"^Scan complete: {count} ") for count in (38, 48))
        for key, shown, hidden in (("End", oldest, newest), ("Home", newest, oldest)):
            self.program.key(key)
            self.program.find("list item", shown)
            self.program.waitUntilGone("list item", hidden)

    def assertInSight(self, element):
        """Nothing of it is scrolled out of the list."""
        _, top, _, height = self.program.find("list", "Projects").box
        box = element.box
        self.assertTrue(top <= box[1] and box[1] + box[3] <= top + height, f"{element.name} is out of sight")


if __name__ == "__main__":
    case.main()
