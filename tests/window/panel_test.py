"""The toolkit's own folder panel, for desktops that offer none: it can choose a folder and do nothing else."""

import subprocess
import unittest

import case


class OwnPanel(case.WindowTest):
    environment = {"LANG": "de_DE.UTF-8"}
    # The toolkit warns if this locale is not installed.
    toolkitsWords = case.WindowTest.toolkitsWords + '|Detected locale "C"(?:.*\\n){4}'

    def setUp(self):
        super().setUp()
        self.program.find("button", "Select Folder").click()
        self.panel = self.ownPanel()

    def words(self, role):
        return [each.name for each in self.panel.descendants() if each.showing and each.role == role]

    def listed(self):
        files = next(each for each in self.panel.descendants() if each.role in ("tree", "tree table") and each.showing)
        return [each for each in files.children() if each.showing]

    def folderItem(self, name):
        return self.program.waitFor(lambda: next((each for each in self.listed() if each.name == name), None), name)

    def testChangesNothingOnDiskByMenuOrKey(self):
        before = self.disk()
        item = self.folderItem("Projects")
        item.click()
        x, y, width, height = item.box
        self.desktop.input("mousemove", x + width // 2, y + height // 2, "click", "3")
        self.desktop.stillPicture(0.5)
        self.assertEqual(self.program.elements("menu item"), [])
        item.click()
        self.program.key("Delete", "F2", "ctrl+shift+n")
        self.desktop.stillPicture(0.5)
        self.assertEqual(self.program.elements("alert"), [])
        self.assertEqual(len(self.program.elements("text")), 1)
        self.program.key("Escape")
        self.program.waitUntilGone("dialog")
        self.assertDisk(before)

    def testShowsNothingUselessAndSpeaksTheWindowsLanguage(self):
        self.assertEqual(self.words("button"), ["Back", "Forward", "Parent Directory", "Select Folder", "Cancel"])
        labels = ["Look in:", "Directory:", "Select the folder containing your MPC projects"]
        self.assertEqual(self.words("label"), labels)
        self.assertEqual(self.words("table column header"), [])

    def testExposesEveryFolderOnce(self):
        names = [f"Folder {index}" for index in range(5)]
        for name in names:
            (self.desktop.home / name).mkdir()
        expected = [*names, "Projects"]
        self.program.waitFor(lambda: [each.name for each in self.listed()] == expected, "every folder once")

    def testSelectsInTheProgramsColour(self):
        item = self.folderItem("Projects")
        item.click()
        x, y, _, height = item.box
        self.desktop.input("mousemove", 0, 0)
        self.assertEqual(self.desktop.stillPicture(0.3).pixel(x + 1, y + height // 2), "#c94e00")

    def testSaysThatThereIsNoFolderOfTheTypedNameAndStaysOpen(self):
        self.typeFolder(self.folder / "Missing")
        self.program.key("Return")
        refusal = "There is no folder of that name."
        self.program.find("label", refusal)
        self.assertEqual(self.program.focused().description, refusal)
        self.assertEqual(self.program.elements("alert"), [])
        self.program.type("/")
        self.program.waitUntilGone("label", refusal)
        self.program.find("dialog", "Select Folder")

    def testTakesAFolderWithQuotationMarksInItsName(self):
        named = self.desktop.home / 'My "Live" Set'
        self.folder.rename(named)
        self.typeFolder(named)
        self.program.key("Return")
        self.program.find("label", str(named))


def canMount():
    return subprocess.run(["unshare", "--mount", "true"], capture_output=True).returncode == 0


onlyWithMounts = unittest.skipUnless(
    canMount(), "a card can be mounted for the program alone by root only, and not in a changed root")


def places(program):
    program.find("button", "Select Folder").click()
    return [place.name for place in program.find("list", "Sidebar").children()]


@onlyWithMounts
class OwnPanelWithACard(case.WindowTest):
    card = "/media/mara/SD CARD"
    # The panel must not offer the system's own mount, the network drive and the folder of all cards.
    mounts = (("/dev/disk", "/media"), ("/dev/card", card), ("/dev/disk", "/boot"), ("server:/share", "/mnt"))
    commands = [f"mkdir -p '{place}' && mount -t tmpfs {device} '{place}' && " for device, place in mounts]
    before = ("unshare", "--mount", "sh", "-c", "".join(commands) + 'exec "$0"')

    def testOffersOnlyHomeAndTheCard(self):
        self.assertEqual(places(self.program), ["mara", "SD CARD"])


@onlyWithMounts
class OwnPanelWithoutAListOfMounts(case.WindowTest):
    # The list is in /proc, which not every system has.
    before = ("unshare", "--mount", "sh", "-c", 'mount -t tmpfs none /proc && exec "$0"')

    def testOffersOnlyHome(self):
        self.assertEqual(places(self.program), ["mara"])


if __name__ == "__main__":
    case.main()
