"""The whole way with a screen reader: from the first folder to the empty state by keys alone, with what Orca says after
each key. It has no voice here; its debug log tells. This is no test: a person reads what it prints.

    screen_reader.py PROGRAM [LOG]      keeps Orca's whole debug log as LOG
"""

import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

import sample
from desktop import Desktop, waitFor
from driver import Program

# Distinguishes its own words from the keys that it echoes: there is no space between the words and the voice.
utterance = re.compile(r"^\S+ - SPEECH OUTPUT: '(.*?)'(?: voice=\w+)?( ?)[{\[]", re.MULTILINE | re.DOTALL)


class Orca:
    """The screen reader on a desktop."""

    # The command that would start its voice.
    environment = {"SPEECHD_CMD": "/bin/false"}

    def __init__(self, desktop):
        self.log = desktop.folder / "orca.log"
        self.read = 0
        settings = desktop.home / ".local/share/orca"
        settings.mkdir(parents=True)
        # Orca runs this when it starts. The log is read while Orca writes it.
        (settings / "orca-customizations.py").write_text(
            "from orca import debug\ndebug.debugFile.reconfigure(line_buffering=True)\n"
        )
        desktop.start(["orca", "--disable", "braille", "--debug", "--debug-file", str(self.log)])
        waitFor(lambda: self.log.exists() and "ORCA: Starting registry" in self.log.read_text(), "Orca", timeout=60)

    def said(self, silence=1.5):
        """What it has said since the last call, once it has been idle for this many seconds."""
        size, since = -1, time.monotonic()
        while time.monotonic() - since < silence:
            if size != self.log.stat().st_size:
                size, since = self.log.stat().st_size, time.monotonic()
            time.sleep(0.05)
        text = self.log.read_text(errors="replace")
        new, self.read = text[self.read :], len(text)
        lines = []
        for words, ofKey in utterance.findall(new):
            words = " ".join(words.split())
            if ofKey and lines and lines[-1].startswith("key: "):
                lines[-1] += f" {words}"
            else:
                lines.append(f"key: {words}" if ofKey else words)
        return lines


class Way:
    def __init__(self, program, orca):
        self.program, self.orca = program, orca

    def tell(self, what):
        print(what, *(f"    {line}" for line in self.orca.said()), sep="\n", flush=True)

    def press(self, *keys):
        for key in keys:
            self.program.key(key)
            self.tell(key)

    def type(self, text):
        self.program.type(text)
        self.tell(f'"{text}"')

    def choose(self, folder):
        self.press("Return")
        self.type(str(folder))
        self.press("Return")

    def go(self, folder, emptyFolder):
        self.tell("(the program starts)")
        self.press("Tab")
        self.choose(folder)
        self.press("Down", "Down", "End", "Home")
        self.press("shift+Tab", "shift+Tab", "shift+Tab", "space", "Tab", "Tab")
        self.type("sketch")
        self.press("Tab", "Tab", "Left", "Tab", "Down", "shift+Tab", "shift+Tab", "Return")
        self.type("Blue Hour")
        self.press("Return", "Return", "ctrl+a")
        self.type("Sketch 015")
        self.press("Tab", "Tab", "Return", "Return", "Escape")
        self.press("shift+Tab", "ctrl+a", "BackSpace", "shift+Tab")
        self.choose(emptyFolder)
        self.press("shift+Tab", "shift+Tab")


if __name__ == "__main__":
    if not shutil.which("orca"):
        sys.exit("Orca is missing: apt-get install --no-install-recommends orca")
    with Desktop(environment=Orca.environment) as desktop:
        folder, emptyFolder = desktop.home / "Projects", desktop.home / "Empty"
        sample.make(folder)
        emptyFolder.mkdir()
        orca = Orca(desktop)
        try:
            # The toolkit complains about each key that it had to wait for.
            with Program(desktop, Path(sys.argv[1]).resolve(), errorOutput=subprocess.DEVNULL) as program:
                Way(program, orca).go(folder, emptyFolder)
        finally:
            if len(sys.argv) > 2:
                shutil.copy(orca.log, sys.argv[2])
