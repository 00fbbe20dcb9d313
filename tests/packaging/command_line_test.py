"""The command line answers before the toolkit starts. The program's path comes from the environment (TARVOLT)."""

import os
import subprocess
import unittest


def run(*arguments, output=subprocess.PIPE):
    # With this platform, the toolkit would end the program with an error and a status of its own.
    environment = {**os.environ, "QT_QPA_PLATFORM": "none-of-this-name"}
    result = subprocess.run(
        [os.environ["TARVOLT"], *arguments], env=environment, stdout=output, stderr=subprocess.PIPE, text=True, timeout=30
    )
    return result.returncode, result.stdout, result.stderr


class CommandLine(unittest.TestCase):
    def testShowsHelpWithoutADisplay(self):
        status, output, errors = run("--help")
        self.assertEqual((status, errors), (0, ""))
        self.assertRegex(output, r"^Usage: tarvolt \[--help \| --version\]\n")

    def testShowsTheVersionOfTheProjectWithoutADisplay(self):
        self.assertEqual(run("--version"), (0, f"tarvolt {os.environ['VERSION']}\n", ""))

    def testRefusesEverythingElse(self):
        cases = [["--nonsense"], ["folder"], ["-h"], [""], ["-platform", "offscreen"], ["--version", "x"], ["x", "--help"]]
        for arguments in cases:
            wrong = arguments[1] if arguments[0] == "--version" else arguments[0]
            with self.subTest(arguments=arguments):
                message = f"tarvolt: unexpected argument '{wrong}'; try 'tarvolt --help'\n"
                self.assertEqual(run(*arguments), (2, "", message))

    def testSaysThatTheHelpCouldNotBeWritten(self):
        with open("/dev/full", "w") as full:
            self.assertEqual(run("--help", output=full), (1, None, ""))

    def testStartsTheToolkitWithoutArguments(self):
        status, _, errors = run()
        self.assertNotIn(status, (0, 2))
        self.assertIn("none-of-this-name", errors)


if __name__ == "__main__":
    unittest.main()
