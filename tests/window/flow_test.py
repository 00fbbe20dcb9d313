"""From folder to folder and from rename to rename, with overlapping scans and with sheets, alerts and panels open."""

import re

import case
import hold


def makeProjects(folder, *names):
    folder.mkdir()
    for name in names:
        (folder / f"{name}.xpj").write_text("<Project/>")
    return folder


class Flow(case.WindowTest):
    def testKeepsFilteringByASearchTextThatIsHidden(self):
        few = makeProjects(self.desktop.home / "Few", "Aloof", "Loop", "Other")
        other = makeProjects(self.desktop.home / "Other", "Third")
        self.choose(self.folder)
        self.program.find("text", "Search projects...").click()
        self.program.type("LOOP")
        self.program.waitFor(lambda: self.rows() == ["Basement Loops Vol. 2", "Warehouse Loop"], "two projects")
        self.choose(few, "Change Folder")
        self.program.find("label", "3 projects")
        self.program.waitFor(lambda: self.rows() == ["Loop"], "one project")
        self.assertEqual(self.program.elements("text"), [])
        self.choose(other, "Change Folder")
        self.program.find("label", "1 project")
        self.assertEqual(self.rows(), [])
        self.assertEqual(self.program.elements("label", "No MPC Projects Found"), [])
        self.picture("nothing-matches-a-hidden-search")
        self.choose(self.folder, "Change Folder")
        self.assertEqual(self.program.find("text", "Search projects...").text, "LOOP")
        self.assertEqual(self.rows(), ["Basement Loops Vol. 2", "Warehouse Loop"])

    def testSaysInTheLogWhyAFolderCouldNotBeListed(self):
        self.choose(self.folder)
        self.scans(1)
        self.folder.rename(self.desktop.home / "Moved")
        self.program.find("button", "Rescan").click()
        self.program.find("label", "No MPC Projects Found")
        self.program.find("label", "0 projects")
        self.assertEqual(self.program.elements("list", "ACTIVITY LOG"), [])
        self.choose(self.desktop.home / "Moved", "Choose Different Folder")
        self.scans(3)
        lines = self.program.elements("list item", re.compile("Scan (error|complete): "))
        lines = [line.name for line in sorted(lines, key=lambda line: line.box[1])]
        self.assertRegex(lines[2], "^Scan error: .*: No such file or directory, ")
        self.assertRegex(lines[1], r"^Scan complete: 0 project\(s\), ")
        self.picture("scan-error")

    def testKeepsTheSheetOpenDuringARescan(self):
        self.choose(self.folder)
        self.scans(1)
        next = self.program.find("button", "Rename Cold Storage")
        self.openSheet("Blue Hour")
        self.program.type("Azure Hour")
        self.program.key("Return")
        old = self.folder / "Blue Hour.xpj"
        self.program.waitFor(lambda: not old.exists(), "the rename")
        # The scan that follows the rename ends while this sheet is open.
        next.press()
        field = self.sheetField("Cold Storage")
        self.program.type("Warm ")
        self.scans(2)
        self.assertTrue(field.has("focused"))
        self.program.type("Storage")
        self.program.waitFor(lambda: field.text == "Warm Storage", "the new name")
        self.program.key("Return")
        self.logged('Renamed "Blue Hour" → "Azure Hour"')
        self.logged('Renamed "Cold Storage" → "Warm Storage"')
        self.scans(3)
        names = {"Blue Hour": "Azure Hour", "Cold Storage": "Warm Storage"}
        expected = sorted(names.get(name, name) for name in case.names)
        self.program.waitFor(lambda: self.rows() == expected, "both new names")
        self.assertEqual(sorted(path.stem for path in self.folder.glob("*.xpj")), expected)

    def testClosesOnlyTheTopmostLayerAndNothingOnAClickOutside(self):
        before = self.disk()
        self.choose(self.folder)
        header = self.program.find("button", "Change Folder").box
        self.openSheet("Sketch 014")
        self.program.type("Blue Hour")
        self.program.key("Return")
        self.program.find("button", "OK")
        self.picture("rename-failed")
        self.desktop.input("mousemove", header[0] + 5, header[1] + 5, "click", "1")
        self.program.key("Escape")
        self.program.waitUntilGone("button", "OK")
        field = self.sheetField("Blue Hour")
        self.desktop.input("mousemove", header[0] + 5, header[1] + 5, "click", "1")
        self.program.key("End")
        self.program.type("s")
        self.program.waitFor(lambda: field.text == "Blue Hours", "a longer name")
        self.assertEqual(self.program.elements("dialog", "Select Folder"), [])
        self.program.key("Escape")
        self.program.waitUntilGone("button", "Cancel")
        self.assertDisk(before)

    def testCancelsWhenReturnIsPressedOnCancel(self):
        before = self.disk()
        self.choose(self.folder)
        self.openSheet("Sketch 014")
        self.program.type("Other")
        self.program.key("Tab")
        cancel = self.program.find("button", "Cancel")
        self.program.waitFor(lambda: cancel.has("focused"), "the focus on Cancel")
        self.program.key("Return")
        self.program.waitUntilGone("button", "Cancel")
        self.openSheet("Blue Hour")
        self.assertEqual(self.program.elements("label", "Rename Failed"), [])
        self.assertDisk(before)


class Scanning(case.WindowTest):
    before = hold.before

    def testAllowsChangingTheFolderButNotRescanningDuringAScan(self):
        held = hold.Hold(self.folder, "listing")
        other = makeProjects(self.desktop.home / "Other", "Third")
        self.choose(self.folder)
        self.program.waitFor(held.reached, "the held listing")
        self.program.find("notification", "Scanning...")
        self.program.find("label", "0 projects")
        self.picture("scanning", still=0)
        self.assertEqual(self.rows(), [])
        self.program.find("button", "Rescan").click()
        self.program.find("button", "Rescan").press()
        self.choose(other, "Change Folder")
        self.program.waitFor(lambda: self.rows() == ["Third"], "the other folder's project")
        self.program.find("label", str(other))
        # The scan that ends last fills the list.
        held.release()
        self.program.waitFor(lambda: self.rows() == case.names, "the first folder's projects")
        self.program.find("label", str(other))
        self.scans(2)
        self.assertEqual(len(self.program.elements("list item", re.compile("^Found "))), 2)
        self.program.find("button", "Rescan").click()
        self.program.waitFor(lambda: self.rows() == ["Third"], "the other folder's project again")


if __name__ == "__main__":
    case.main()
