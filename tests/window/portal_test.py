"""The desktop's portal: good, bad or missing. Whatever it does, a folder can be chosen or the window says why not."""

import json
import os
import re
import signal
import subprocess
import sys
from pathlib import Path

import case


class PortalTest(case.WindowTest):
    def usePortal(self, deed, *uris):
        self.record = self.desktop.folder / "asked"
        command = [sys.executable, str(Path(__file__).with_name("fake_portal.py")), deed, str(self.record), *uris]
        self.portal = self.desktop.start(command, stdout=subprocess.PIPE, text=True)
        self.assertEqual(self.portal.stdout.readline(), "ready\n")

    def asked(self):
        """What the portal has been asked so far."""
        return [json.loads(line) for line in self.record.read_text().splitlines()] if self.record.exists() else []

    def openPanel(self):
        self.program.find("button", "Select Folder").click()

    def cancelOwnPanel(self):
        self.ownPanel(timeout=30)
        self.program.key("Escape")
        self.program.waitUntilGone("dialog")
        self.assertIsUsable()

    def assertIsUsable(self):
        """Waits until nothing covers the window: the button has the focus again and can be pressed."""
        self.program.find("label", "Select Your MPC Projects Folder")
        self.program.waitFor(lambda: getattr(self.program.focused(), "name", "") == "Select Folder", "its focus")

    def notice(self):
        return self.program.find("dialog", "Waiting for a Folder", timeout=30)


class Portal(PortalTest):
    def testIsAskedForOneFolderOnBehalfOfTheWindow(self):
        self.usePortal("waits")
        window = self.program.activeWindow()
        self.openPanel()
        question = self.program.waitFor(self.asked, "a question")[0]
        self.assertEqual(question.pop("parent"), f"x11:{int(window):x}")
        self.assertRegex(question.pop("handle_token"), "^[A-Za-z0-9_]+$")
        self.assertEqual(
            question,
            {
                "title": "Select the folder containing your MPC projects",
                "accept_label": "Select Folder",
                "directory": True,
                "multiple": False,
                "modal": True,
            },
        )

    def testKeepsTheBytesOfAFolderWhoseNameIsNotUtf8(self):
        home = str(self.desktop.home)
        os.mkdir(home.encode() + b"/My Caf\xe9%")
        self.usePortal("chooses", f"file://{home}/My%20Caf%E9%25")
        self.openPanel()
        self.program.find("label", f"{home}/My Caf\ufffd%")
        self.program.find("label", "No MPC Projects Found")

    def testCanBeCancelled(self):
        self.usePortal("cancels")
        self.openPanel()
        self.program.waitFor(self.asked, "a question")
        self.assertIsUsable()
        self.assertEqual(self.program.elements("dialog"), [])


class PortalWithALockedFolder(PortalTest):
    # Root may look anywhere unless it gives up these two capabilities.
    before = () if os.geteuid() else ("setpriv", "--bounding-set=-dac_override,-dac_read_search")

    def testShowsInTheLogWhyTheFolderCannotBeScanned(self):
        locked = self.folder / "Locked"
        chosen = locked / "Projects"
        chosen.mkdir(parents=True)
        (chosen / "Song.xpj").write_text("<Project/>")
        locked.chmod(0)
        self.addCleanup(locked.chmod, 0o700)
        self.usePortal("chooses", chosen.as_uri())
        self.openPanel()
        self.program.find("label", "No MPC Projects Found")
        locked.chmod(0o700)
        self.program.find("button", "Rescan").click()
        self.program.find("list item", re.compile("^Scan error: .*: Permission denied, "))


class BadPortal(PortalTest):
    def assertOwnPanelFor(self, deed, *uris):
        self.usePortal(deed, *uris)
        self.openPanel()
        self.cancelOwnPanel()

    def testThatIsTooOldGivesWayToTheToolkitsPanel(self):
        self.assertOwnPanelFor("is-old")
        self.assertEqual(self.asked(), [])

    def testThatHangsGivesWayToTheToolkitsPanel(self):
        self.assertOwnPanelFor("hangs")

    def testThatRefusesGivesWayToTheToolkitsPanel(self):
        self.assertOwnPanelFor("refuses")

    def testThatVanishesGivesWayToTheToolkitsPanel(self):
        self.assertOwnPanelFor("vanishes")

    def testThatVanishesLaterGivesWayToTheToolkitsPanel(self):
        self.usePortal("waits")
        self.openPanel()
        self.program.waitFor(self.asked, "a question")
        self.portal.kill()
        self.cancelOwnPanel()

    def testThatOpensAnotherRequestGivesWayToTheToolkitsPanel(self):
        self.assertOwnPanelFor("opens-another")

    def testThatTalksNonsenseGivesWayToTheToolkitsPanel(self):
        self.assertOwnPanelFor("talks-nonsense")

    def testThatChoosesNothingGivesWayToTheToolkitsPanel(self):
        self.assertOwnPanelFor("chooses")

    def testThatChoosesAPlaceOnAnotherMachineGivesWayToTheToolkitsPanel(self):
        self.assertOwnPanelFor("chooses", "smb://server/share")

    def testThatChoosesAFileGivesWayToTheToolkitsPanel(self):
        self.assertOwnPanelFor("chooses", next(self.folder.glob("*.xpj")).as_uri())

    def testThatChoosesAFolderThatHasVanishedGivesWayToTheToolkitsPanel(self):
        self.assertOwnPanelFor("chooses", (self.folder / "Vanished").as_uri())

    def testThatGivesUpWithoutAPanelGivesWayToTheToolkitsPanel(self):
        self.assertOwnPanelFor("gives-up")


class WaitingWindow(PortalTest):
    def testSaysWhatItWaitsForAndCanCancel(self):
        self.usePortal("waits")
        self.openPanel()
        self.notice()
        self.picture("waiting-for-a-folder")
        self.program.find("button", "Cancel").click()
        self.program.waitUntilGone("dialog")
        self.assertIsUsable()
        question, closed = self.program.waitFor(lambda: len(self.asked()) > 1 and self.asked(), "the withdrawal")
        self.assertEqual(closed, {"closed": question["handle_token"]})

    def testIsUsableAgainAfterEscape(self):
        self.usePortal("waits")
        self.openPanel()
        self.notice()
        self.program.key("Escape")
        self.program.waitUntilGone("dialog")
        self.assertIsUsable()

    def testBlocksInputToWhatItCovers(self):
        self.choose(self.folder)
        self.scans(1)
        self.usePortal("waits")
        search = self.program.find("text", "Search projects...")
        rename = self.program.find("button", "Rename Blue Hour")
        self.program.find("button", "Change Folder").click()
        self.program.waitFor(self.asked, "a question")
        rename.click()
        search.click()
        self.program.type("sketch")
        self.program.key("Tab", "Return", "space", "Tab", "Return")
        self.notice()
        self.program.key("Escape")
        self.program.waitUntilGone("dialog")
        self.assertEqual(self.program.elements("button", "Cancel"), [])
        self.assertEqual(len([each for each in self.asked() if "title" in each]), 1)
        self.assertEqual(search.text, "")
        self.scans(1)

    def testSaysNothingWhileThePanelHasTheFocus(self):
        self.openPanel()
        self.program.find("dialog", "Select Folder")
        # Longer than the program waits.
        self.desktop.stillPicture(3)
        self.assertEqual([each.name for each in self.program.elements("dialog")], ["Select Folder"])

    def endsWhile(self, deed, end):
        if deed:
            self.usePortal(deed)
        self.openPanel()
        if deed == "waits":
            self.program.waitFor(self.asked, "a question")
        elif not deed:
            self.program.find("dialog", "Select Folder")
        end()
        self.assertEqual(self.program.process.wait(5), 0)

    def close(self):
        """Clicks the close box in the window's frame."""
        left, top, width, _ = self.program.find("frame", "Tarvolt").box
        self.desktop.input("mousemove", left + width - 10, top - 10, "click", "1")

    def terminate(self):
        self.program.process.send_signal(signal.SIGTERM)

    def testEndsAndTakesThePortalsPanelWithItWhenClosed(self):
        self.endsWhile("waits", self.close)
        self.assertIn("closed", self.asked()[-1])

    def testEndsWhenTerminatedWithThePortalsPanelOpen(self):
        self.endsWhile("waits", self.terminate)

    def testEndsWhenClosedWhileThePortalHangs(self):
        self.endsWhile("hangs", self.close)

    def testEndsWhenTerminatedWhileThePortalHangs(self):
        self.endsWhile("hangs", self.terminate)

    def testEndsWhenClosedWithTheToolkitsPanelOpen(self):
        self.endsWhile(None, self.close)

    def testEndsWhenClosedWhileItSaysWhatItWaitsFor(self):
        self.usePortal("waits")
        self.openPanel()
        self.notice()
        self.close()
        self.assertEqual(self.program.process.wait(5), 0)


if __name__ == "__main__":
    case.main()
