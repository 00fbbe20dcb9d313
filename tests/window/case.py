"""What the window tests have in common: a desktop, a folder of projects and the program, new for each test.

The environment gives the program's path (TARVOLT), the folder for pictures (TARVOLT_PICTURES) and the library of
holding_shim.cpp (TARVOLT_SHIM); the command line gives the test's name.
"""

import os
import re
import unittest
from pathlib import Path

import sample
from desktop import Desktop
from driver import Program


class WindowTest(unittest.TestCase):
    characters = ""
    palette = "light"
    fontSize = 10
    # More environment variables.
    environment = {}
    screen = (1280, 900)
    # Whether the desktop offers its portal.
    portal = False
    # Words in front of the program's path on its command line.
    before = ()
    # What the toolkit may print on standard error, as a pattern of whole lines. Its own folder panel prints the first
    # when assistive technology walks its rows while they change, its bus client the second when a service appears on
    # the bus at the moment that the client asks who provides it.
    toolkitsWords = (r"QAccessible(?:Table|Tree)::\w+: [Ii]nvalid index.*\n|"
                     r"qt\.dbus\.integration: QDBusConnection: name '[\w.]+' had owner '' but we thought it was .*\n")

    def setUp(self):
        self.desktop = self.enterContext(self.newDesktop(Desktop))
        (self.desktop.folder / "holding_shim.so").symlink_to(os.environ["TARVOLT_SHIM"])
        self.errors = self.desktop.folder / "errors"
        self.folder = self.desktop.home / "Projects"
        sample.make(self.folder)
        self.program = self.start()

    def tearDown(self):
        toolkits = re.compile(f"^(?:{self.toolkitsWords})", re.MULTILINE)
        self.assertEqual(toolkits.sub("", self.errors.read_text()), "", "on standard error")

    def enterContext(self, context):
        # unittest itself has this from Python 3.11 on.
        value = context.__enter__()
        self.addCleanup(context.__exit__, None, None, None)
        return value

    def newDesktop(self, kind, **others):
        words = self.palette, self.screen, self.fontSize, self.characters, self.environment, self.portal
        return kind(*words, **others)

    def start(self):
        first, *others = *self.before, os.environ["TARVOLT"]
        with self.errors.open("ab") as errors:
            return self.enterContext(Program(self.desktop, first, others, errorOutput=errors))

    def picture(self, name, still=0.3):
        """Takes a picture of the window, like Program.picture, and saves it in the folder for pictures."""
        picture = self.program.picture(still=still)
        picture.save(Path(os.environ["TARVOLT_PICTURES"]) / f"{name}.png")
        return picture

    def choose(self, folder, button="Select Folder"):
        """Chooses a folder in the panel that `button` opens."""
        self.program.find("button", button).click()
        self.typeFolder(folder)
        self.program.key("Return")
        self.program.waitUntilGone("dialog")

    def ownPanel(self, timeout=15.0):
        """The toolkit's folder panel, once keys reach it."""
        panel = self.program.find("dialog", "Select Folder", timeout)
        self.program.waitFor(lambda: getattr(self.program.focused(), "role", "") == "text", "the panel's field")
        return panel

    def typeFolder(self, folder):
        self.ownPanel()
        self.program.type(str(folder))
        self.program.waitFor(lambda: self.program.focused().text == str(folder), "the folder's path")

    def logged(self, message):
        """Waits for a line of the log. For assistive technology the line ends with its time."""
        return self.program.find("list item", re.compile(f"^{re.escape(message)}, "))

    def scans(self, count):
        """Waits until this many scans have ended."""
        lines = re.compile("^Scan complete: ")
        self.program.waitFor(lambda: len(self.program.elements("list item", lines)) >= count, f"{count} scans")

    def rows(self):
        """The names of the projects listed, in the order on the screen."""
        buttons = self.program.elements("button", re.compile("^Rename ."))
        return [button.name.removeprefix("Rename ") for button in sorted(buttons, key=lambda button: button.box[1])]

    def openSheet(self, name):
        """Presses a row's button; returns the sheet's field once it has the focus."""
        self.program.find("button", f"Rename {name}").click()
        return self.sheetField(name)

    def sheetField(self, text):
        def focused():
            field = self.program.focused()
            return field if field and field.role == "text" and field.text == text else None

        return self.program.waitFor(focused, f"the field with {text!r} and the focus")

    def focusedName(self):
        """The name of the element that has the keyboard focus; for a line of a list, the list's name."""
        element = self.program.focused()
        if element and element.role == "list item":
            element = element.parent()
        return element and (element.name or element.role)

    def waitForFocus(self, name):
        self.program.waitFor(lambda: self.focusedName() == name, f"the focus on {name!r}")

    def disk(self):
        """Every path below the folder, with the text of the project files."""
        return {
            path.relative_to(self.folder).as_posix(): path.read_text() if path.suffix == ".xpj" else None
            for path in self.folder.rglob("*")
        }

    def renamed(self, disk, old, new):
        """What the disk holds after a rename of a disk like this."""

        def name(path):
            return re.sub(rf"^{re.escape(old)}(\.xpj$|_\[ProjectData\])", lambda match: new + match[1], path)

        after = {name(path): text for path, text in disk.items()}
        after[f"{new}.xpj"] = after[f"{new}.xpj"].replace(f"{old}_[ProjectData]", f"{new}_[ProjectData]")
        return after

    def assertDisk(self, expected):
        """Compares disk() with what it should be. Shows only paths, because the texts are too long."""
        found = self.disk()
        paths = found.keys() | expected.keys()
        self.assertEqual(sorted(path for path in paths if found.get(path, 0) != expected.get(path, 0)), [])


def main():
    unittest.main(verbosity=2)


names = [name for name, _, _ in sample.projects]
