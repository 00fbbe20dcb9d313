"""The whole flow on a Wayland compositor, with a keyboard and a pointer that it takes for real ones."""

import configparser
import re
import time
from pathlib import Path

import case
import hold
import wayland_desktop


class WaylandTest(case.WindowTest):
    scale = 1
    # Qt 6.8 says this at a fractional scale, which it learns only once a window is there.
    toolkitsWords = f"{case.WindowTest.toolkitsWords}|The cached device pixel ratio value was stale on window update.*\\n"

    def setUp(self):
        reason = wayland_desktop.missing()
        if reason:
            self.skipTest(reason)
        super().setUp()

    def newDesktop(self, _):
        self.screen = tuple(round(self.scale * number) for number in case.WindowTest.screen)
        return super().newDesktop(wayland_desktop.WaylandDesktop, scale=self.scale)

    def leadFromTheFolderToTheRenamedProject(self):
        before = self.disk()
        prefix = f"wayland-{self.palette}-{self.scale}"
        self.picture(f"{prefix}-start")
        self.program.find("button", "Select Folder").click()
        self.typeFolder(self.folder)
        self.picture(f"{prefix}-panel")
        self.program.key("Return")
        self.program.waitUntilGone("dialog")
        self.scans(1)
        self.assertEqual(self.rows(), case.names)
        self.assertThinLines(self.picture(f"{prefix}-list"))
        self.program.find("text", "Search projects...").click()
        self.program.type("SKETCH")
        self.program.waitFor(lambda: self.rows() == ["Sketch 014"], "one row")
        self.picture(f"{prefix}-search")

        field = self.openSheet("Sketch 014")
        self.program.type("Blue Hour")
        self.program.waitFor(lambda: field.text == "Blue Hour", "the new name")
        self.picture(f"{prefix}-preview")
        self.program.key("Return")
        self.program.find("label", 'A project named "Blue Hour" already exists.')
        self.picture(f"{prefix}-alert")
        self.program.find("button", "OK").click()
        self.program.waitUntilGone("button", "OK")
        self.sheetField("Blue Hour")
        self.assertDisk(before)

        self.program.key("ctrl+a")
        self.program.type("Sketch 15!")
        self.program.waitFor(lambda: field.text == "Sketch 15!", "the corrected name")
        self.program.find("button", "Rename").click()
        self.logged('Renamed "Sketch 014" → "Sketch 15!"')
        self.scans(2)
        self.program.waitFor(lambda: self.rows() == ["Sketch 15!"], "the new name")
        self.picture(f"{prefix}-renamed")
        self.assertDisk(self.renamed(before, "Sketch 014", "Sketch 15!"))

    def assertThinLines(self, picture):
        """The line below the header takes as many whole pixels as a thin line has at this scale."""
        if self.scale == 1.5 and "libQt6Gui.so.6.4." in Path(f"/proc/{self.program.process.pid}/maps").read_text():
            return  # Qt 6.4 knows whole scales only: what it draws at 2 is made smaller.
        around = picture.pixel(5, 5)
        header = [picture.pixel(5, y) for y in range(round(100 * self.scale))]
        self.assertEqual(len([each for each in header if each != around]), int(self.scale))


class Wayland(WaylandTest):
    def testLeadsFromTheFolderToTheRenamedProject(self):
        self.leadFromTheFolderToTheRenamedProject()

    def testHasTheNameAndTheIconOfItsDesktopEntry(self):
        window = self.desktop.windows()[0]
        path = Path(__file__).parents[2] / "packaging/tarvolt.desktop"
        entry = configparser.RawConfigParser()
        entry.read(path)
        # The protocol has no window icons: the compositor shows that of the desktop entry with the program's name.
        self.assertEqual(window["app_id"], path.stem)
        self.assertEqual(window["name"], entry["Desktop Entry"]["Name"])

    def testCountsAHeldKeyAsOnePress(self):
        self.choose(self.folder)
        self.scans(1)
        field = self.openSheet("Sketch 014")
        self.hold("space")
        self.program.waitFor(lambda: re.fullmatch("   +", field.text), "blanks, which repeat in a field")
        self.program.key("ctrl+a")
        self.program.type("Blue Hour")
        self.hold("Return")
        self.waitForFocus("OK")
        self.hold("Escape")
        self.program.waitUntilGone("button", "OK")
        self.sheetField("Blue Hour")
        self.program.key("Escape")
        self.waitForFocus("Rename Sketch 014")
        while self.focusedName() != "Rescan":
            self.program.key("Tab")
        self.hold("space")
        self.scans(2)
        self.assertEqual(len(self.program.elements("list item", re.compile("^Scan complete: "))), 2)

    def hold(self, key):
        # Several times as long as the compositor waits before it repeats a key.
        self.desktop.keyDown(key)
        time.sleep(1)
        self.desktop.keyUp(key)


class WaylandAtOneAndAHalf(WaylandTest):
    scale = 1.5

    def testLeadsFromTheFolderToTheRenamedProject(self):
        self.leadFromTheFolderToTheRenamedProject()


class WaylandAtTwo(WaylandTest):
    scale = 2
    palette = "dark"

    def testLeadsFromTheFolderToTheRenamedProject(self):
        self.leadFromTheFolderToTheRenamedProject()


class WaylandEnds(WaylandTest):
    before = hold.before

    def testAtOnceWhenClosedDuringAScanThatHangs(self):
        held = hold.Hold(self.folder, "listing")
        self.choose(self.folder)
        self.program.waitFor(held.reached, "the held listing")
        self.picture("wayland-scanning", still=0)
        self.program.key("alt+F4")
        self.assertEqual(self.program.process.wait(5), 0)


class WaylandPortal(WaylandTest):
    environment = {"XDG_CURRENT_DESKTOP": "GNOME"}
    portal = True

    def testOpensItsPanelAsAChildOfTheWindow(self):
        self.program.find("button", "Select Folder").click()
        title = "Select the folder containing your MPC projects"
        panel = self.program.waitFor(lambda: self.windows().get(title), "the portal's panel", timeout=30)
        # The compositor gives every window a tile, unless it is a child of another.
        self.assertEqual(panel["type"], "floating_con")
        self.program.waitFor(lambda: self.windows()[title]["focused"], "the panel's focus")
        self.desktop.stillPicture(0.5)

        # The part of the window beside the panel takes no input.
        self.desktop.point(10, 300)
        self.desktop.click()
        self.program.waitFor(lambda: self.windows()["Tarvolt"]["focused"], "the window's focus")
        self.program.key("Tab", "Return")
        self.program.find("dialog", "Waiting for a Folder")
        self.assertEqual(len(self.desktop.windows()), 2)
        self.program.key("Escape")
        self.program.waitFor(lambda: title not in self.windows(), "the end of the panel")
        self.waitForFocus("Select Folder")

    def windows(self):
        return {each["name"]: each for each in self.desktop.windows()}


if __name__ == "__main__":
    case.main()
