"""What a session leaves in the home folder: the renamed project and nothing else, on every desktop."""

import os
import re
import subprocess
from pathlib import Path

import case


class HomeTest(case.WindowTest):
    calls = (
        "?open,openat,?creat,?mkdir,mkdirat,?mknod,mknodat,?rename,?renameat,renameat2,?link,linkat,?symlink,symlinkat,"
        "?unlink,unlinkat,?rmdir,truncate,?chmod,fchmodat,?utimes,utimensat"
    )
    # The desktop's folder is above the one that its programs start in.
    before = ("strace", "-D", "-f", "-y", "--seccomp-bpf", "-qq", "-s", "4096", "-e", f"trace={calls}", "-o", "../calls")

    def home(self):
        return sorted(
            (str(path), path.lstat().st_mtime_ns)
            for path in self.desktop.home.rglob("*")
            if not path.is_relative_to(self.folder)
        )

    def cancel(self):
        self.program.find("button", "Select Folder").click()
        self.ownPanel()
        self.program.key("Escape")
        self.program.waitUntilGone("dialog")

    def session(self):
        """Cancels a panel, chooses a folder and renames. Returns what the program itself wrote elsewhere at home."""
        self.cancel()
        self.choose(self.folder)
        self.openSheet("Blue Hour")
        self.program.type("Green Hour")
        self.program.key("Return")
        self.program.find("button", "Rename Green Hour")
        self.program.key("alt+F4")
        self.assertEqual(self.program.process.wait(10), 0)
        written = set(self.written())
        self.assertIn(self.folder / "Green Hour.xpj", written, "what the trace must tell of")
        return {path for path in written if path.is_relative_to(self.desktop.home) and not path.is_relative_to(self.folder)}

    def written(self):
        """The paths of all successful calls that change something."""
        for line in (self.desktop.folder / "calls").read_text(errors="surrogateescape").splitlines():
            opens = re.match(r"\d+ +(?:open|openat)\(", line)
            if " = -1 " in line or opens and not re.search("O_(WRONLY|RDWR|CREAT|TRUNC|APPEND)", line):
                continue
            for folder, name in re.findall(r'(?:<([^>]*)>, )?"((?:[^"\\]|\\.)*)"', line):
                yield Path(os.path.join(folder or self.desktop.home, name))

    def assertLoaded(self, library):
        self.assertIn(library, Path(f"/proc/{self.program.process.pid}/maps").read_text())


class NoDesktop(HomeTest):
    environment = {"XDG_CURRENT_DESKTOP": "", "KDE_SESSION_VERSION": ""}

    def testIsLeftUntouched(self):
        before = self.home()
        self.assertEqual(self.session(), set())
        self.assertEqual(self.home(), before)


class GtkDesktop(HomeTest):
    environment = {"XDG_CURRENT_DESKTOP": "GNOME"}

    def testIsLeftUntouched(self):
        self.assertLoaded("libqgtk3.so")
        before = self.home()
        self.assertEqual(self.session(), set())
        self.assertEqual(self.home(), before)

    def testIsNotGivenTheFolderThatIsTyped(self):
        self.program.find("button", "Select Folder").click()
        self.typeFolder(f"{self.folder}/New/")
        # If the first key had been taken, there would be no panel left for the second.
        self.program.key("Return", "Escape")
        self.program.waitUntilGone("dialog")
        self.assertFalse((self.folder / "New").exists())


class PortalDesktop(HomeTest):
    environment = {"XDG_CURRENT_DESKTOP": "GNOME"}
    portal = True

    def title(self):
        """The title of the active window; None if no window is active."""
        try:
            return self.desktop.input("getactivewindow", "getwindowname").strip()
        except subprocess.CalledProcessError:
            return None

    def waitForTitle(self, title):
        self.program.waitFor(lambda: self.title() == title, f"the active window {title!r}", timeout=30)

    def openPanel(self):
        self.program.find("button", "Select Folder").click()
        self.waitForTitle("Select the folder containing your MPC projects")
        self.desktop.stillPicture(0.5)

    def cancel(self):
        self.openPanel()
        self.program.key("Escape")
        self.waitForTitle("Tarvolt")

    def choose(self, folder):
        self.openPanel()
        # A slash opens its field for a path, which takes some time.
        self.program.type("/")
        self.desktop.stillPicture(0.5)
        self.program.type(str(folder)[1:])
        self.desktop.stillPicture(0.5)
        # The first Return may take what the field offers to complete the path.
        panel = self.title()

        def confirmed():
            if self.title() == panel:
                self.program.key("Return")
                self.desktop.stillPicture(0.5)
            return self.title() == "Tarvolt"

        self.program.waitFor(confirmed, "the chosen folder", timeout=30)

    def testIsWrittenToOnlyByThePortal(self):
        self.assertEqual(self.session(), set())

    def testTreatsAPanelClosedByItsFrameAsCancelled(self):
        self.openPanel()
        self.program.key("alt+F4")
        self.waitForTitle("Tarvolt")
        self.program.waitUntilGone("dialog")
        self.openPanel()


if __name__ == "__main__":
    case.main()
