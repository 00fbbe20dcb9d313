"""The window's frame, its title and icon, and how its two panes share it."""

import itertools

import case


class Size(case.WindowTest):
    screen = (3200, 900)

    def panes(self):
        """The widths of the list's and the log's pane."""
        left, _, width, _ = self.program.find("frame").box
        dividerLeft, _, dividerWidth, _ = self.program.find("slider", "Width of the log").box
        return dividerLeft - left, left + width - dividerLeft - dividerWidth

    def drag(self, distance, log):
        """Drags the divider, with a slightly unsteady hand, until the log has this width, and leaves it there."""
        left, top, width, height = self.program.find("slider", "Width of the log").box
        x, y = left + width // 2, top + height // 2
        self.desktop.input("mousemove", x, y, "mousedown", "1")
        tremble = itertools.cycle((0, 1))

        def there():
            self.desktop.input("mousemove", x + distance, y + next(tremble))
            return self.panes()[1] == log

        self.program.waitFor(there, f"a log {log} wide")
        self.desktop.input("mouseup", "1")

    def testKeepsThePanesWithinTheirLimits(self):
        self.choose(self.folder)
        window = self.program.activeWindow()
        frame = self.program.find("frame")
        self.program.waitFor(lambda: self.panes()[1] == 240, "a log 240 wide")
        for width in (700, 1600, 3000):
            self.desktop.input("windowsize", window, width, 600)
            self.program.waitFor(lambda: frame.box[2] == width, f"a window {width} wide")
            for distance, log in ((-30, 270), (-300, 280), (40, 240), (300, 220), (-20, 240)):
                self.drag(distance, log)
                # The list's pane has the rest except for a thin line.
                self.assertEqual(self.panes(), (width - 1 - log, log))
                self.assertGreaterEqual(self.panes()[0], 400)
        self.picture("wide-window")

    def testHasTheProgramsNameAsItsTitleAndNoMenus(self):
        self.assertEqual(self.desktop.input("getwindowname", self.program.activeWindow()).strip(), "Tarvolt")
        self.choose(self.folder)
        self.assertEqual([element.role for element in self.program.elements() if "menu" in element.role], [])
        self.assertEqual(self.desktop.input("getwindowname", self.program.activeWindow()).strip(), "Tarvolt")

    def testCarriesTheProgramsIconInEverySize(self):
        numbers = self.desktop.numbers(self.program.activeWindow(), "_NET_WM_ICON")
        sizes = []
        # Width, height and pixels of one picture after the other.
        while numbers:
            width, height, *rest = numbers
            pixels, numbers = rest[: width * height], rest[width * height :]
            sizes.append((width, height))
            self.assertGreater(len(set(pixels)), 16, f"colours at {sizes[-1]}")
        # The window manager gives a window without icons one of its own, so it is not enough that there is one.
        self.assertEqual(sizes, [(side, side) for side in (16, 24, 32, 48, 64, 128, 256)])


if __name__ == "__main__":
    case.main()
