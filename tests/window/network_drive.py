"""The projects are on a network drive, by sshfs, whose server stops answering during a scan. Neither the window nor its
end waits for it. Needs root and the packages of the group "disks"; without them it is skipped.
"""

import signal
import sys
import tempfile
import unittest
from pathlib import Path

import case
import sample
from desktop import waitFor

sys.path.append(str(Path(__file__).parents[1] / "faults"))
from disks import Disk  # noqa: E402  the path must be known first
from processes import Unavailable  # noqa: E402


class NetworkDrive(case.WindowTest):
    def setUp(self):
        work = self.enterContext(tempfile.TemporaryDirectory(prefix="tarvolt-drive-"))
        try:
            self.drive = self.enterContext(Disk("sshfs", work))
            self.drive.options = ["dir_cache=no"]  # every listing asks the server
            self.drive.mount()
        except Unavailable as reason:
            raise unittest.SkipTest(f"sshfs cannot be had here: {reason}")
        super().setUp()
        sample.make(Path(work) / "served/Projects")
        self.choose(Path(self.drive.folder) / "Projects")
        self.scans(1)

    def answer(self):
        self.drive.server.signal(signal.SIGCONT)

    def scanWithoutAnswer(self):
        self.drive.server.signal(signal.SIGSTOP)
        self.addCleanup(self.answer)
        self.program.find("button", "Rescan").click()
        self.program.find("notification", "Scanning...")

    def testDelaysNeitherTheWindowNorItsClosing(self):
        self.scanWithoutAnswer()
        self.answer()
        self.scans(2)
        self.assertEqual(self.rows(), case.names)
        self.scanWithoutAnswer()
        self.program.key("alt+F4")
        waitFor(lambda: not self.program.activeWindow(), "the end of the window", 2)
        # The kernel keeps an ended process in its list while a call of it waits for the drive.
        status = Path(f"/proc/{self.program.process.pid}/status")
        waitFor(lambda: "State:\tZ" in status.read_text(), "the end of the program", 2)
        self.answer()
        self.assertEqual(self.program.process.wait(5), 0)


if __name__ == "__main__":
    case.main()
