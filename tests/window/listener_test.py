"""What assistive technology hears from the window while it listens."""

from gi.repository import Atspi, GLib

import case
from driver import Element


class Listener(case.WindowTest):
    def hear(self, *kinds):
        """From now on collects the program's events of these kinds. Returns the list, which `told` fills."""
        events = []

        def keep(event):
            if event.source.get_process_id() == self.program.process.pid:
                events.append((event.type, event.detail1, Element(event.source, self.program)))

        self.listener = Atspi.EventListener.new(keep)
        for kind in kinds:
            self.listener.register(kind)
            self.addCleanup(self.listener.deregister, kind)
        return events

    def told(self, condition, what):
        """Waits until the events so far meet the condition."""

        def met():
            while GLib.MainContext.default().iteration(False):
                pass
            return condition()

        return self.program.waitFor(met, what)

    def named(self, events):
        return [(kind, detail, element.name) for kind, detail, element in events]

    def testHearsOfAFailureAndOfTheEndOfARename(self):
        self.choose(self.folder)
        self.scans(1)
        self.program.find("text", "Search projects...").setText("sketch")
        self.program.waitFor(lambda: self.rows() == ["Sketch 014"], "one row")
        focus, showing = "object:state-changed:focused", "object:state-changed:showing"
        events = self.hear(focus, showing)
        self.program.find("button", "Rename Sketch 014").press()
        field = self.sheetField("Sketch 014")
        self.told(lambda: (focus, 1, "New name") in self.named(events), "the focus on the field")
        field.setText("Blue Hour")
        self.program.find("button", "Rename").press()
        self.told(lambda: (focus, 1, "OK") in self.named(events), "the focus on the alert's button")
        button = next(element for kind, _, element in events if (kind, element.name) == (focus, "OK"))
        alert = button.parent()
        self.assertEqual((alert.role, alert.name, alert.description), ("dialog", "Rename Failed", ""))
        self.program.find("label", 'A project named "Blue Hour" already exists.')

        events.clear()
        button.press()
        self.program.waitUntilGone("dialog", "Rename Failed")
        self.told(lambda: (focus, 1, "New name") in self.named(events), "the focus on the field again")
        field = self.sheetField("Blue Hour")
        field.setText("Sketch 015")
        self.program.waitFor(lambda: field.text == "Sketch 015", "the new name")
        self.program.find("button", "Rename").press()
        renamed = (showing, 1, 'Renamed "Sketch 014" → "Sketch 015"')
        told = self.told(lambda: renamed in self.named(events) and self.named(events), "the rename")
        self.assertNotIn((focus, 1, "Projects"), told[: told.index(renamed)], "before the news")
        self.told(lambda: (focus, 1, "Rename Sketch 015") in self.named(events), "the focus on the renamed row")
        self.logged('Renamed "Sketch 014" → "Sketch 015"')
        self.assertTrue((self.folder / "Sketch 015.xpj").is_file())

    def testHearsTheDividersPositionAndTheLinesOfTheLog(self):
        self.choose(self.folder)
        self.scans(1)
        focus, value = "object:state-changed:focused", "object:property-change:accessible-value"
        events = self.hear(focus, value)
        divider = self.program.find("slider", "Width of the log")
        Atspi.Component.grab_focus(divider.accessible)
        self.waitForFocus("Width of the log")
        limits = Atspi.Value.get_minimum_value, Atspi.Value.get_maximum_value
        self.assertEqual([limit(divider.accessible) for limit in limits], [220, 280])
        self.program.key("Left")
        self.told(lambda: value in [kind for kind, _, _ in events], "the new place of the divider")
        self.assertEqual(Atspi.Value.get_current_value(divider.accessible), 250)

        def heard(line):
            return any(kind == focus and got and each.name.startswith(line) for kind, got, each in events)

        self.program.key("Tab")
        self.told(lambda: heard("Scan complete: 8 project(s), "), "the newest line")
        self.program.key("Down")
        self.told(lambda: heard("Found 8 .xpj file(s) and "), "the line below it")

    def testHearsThatThereIsNoFolderOfTheTypedName(self):
        description = "object:property-change:accessible-description"
        events = self.hear(description)
        self.program.find("button", "Select Folder").click()
        self.typeFolder(self.folder / "Missing")
        self.program.key("Return")
        told = (description, 0, "There is no folder of that name.")
        self.told(lambda: told in [(kind, detail, e.description) for kind, detail, e in events], "the refusal")

    def testTakesASecondReturnWhileItListens(self):
        self.hear("object:state-changed:focused")
        self.choose(self.folder)
        self.scans(1)
        button = self.program.find("button", "Rename Sketch 014")
        Atspi.Component.grab_focus(button.accessible)
        self.program.waitFor(lambda: button.has("focused"), "the focus on the row")
        self.program.key("Return")
        self.sheetField("Sketch 014")

    def news(self):
        """A function that returns the names of the notifications that have appeared since this call."""
        events = self.hear("object:state-changed:showing")
        names = {}

        def read():
            for index, (_, shows, each) in enumerate(events):
                # A notification soon goes again, and its name with it.
                if shows and index not in names and each.role == "notification" and each.name:
                    names[index] = each.name
            return list(names.values())

        return read

    def testIsToldOnceWhatToDoWithoutProjects(self):
        news = self.news()
        empty = self.desktop.home / "Empty"
        empty.mkdir()
        self.choose(empty)
        advice = "Make sure you selected the folder that\ndirectly contains your .xpj files."
        self.told(lambda: {advice, "Scan complete: 0 project(s)"} <= set(news()), "the end of the scan and what to do")
        self.assertEqual(news().count(advice), 1)

    def testIsToldOnceWhatTheWindowShows(self):
        news = self.news()
        self.choose(self.folder)
        self.told(lambda: "Scan complete: 8 project(s)" in news(), "the end of the scan")
        self.assertEqual(news().count("Scan complete: 8 project(s)"), 1)
        self.program.find("text", "Search projects...").setText("sketch")
        self.told(lambda: "1 project" in news(), "the number of projects found")
        self.program.find("button", "Rename Sketch 014").press()
        self.sheetField("Sketch 014").setText("Sketch 015")
        self.program.find("button", "Rename").press()
        renamed = 'Renamed "Sketch 014" → "Sketch 015"'
        self.told(lambda: renamed in news(), "the rename")
        self.assertEqual(news().count(renamed), 1)


if __name__ == "__main__":
    case.main()
