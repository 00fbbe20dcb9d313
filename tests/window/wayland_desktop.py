"""A desktop like that of desktop.py, but with a Wayland compositor without a screen. Every window is in the upper left
corner and has no frame: a program is not told where its windows are and counts from the corner of the screen."""

import json
import os
import shutil
import socket
import struct
import subprocess
import time

from desktop import Desktop, waitFor
from picture import Picture
from virtual_input import VirtualInput

needed = ("sway", "grim")

configuration = """xwayland disable
output * resolution {width}x{height} scale {scale}
default_border none
default_floating_border none
focus_follows_mouse no
for_window [app_id="tarvolt"] floating enable, move absolute position 0 0
bindsym Mod1+F4 kill
# Saves tests from holding a key for long.
input * repeat_delay 200
"""


def missing():
    """Why there can be no such desktop here; None if there can."""
    absent = [name for name in needed if shutil.which(name) is None]
    return f"there is no {' and no '.join(absent)}" if absent else None


class WaylandDesktop(Desktop):
    """The size is in pixels. At a scale of 2 a program's windows take twice as many of them."""

    def __init__(self, *arguments, scale=1):
        super().__init__(*arguments)
        self.scale = scale
        self.compositor = self.folder / "compositor"
        self.environment.update(
            QT_QPA_PLATFORM="wayland",
            WAYLAND_DISPLAY=str(self.compositor / "wayland-1"),
            SWAYSOCK=str(self.compositor / "commands"),
        )

    def close(self):
        if hasattr(self, "devices"):
            self.devices.close()
        super().close()

    def keyDown(self, name):
        self.devices.keyDown(name)

    def keyUp(self, name):
        self.devices.keyUp(name)

    def key(self, *names):
        for name in names:
            self.keyDown(name)
            self.keyUp(name)
            time.sleep(0.02)

    def type(self, text):
        self.key(*text)

    def point(self, x, y):
        self.devices.point(x, y)

    def click(self):
        self.devices.click()

    def grab(self):
        image = subprocess.run(
            ["grim", "-t", "ppm", "-"], env=self.environment, check=True, capture_output=True, timeout=30
        ).stdout
        _, size, _, pixels = image.split(b"\n", 3)
        width, height = map(int, size.split())
        rows = bytearray(4 * width * height)
        rows[0::4], rows[1::4], rows[2::4] = pixels[2::3], pixels[1::3], pixels[0::3]
        return Picture(width, height, [bytes(rows[y : y + 4 * width]) for y in range(0, len(rows), 4 * width)])

    def activeWindow(self, process):
        return next((each["id"] for each in self.windows() if each["focused"] and each["pid"] == process), None)

    def widthOf(self, window):
        return next(each["rect"]["width"] for each in self.windows() if each["id"] == window) * self.scale

    def windows(self):
        """All windows as the compositor describes them."""

        def leaves(node):
            below = node["nodes"] + node["floating_nodes"]
            return [leaf for each in below for leaf in leaves(each)] if below else [node]

        return [each for each in leaves(self.ask(4)) if each.get("pid")]

    def command(self, words):
        """Has the compositor carry out a command of its configuration."""
        for answer in self.ask(0, words):
            if not answer["success"]:
                raise RuntimeError(f"{words}: {answer}")

    def ask(self, kind, words=""):
        """The compositor's answer to a message of this kind."""
        with socket.socket(socket.AF_UNIX) as connection:
            connection.settimeout(15)
            connection.connect(self.environment["SWAYSOCK"])
            connection.sendall(b"i3-ipc" + struct.pack("=II", len(words.encode()), kind) + words.encode())
            with connection.makefile("rb") as answers:
                length, _ = struct.unpack("=6xII", answers.read(14))
                return json.loads(answers.read(length))

    def _startDisplay(self):
        width, height = self.size
        settings = self.folder / "compositor.conf"
        settings.write_text(configuration.format(width=width, height=height, scale=self.scale))
        self.compositor.mkdir(mode=0o700)
        asUser = []
        if os.geteuid() == 0:
            # It does not run as root.
            shutil.chown(self.compositor, "nobody")
            self.folder.chmod(0o711)
            asUser = ["setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups"]
        itsOwn = {
            "XDG_RUNTIME_DIR": self.compositor,
            "WLR_BACKENDS": "headless",
            "WLR_RENDERER": "pixman",
            "WLR_LIBINPUT_NO_DEVICES": "1",
        }
        variables = [f"{name}={value}" for name, value in itsOwn.items()]
        without = ["-u", "WAYLAND_DISPLAY"]
        self.start([*asUser, "env", *without, *variables, "sway", "--config", settings])
        waitFor(lambda: self._answers(), "a compositor")
        self.devices = VirtualInput(self.environment["WAYLAND_DISPLAY"], self.size, self.characters)

    def _answers(self):
        try:
            return self.ask(4)
        except OSError:
            return None

    def _startWindowManager(self):
        """The compositor is the window manager."""
