"""The shell functions behind ./run and ./test, with system commands replaced by small scripts that record their calls."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path
from shlex import quote

project = Path(__file__).resolve().parents[2]
library = quote(f"{project}/scripts/setup.sh")

packageList = """\
# A comment, and an empty line below.

build cmake
build libold-dev bookworm
build libnew-dev trixie
lint shellcheck
run window-module
"""


class Setup(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.commands = self.folder / "bin"
        self.commands.mkdir()
        # The machine's tools except sudo, apt-get, cmake and the like, which exist only if a test creates them.
        self.tools = self.folder / "tools"
        self.tools.mkdir()
        for tool in ("awk", "bash", "comm", "cp", "env", "grep", "mkdir", "rm", "sed", "sort", "tail", "tr"):
            (self.tools / tool).symlink_to(f"/usr/bin/{tool}")
        self.calls = self.folder / "calls"
        (self.folder / "packages.txt").write_text(packageList)
        self.installed("cmake", "libold-dev", "window-module")
        self.userIs(0)
        self.command("apt-get", "exit 0")
        self.system("debian", "bookworm")

    def command(self, name, body, records=True):
        record = f'printf "%s" {name} >>"{self.calls}"; printf " %s" "$@" >>"{self.calls}"; echo >>"{self.calls}"\n'
        path = self.commands / name
        path.write_text("#!/bin/bash\n" + (record if records else "") + body + "\n")
        path.chmod(0o755)

    def installed(self, *names):
        lines = "".join(f"installed {name}\\n" for name in names)
        self.command("dpkg-query", f"printf '{lines}config-files shellcheck\\n'", records=False)

    def userIs(self, number):
        self.command("id", f"echo {number}", records=False)

    def system(self, name, codeName, version="", basis=""):
        (self.folder / "os-release").write_text(f'PRETTY_NAME="X Y"\nID={name}\nVERSION_CODENAME={codeName}\n'
                                                f'VERSION_ID="{version}"\n{basis}\n')

    def run_(self, script):
        """Runs `script` after sourcing the library; returns status, output and recorded calls."""
        result = subprocess.run(
            ["/bin/bash", "-euo", "pipefail", "-c", f". {library}\n{script}", "./test"],
            cwd=self.folder,
            env={"PATH": f"{self.commands}:{self.tools}", "packageList": "packages.txt", "osRelease": "os-release"},
            stdin=subprocess.DEVNULL,
            capture_output=True,
            text=True,
            timeout=30,
        )
        calls = self.calls.read_text().splitlines() if self.calls.exists() else []
        return result.returncode, result.stdout + result.stderr, calls

    def testNamesThePackagesOfTheGroupsAndTheRelease(self):
        self.assertEqual(self.run_("packagesOf bookworm build run"), (0, "cmake\nlibold-dev\nwindow-module\n", []))
        self.assertEqual(self.run_("packagesOf trixie build")[1], "cmake\nlibnew-dev\n")
        self.assertEqual(self.run_("packagesOf trixie lint")[1], "shellcheck\n")

    def testReadsTheProjectsOwnListForBothReleases(self):
        packages = quote(f"{project}/packaging/packages.txt")
        for release in ("bookworm", "trixie"):
            _, output, _ = self.run_(f"packageList={packages} packagesOf {release} build run drive test lint")
            names = output.split()
            self.assertIn("qt6-declarative-dev", names)
            self.assertEqual(len(names), len(set(names)), f"a package is named twice for {release}")

    def testDoesNothingWhenNothingIsMissing(self):
        self.assertEqual(self.run_("needPackages build run"), (0, "", []))

    def testInstallsOnlyWhatIsMissing(self):
        status, output, calls = self.run_("needPackages build lint")
        self.assertEqual(status, 0, output)
        self.assertEqual(output, "Installing 1 missing packages: shellcheck\n")
        self.assertEqual(calls[0], "apt-get update")
        self.assertRegex(calls[1], r"^apt-get install -y --no-install-recommends .* shellcheck$")
        self.assertEqual(len(calls), 2)

    def testInstallsEvenIfTheListCannotBeRefreshed(self):
        self.command("apt-get", '[ "$1" != update ]')
        self.assertEqual(self.run_("needPackages lint")[0], 0)

    def testUsesSudoOnlyWhenNotRootAndSomethingIsMissing(self):
        self.userIs(1000)
        self.command("sudo", '"$@"')
        self.assertEqual(self.run_("needPackages build"), (0, "", []))
        status, output, calls = self.run_("needPackages lint")
        self.assertEqual(status, 0, output)
        self.assertIn("with sudo: shellcheck", output)
        self.assertEqual([call.split()[0] for call in calls], ["sudo", "apt-get", "sudo", "apt-get"])

    def testSaysWhatToDoWithoutSudo(self):
        self.userIs(1000)
        status, output, calls = self.run_("needPackages lint")
        self.assertEqual((status, calls), (1, []))
        self.assertEqual(
            output,
            "test: packages are missing, and so is sudo; as root, run: "
            "apt-get install --no-install-recommends shellcheck\n",
        )

    def testSaysWhatToDoWhenTheInstallationFails(self):
        self.command("apt-get", '[ "$1" = update ] || { echo "E: Unable to locate package shellcheck"; exit 100; }')
        status, output, _ = self.run_("needPackages lint")
        self.assertEqual(status, 1)
        self.assertIn("E: Unable to locate package shellcheck\n", output)
        self.assertIn("test: the packages could not be installed; see build/packages.log", output)

    def testSaysWhatToDoWhenSudoRefuses(self):
        self.userIs(1000)
        self.command("sudo", 'echo "mara is not in the sudoers file." >&2; exit 1')
        status, output, _ = self.run_("needPackages lint")
        self.assertEqual(status, 1)
        self.assertIn("mara is not in the sudoers file.\n", output)
        self.assertIn("test: the packages could not be installed; see build/packages.log", output)

    def testNamesThePackagesAndStopsOnAnotherDistribution(self):
        for system in (
            ("fedora", "", "42"),
            ("ubuntu", "mantic", "23.10"),
            ("linuxmint", "virginia", "21.3", "UBUNTU_CODENAME=jammy"),
            ("linuxmint", "elsie", "5", "DEBIAN_CODENAME=bullseye"),
            ("debian", "bullseye", "11"),
        ):
            with self.subTest(system):
                self.system(*system)
                status, output, calls = self.run_("needPackages build run; echo went on")
                self.assertEqual((status, calls), (1, []))
                self.assertRegex(output, "^test: packages can be installed on Debian 12 and 13, Ubuntu 24.04, Linux Mint 22 ")
                self.assertRegex(output, ": cmake window-module \n$")

    def testWarnsThatARelativeOfDebianIsUntestedAndContinues(self):
        self.command("apt-cache", '[ "$2" = libnew-dev ]', records=False)
        for system in (
            ("ubuntu", "noble", "24.04"),
            ("ubuntu", "of-the-future", "31.10"),
            ("linuxmint", "wilma", "22", "UBUNTU_CODENAME=noble"),
            ("linuxmint", "faye", "6", "DEBIAN_CODENAME=bookworm"),
            ("linuxmint", "gigi", "7", "DEBIAN_CODENAME=trixie"),
        ):
            with self.subTest(system):
                self.system(*system)
                self.calls.unlink(missing_ok=True)
                status, output, calls = self.run_("needPackages build run; echo went on")
                self.assertEqual(status, 0, output)
                self.assertRegex(output, "^Tarvolt has not been tried on this relative of Debian; ")
                self.assertRegex(output, "Installing 1 missing packages: libnew-dev\nwent on\n$")
                self.assertRegex(calls[1], "^apt-get install .* libnew-dev$")

    def testStopsWhenTheSystemIsUnknown(self):
        (self.folder / "os-release").unlink()
        self.assertEqual(self.run_("needPackages build")[0], 1)

    def testConfiguresAgainOnlyIfThePresetsChangedOrTheFolderMoved(self):
        home = 'echo "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" >build/dev/CMakeCache.txt'
        self.command("cmake", f"mkdir -p build/dev; {home}; : >build/dev/build.ninja")
        presets = self.folder / "CMakePresets.json"
        presets.write_text("{}")
        os.utime(presets, (1, 1))

        def times():
            before = len(self.calls.read_text().splitlines()) if self.calls.exists() else 0
            status, output, calls = self.run_("configure dev")
            self.assertEqual(status, 0, output)
            self.assertIn(output, ("", "Configuring build/dev\n"))
            return calls[before:]

        once = ["cmake --fresh --preset dev"]
        self.assertEqual(times(), once)
        self.assertEqual(times(), [])
        os.utime(presets, (9e9, 9e9))
        self.assertEqual(times(), once)
        os.utime(presets, (1, 1))
        (self.folder / "build/dev/CMakeCache.txt").write_text("CMAKE_HOME_DIRECTORY:INTERNAL=/elsewhere\n")
        self.assertEqual(times(), once)
        # Interrupted halfway.
        (self.folder / "build/dev/CMakeCache.txt").unlink()
        self.assertEqual(times(), once)

    def testShowsWhyTheConfigurationFailed(self):
        self.command("cmake", 'echo "CMake Error: no compiler"; exit 1')
        status, output, _ = self.run_("configure dev; echo went on")
        self.assertEqual(status, 1)
        self.assertIn("CMake Error: no compiler\n", output)
        self.assertNotIn("went on", output)

    def counted(self, ctestStatus, *cases):
        report = "".join(f'<testcase name="x" status="{case}">\n{inner}</testcase>\n' for case, inner in cases)
        (self.folder / "report").write_text(f"<testsuite>\n{report}</testsuite>\n")
        (self.folder / "build/dev").mkdir(parents=True, exist_ok=True)
        self.command("ctest", f'for a; do case $a in */tests.xml) cp report "$a" ;; esac; done; exit {ctestStatus}')
        status, output, _ = self.run_("runTests dev")
        return status, output

    def testCountsTheTests(self):
        passed = ("run", "")
        failed = ("fail", '<failure message=""/>\n')
        skipped = ("notrun", '<skipped message="SKIP_RETURN_CODE=77"/>\n')
        unstarted = ("notrun", '<skipped message="Unable to find executable"/>\n')
        self.assertEqual(self.counted(0, passed, passed), (0, "2 passed, 0 failed\n"))
        self.assertEqual(self.counted(8, passed, failed), (1, "1 passed, 1 failed\n"))
        self.assertEqual(self.counted(0, passed, skipped), (0, "1 passed, 0 failed, 1 skipped\n"))
        self.assertEqual(self.counted(8, passed, unstarted), (1, "1 passed, 1 failed\n"))

    def testFailsWhenNoTestRan(self):
        self.assertEqual(self.counted(0), (1, "0 passed, 0 failed\n"))
        skipped = ("notrun", '<skipped message="SKIP_RETURN_CODE=77"/>\n')
        self.assertEqual(self.counted(0, skipped), (1, "0 passed, 0 failed, 1 skipped\n"))

    def testFailsWhenThereIsNoReport(self):
        self.command("ctest", "exit 1")
        status, output, _ = self.run_("runTests dev")
        self.assertEqual((status, output), (1, "test: ctest ended without a report; its output above shows why\n"))


if __name__ == "__main__":
    unittest.main()
