"""A session as a whole: choosing folders, searching, closing, and what is left behind."""

import case


class Session(case.WindowTest):
    def testBeginsWithTheFolderPickerAndNothingElse(self):
        frame = self.program.find("frame", "Tarvolt")
        self.program.find("label", "Select Your MPC Projects Folder")
        self.assertEqual([button.name for button in self.program.elements("button")], ["Select Folder"])
        self.assertEqual(self.program.elements("label", "ACTIVITY LOG"), [])
        self.assertEqual(frame.box[2:], (800, 600))

    def testCannotBeMadeSmallerThanItsMinimum(self):
        window = self.program.activeWindow()
        self.desktop.input("windowsize", window, "300", "200")
        frame = self.program.find("frame")
        self.program.waitFor(lambda: frame.box[2:] == (700, 500), "the smallest window")

    def testChangesNothingWhenThePanelIsCancelled(self):
        self.program.find("button", "Select Folder").click()
        self.program.find("button", "Cancel").click()
        self.program.waitUntilGone("dialog")
        self.program.find("label", "Select Your MPC Projects Folder")

    def testAsksForAFolderAndAcceptsNoFile(self):
        self.program.find("button", "Select Folder").click()
        panel = self.program.find("dialog", "Select Folder")
        words = [(each.role, each.name) for each in panel.descendants() if each.showing]
        self.assertEqual(words.count(("label", "Select the folder containing your MPC projects")), 1)
        self.assertIn(("button", "Select Folder"), words)
        self.typeFolder(self.folder / "Blue Hour.xpj")
        self.program.key("Return")
        self.program.find("label", "There is no folder of that name.")

        # The first Escape may close the list of completions. A second one too soon after it counts as the same press.
        def closed():
            self.program.key("Escape")
            return not self.program.elements("dialog")

        self.program.waitFor(closed, "the end of the panel")
        self.program.find("label", "Select Your MPC Projects Folder")

    def testShowsTheEmptyStateForAFolderWithoutProjectsAndLeavesIt(self):
        empty = self.desktop.home / "Empty"
        empty.mkdir()
        self.choose(empty)
        self.program.find("label", "No MPC Projects Found")
        self.program.find("label", "0 projects")
        self.program.find("label", str(empty))
        self.assertEqual(self.program.elements("label", "ACTIVITY LOG"), [])
        self.choose(self.folder, "Choose Different Folder")
        self.program.find("label", "8 projects")
        self.program.waitFor(lambda: self.rows() == case.names, "all projects")
        self.logged("Scan complete: 0 project(s)")

    def testFindsProjectsByNameAndKeepsTheSearchThroughARescan(self):
        self.choose(self.folder)
        self.program.find("text", "Search projects...").click()
        self.program.type("LOOP")
        self.program.waitFor(lambda: self.rows() == ["Basement Loops Vol. 2", "Warehouse Loop"], "two projects")
        self.program.find("label", "8 projects")
        (self.folder / "Loophole.xpj").write_text("<Project/>")
        self.program.find("button", "Rescan").click()
        self.program.find("label", "9 projects")
        expected = ["Basement Loops Vol. 2", "Loophole", "Warehouse Loop"]
        self.program.waitFor(lambda: self.rows() == expected, "three projects")

    def testEndsWhenTheWindowIsClosed(self):
        self.program.key("alt+F4")
        self.assertEqual(self.program.process.wait(10), 0)


if __name__ == "__main__":
    case.main()
