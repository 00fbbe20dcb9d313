"""The version and the packages that are written in more than one file are the same in each."""

import re
import unittest
from pathlib import Path
from xml.etree import ElementTree

project = Path(__file__).resolve().parents[2]


def first(pattern, file):
    return re.search(pattern, (project / file).read_text(encoding="utf-8"), re.MULTILINE).groups()


class Package(unittest.TestCase):
    def testHasTheVersionOfTheProject(self):
        (version,) = first(r"^project\(tarvolt VERSION (\S+)", "CMakeLists.txt")
        debians, day, month, year = first(
            r"\Atarvolt \((.+)\) (?:.*\n)*?^ -- .+>  \w+, (\d+) (\w+) (\d+)", "debian/changelog"
        )
        changelogs, changelogsDate = first(r"^## \[(\S+)\] - (\S+)$", "CHANGELOG.md")
        release = ElementTree.parse(project / "packaging/tarvolt.metainfo.xml").find("releases/release")
        self.assertEqual([debians, changelogs, release.get("version")], [version] * 3)
        months = "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec".split()
        date = f"{year}-{months.index(month) + 1:02}-{int(day):02}"
        self.assertEqual([changelogsDate, release.get("date")], [date] * 2)

    def testIsBuiltWithThePackagesOfTheList(self):
        lines = (project / "packaging/packages.txt").read_text(encoding="utf-8").splitlines()
        listed = {line.split()[1] for line in lines if line.startswith("build ")}
        (field,) = first(r"^Build-Depends:((?:.*\n )*.*)\n", "debian/control")
        # Every Debian package may take the compiler for granted.
        self.assertEqual(set(re.findall(r"[^\s,]+", re.sub(r"\(.*?\)", "", field))) - {"debhelper-compat"}, listed - {"g++"})


if __name__ == "__main__":
    unittest.main()
