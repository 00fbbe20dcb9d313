"""What the desktop sets: its colours, its fonts, the language of its numbers and times."""

import signal

import case
import driver


class DarkDesktop(case.WindowTest):
    palette = "dark"

    def testHasADarkWindow(self):
        self.choose(self.folder)
        self.scans(1)
        frame = self.program.find("frame").box
        picture = self.picture("dark-list")
        row = self.program.find("button", "Rename Blue Hour").box
        self.assertEqual(picture.pixel(2, 2), "#242424", "the window")
        self.assertEqual(picture.pixel(row[0] - frame[0] - 4, row[1] - frame[1]), "#2e2e2e", "the card")
        self.openSheet("Blue Hour")
        self.program.type("Red Hour")
        self.program.find("label", "Red Hour.xpj")
        title = self.program.find("label", "Rename Project").box
        sheet = self.picture("dark-sheet")
        self.assertEqual(sheet.pixel(title[0] - frame[0] - 4, title[1] - frame[1]), "#2d2d2d", "the sheet")


class UsualDesktop(case.WindowTest):
    def testDoesNotScrollAPreviewThatFits(self):
        self.choose(self.folder)
        self.scans(1)
        self.openSheet("Basement Loops Vol. 2")
        self.program.type(33 * "x")
        self.program.find("label", 33 * "x" + "_[ProjectData]")
        self.picture("wrapped-preview")
        self.program.key("Tab")
        focused = self.program.waitFor(
            lambda: (each := self.program.focused()) and each.role != "text" and each, "another focus"
        )
        self.assertEqual(focused.name, "Cancel")


class LargeFontDesktop(case.WindowTest):
    fontSize = 15

    def testHasLargeTexts(self):
        self.choose(self.folder)
        self.scans(1)
        self.picture("large-font-list")
        # 15 points are 20 pixels, and a line is 20 to 50 % higher.
        self.assertIn(self.program.find("label", "Tarvolt").box[3], range(24, 31))
        self.openSheet("Blue Hour")
        self.program.type("Red Hour")
        self.program.find("label", "Red Hour.xpj")
        self.picture("large-font-sheet")
        self.program.key("Return")
        self.program.find("button", "Rename Red Hour")


class HugeFontDesktop(case.WindowTest):
    fontSize = 20

    def testScrollsTheWholeSheet(self):
        self.choose(self.folder)
        self.scans(1)
        self.openSheet("Blue Hour")
        self.program.type("Red Hour")
        note = self.program.find("label", "+ Updates file paths inside .xpj")
        cancel = self.program.find("button", "Cancel")
        title = self.program.find("label", "Rename Project")
        self.picture("huge-font-sheet")
        top = title.box[1]
        self.assertGreater(note.box[1] + note.box[3], cancel.box[1], "out of sight")
        self.program.key("Next")
        self.program.waitFor(lambda: note.box[1] + note.box[3] < cancel.box[1], "the preview's end in sight")
        self.assertLess(title.box[1], top, "the title has moved with it")
        self.picture("huge-font-sheet-scrolled")
        self.program.type("s")
        self.program.waitFor(lambda: title.box[1] == top, "the field in sight again")
        self.program.key("Next")
        self.program.waitFor(lambda: title.box[1] < top, "the preview in sight")
        self.program.key("Tab", "Tab", "Tab")
        self.program.waitFor(lambda: title.box[1] == top, "the field in sight, which has the focus again")


class RescaledDesktop(case.WindowTest):
    """A desktop whose settings change while the program runs."""

    def start(self):
        self.settings = self.desktop.folder / "settings"
        self.scaleTo(96)
        self.daemon = self.desktop.start(["xsettingsd", "-c", self.settings])
        return super().start()

    def scaleTo(self, dotsPerInch):
        self.settings.write_text(f"Xft/DPI {1024 * dotsPerInch}\n")

    def listed(self):
        """A picture of the rows in a window of 1000 x 750 pixels."""
        self.desktop.input("windowsize", "--sync", self.program.activeWindow(), 1000, 750)
        size = self.program.find("frame").box[2:]
        self.assertEqual(size, (1000, 750), "the content fills the window")
        return self.picture("rescaled-list").cut(0, 100, 660, 500)

    def testLooksTheSameAfterAChangeOfResolutionAsFromTheStart(self):
        self.choose(self.folder)
        self.scans(1)
        self.scaleTo(120)
        self.daemon.send_signal(signal.SIGHUP)
        self.program.scale = 1.25
        self.program.waitFor(lambda: self.program.find("frame").box[2] >= 875, "a window that has grown")
        changed = self.listed()
        driver.end(self.program.process)
        self.program = super().start()
        self.choose(self.folder)
        self.scans(1)
        self.assertEqual(changed, self.listed())


class ForeignDesktop(case.WindowTest):
    environment = {"LC_NUMERIC": "de_DE.UTF-8", "LC_TIME": "ar_EG.UTF-8"}
    # The toolkit warns if these locales are not installed. Numbers and times do not depend on them.
    toolkitsWords = case.WindowTest.toolkitsWords + '|Detected locale "C"(?:.*\\n){4}'

    def testFormatsNumbersAndTimesForTheUsersLocale(self):
        many = self.folder / "Sketch 014_[ProjectData]"
        many.mkdir()
        for index in range(1234):
            (many / f"{index}.wav").touch()
        self.choose(self.folder)
        self.scans(1)
        sentences = [row.name for row in self.program.elements("list item")]
        self.assertIn("Cold Storage, 212 files, 1,07 GB", sentences)
        self.assertRegex(sentences[4], "^Sketch 014, 1.234 files, [0-9]+ KB$")
        lines = "\n".join(sentences[8:])
        self.assertRegex(lines, r"(?m)^Scan complete: 8 project\(s\), [٠-٩]{1,2}:[٠-٩]{2}:[٠-٩]{2} [صم]$")
        self.picture("numbers-and-times")


if __name__ == "__main__":
    case.main()
