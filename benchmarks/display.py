"""A display of its own, with the memory it draws in, so that a window's first picture can be seen from outside."""

import contextlib
import mmap
import os
import re
import signal
import subprocess
import tempfile
import time
from pathlib import Path

WIDTH, HEIGHT = 1280, 900
PIXEL = 4  # bytes


class Display:
    """Where the programs of this process open their windows, one at a time, with no window manager."""

    def __init__(self, screen):
        self.screen = screen

    def pixels(self):
        """Every 97th pixel, so from all rows and columns."""
        return memoryview(self.screen[-WIDTH * HEIGHT * PIXEL:]).cast("I")[::97]

    def begin(self, command):
        """Starts a program and waits for its first picture; the process, and the milliseconds since its start.

        A picture has text in it, and so more colours than a bare window.
        """
        while len(set(self.pixels())) > 1:
            time.sleep(0.01)
        begun = time.monotonic()
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, start_new_session=True)
        while len(set(self.pixels())) < 16:
            if time.monotonic() - begun > 30:
                raise TimeoutError(f"{command[0]} shows nothing")
            time.sleep(0.001)
        return process, (time.monotonic() - begun) * 1e3

    def first_picture(self, *command):
        """Milliseconds from the start of a program to its first picture."""

        def run():
            process, milliseconds = self.begin(command)
            end(process)
            return milliseconds

        return run

    def peak_memory(self, *command):
        """The most memory a program has held once it shows its first picture, in MiB."""
        process, _ = self.begin(command)
        time.sleep(0.5)
        status = Path(f"/proc/{process.pid}/status").read_text()
        end(process)
        return int(re.search(r"VmHWM:\s*(\d+)", status)[1]) / 1024


def end(process):
    os.killpg(process.pid, signal.SIGKILL)
    process.wait()


@contextlib.contextmanager
def display():
    """A display, a message bus and an empty home, which the programs find in their environment."""
    reader, writer = os.pipe()
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as memory:
        for folder in "HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR", "XDG_STATE_HOME":
            os.environ[folder] = memory
        # The server would reset whenever its last program ends, and the next one would wait for that.
        server = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{WIDTH}x{HEIGHT}x24",
                                   "-nolisten", "tcp", "-nocursor", "-noreset", "-fbdir", memory],
                                  pass_fds=[writer], stderr=subprocess.DEVNULL)
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"], stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, text=True)
        os.close(writer)
        try:
            with open(reader) as name:
                os.environ["DISPLAY"] = ":" + name.readline().strip()
            os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
            with open(Path(memory) / "Xvfb_screen0", "rb") as file:
                yield Display(mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ))
        finally:
            for helper in server, bus:
                helper.terminate()
                helper.wait()
