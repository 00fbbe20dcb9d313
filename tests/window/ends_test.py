"""However the program is ended and whatever it is doing: it ends at once and silently, with nothing half done."""

import signal
import subprocess

import case
import hold


class Ends(case.WindowTest):
    before = hold.before

    def close(self):
        self.program.key("alt+F4")

    def terminate(self, number=signal.SIGTERM):
        self.program.process.send_signal(number)

    def ended(self):
        """The exit status of the program, which has to end soon."""
        return self.program.process.wait(5)

    def renameBlueHour(self):
        """Returns once the rename is on disk, well before the scan that follows it."""
        self.openSheet("Blue Hour")
        self.program.type("Azure Hour")
        self.program.key("Return")
        self.program.waitFor(lambda: not (self.folder / "Blue Hour.xpj").exists(), "the rename")

    def assertRenamed(self):
        names = {path.name for path in self.folder.iterdir() if "Hour" in path.name}
        self.assertEqual(names, {"Azure Hour.xpj", "Azure Hour_[ProjectData]"})
        self.assertIn("Azure Hour_[ProjectData]/mix.wav", (self.folder / "Azure Hour.xpj").read_text())

    def testAtOnceWhenClosedDuringAScanThatHangs(self):
        held = hold.Hold(self.folder, "listing")
        self.choose(self.folder)
        self.program.waitFor(held.reached, "the held listing")
        self.close()
        self.assertEqual(self.ended(), 0)

    def testAtOnceWhenTerminatedDuringAScanThatHangs(self):
        held = hold.Hold(self.folder, "listing")
        self.choose(self.folder)
        self.program.waitFor(held.reached, "the held listing")
        self.terminate()
        self.assertEqual(self.ended(), 0)

    def testWhenClosedBeforeTheScanThatFollowsARename(self):
        self.choose(self.folder)
        held = hold.Hold(self.folder, "listing")
        self.renameBlueHour()
        self.close()
        self.assertEqual(self.ended(), 0)
        self.assertFalse(held.reached())
        self.assertRenamed()

    def testWhenClosedWhileARenamedProjectIsStillHighlighted(self):
        self.choose(self.folder)
        self.renameBlueHour()
        self.program.find("button", "Rename Azure Hour")
        self.close()
        self.assertEqual(self.ended(), 0)
        self.assertRenamed()

    def testWhenTerminatedWithTheFolderPanelOpen(self):
        self.program.find("button", "Select Folder").click()
        self.program.find("dialog")
        self.terminate()
        self.assertEqual(self.ended(), 0)

    def testWhenInterrupted(self):
        self.terminate(signal.SIGINT)
        self.assertEqual(self.ended(), 0)

    def testWhenItsTerminalIsClosed(self):
        self.terminate(signal.SIGHUP)
        self.assertEqual(self.ended(), 0)

    def testWhenTerminatedWithTheSheetAndTheAlertOpen(self):
        self.choose(self.folder)
        self.openSheet("Blue Hour")
        self.program.key("Return")
        self.program.find("button", "OK")
        self.terminate()
        self.assertEqual(self.ended(), 0)

    def testFinishesTheRunningRenameFirst(self):
        self.choose(self.folder)
        self.openSheet("Blue Hour")
        self.program.type("Azure Hour")
        held = hold.Hold(self.folder, "fsync")
        self.program.key("Return")
        self.program.waitFor(held.reached, "the held rename")
        self.terminate()
        self.close()
        with self.assertRaises(subprocess.TimeoutExpired):
            self.program.process.wait(0.5)
        self.assertTrue((self.folder / "Blue Hour.xpj").exists())
        held.release()
        self.assertEqual(self.ended(), 0)
        self.assertRenamed()


class StartedToOutliveItsTerminal(case.WindowTest):
    before = ("env", "--ignore-signal=HUP", "--ignore-signal=INT")

    def testKeepsRunningWhenTheTerminalCloses(self):
        self.program.process.send_signal(signal.SIGINT)
        self.program.process.send_signal(signal.SIGHUP)
        self.choose(self.folder)
        self.scans(1)
        self.program.process.send_signal(signal.SIGTERM)
        self.assertEqual(self.program.process.wait(5), 0)


if __name__ == "__main__":
    case.main()
