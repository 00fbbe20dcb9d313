"""What a desktop reads about the program is valid, and is installed where desktops look for it."""

import configparser
import os
import re
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

project = Path(__file__).resolve().parents[2]
packaging = project / "packaging"


def size(picture):
    """The width and height of a PNG, which begins with its signature and the length and name of its first part."""
    return struct.unpack(">II", picture.read_bytes()[16:24])


def said(*command):
    """All that the command writes apart from its result, and its exit status."""
    environment = {**os.environ, "LC_ALL": "C.UTF-8", "MANROFFSEQ": "", "MANWIDTH": "80"}
    result = subprocess.run(command, capture_output=True, text=True, timeout=30, env=environment)
    return result.stdout, result.stderr, result.returncode


class Desktop(unittest.TestCase):
    def testEntryIsValid(self):
        self.assertEqual(said("desktop-file-validate", packaging / "tarvolt.desktop"), ("", "", 0))

    def testMetainfoIsValid(self):
        out, _, status = said("appstreamcli", "validate", "--pedantic", "--no-net", packaging / "tarvolt.metainfo.xml")
        # The file gives the reasons.
        expected = {
            "cid-maybe-not-rdns",
            "developer-name-tag-deprecated",
            "developer-info-missing",
        }
        self.assertEqual(status, 0, out)
        self.assertEqual(set(re.findall(r"^[A-Z]: \S+ (\S+)", out, re.MULTILINE)) - expected, set(), out)

    def testScreenshotsAreThePicturesOfTheProject(self):
        metainfo = ElementTree.parse(packaging / "tarvolt.metainfo.xml")
        images = metainfo.findall("screenshots/screenshot/image")
        self.assertGreater(len(images), 0)
        for image in images:
            home, picture = image.text.split("docs/", 1)
            self.assertEqual(home, metainfo.findtext("url[@type='homepage']"))
            shown = size(project / "docs" / picture)
            self.assertEqual(shown, (int(image.get("width")), int(image.get("height"))), picture)

    def testManualPageHasNoWarnings(self):
        page, warnings, status = said("man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", packaging / "tarvolt.1")
        self.assertEqual((warnings, status), ("", 0))
        self.assertGreater(len(page), 0)

    def testFilesAreInstalledWhereDesktopsLookForThem(self):
        with tempfile.TemporaryDirectory() as folder:
            install = [os.environ["CMAKE"], "--install", os.environ["BUILD"], "--prefix", folder]
            subprocess.run(install, check=True, stdout=subprocess.DEVNULL)
            share = Path(folder, "share")
            id = ElementTree.parse(packaging / "tarvolt.metainfo.xml").findtext("id")
            for file in ("applications/tarvolt.desktop", f"metainfo/{id}.metainfo.xml", "man/man1/tarvolt.1"):
                self.assertTrue((share / file).is_file(), file)
            entry = configparser.RawConfigParser()
            entry.read(share / "applications/tarvolt.desktop")
            self.assertTrue(os.access(f"{folder}/bin/{entry['Desktop Entry']['Exec']}", os.X_OK))
            icons = share / "icons/hicolor"
            name = entry["Desktop Entry"]["Icon"]
            for file in (f"scalable/apps/{name}.svg", f"symbolic/apps/{name}-symbolic.svg"):
                self.assertTrue((icons / file).is_file(), file)
            sizes = {}
            for file in icons.glob(f"*/apps/{name}.png"):
                sizes[file.parts[-3]] = "{}x{}".format(*size(file))
            self.assertEqual(sizes, {size: size for size in sizes})
            self.assertLessEqual({"16x16", "32x32", "48x48", "256x256"}, set(sizes))


if __name__ == "__main__":
    unittest.main()
