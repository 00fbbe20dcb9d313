"""A desktop of its own for a program: virtual display, window manager, session and accessibility bus, home folder."""

import ctypes
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

from picture import Screen

_libc = ctypes.CDLL(None)

# What the platform's theme is told: window, base (lists and fields), text, selection.
palettes = {
    "light": ("239,239,239", "255,255,255", "0,0,0", "61,174,233"),
    "dark": ("36,36,36", "30,30,30", "255,255,255", "61,174,233"),
}


class Desktop:
    """Use it in a `with`: it ends what it started and removes its folder. One at a time in a process, for the
    accessibility library connects once. Its keyboard has the keys of an American one and one more for each of
    `characters`. On its session bus only accessibility can be started, with `portal` also whatever else is installed
    here, which the portal needs."""

    def __init__(self, palette="light", size=(1280, 900), fontSize=10, characters="", environment=None, portal=False):
        self.folder = Path(tempfile.mkdtemp(prefix="tarvolt-"))
        self.home = self.folder / "mara"
        self.runtime = self.folder / "runtime"
        self.size = size
        self.characters = characters
        self.portal = portal
        self.started = []
        self.environment = {
            "PATH": "/usr/bin:/bin",
            "HOME": str(self.home),
            "LANG": "C.UTF-8",
            "XDG_RUNTIME_DIR": str(self.runtime),
            # The toolkit reads palette and fonts from this desktop's settings without further packages.
            "XDG_CURRENT_DESKTOP": "KDE",
            "KDE_SESSION_VERSION": "5",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            # GTK, where it gives the theme, would put a tree of its own beside the program's.
            "NO_AT_BRIDGE": "1",
            "QT_QPA_PLATFORM": "xcb",
            # It complains on standard error of whoever asks for something that has just vanished.
            "QT_LOGGING_RULES": "qt.accessibility.atspi=false",
            **(environment or {}),
        }
        # ASAN_OPTIONS is not among them, because the X11 libraries do not pass its strict checks of strings.
        for name in ("TZ", "LSAN_OPTIONS", "UBSAN_OPTIONS"):
            if name in os.environ:
                self.environment.setdefault(name, os.environ[name])
        self.home.mkdir()
        self.runtime.mkdir(mode=0o700)
        self._writeSettings(palette, fontSize)

    def __enter__(self):
        try:
            self._startDisplay()
            self._startBus()
            self._startWindowManager()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    def start(self, command, **options):
        """Starts a program on this desktop; it is ended with the desktop at the latest, also where this process is
        killed."""
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen(
            command,
            env=self.environment,
            cwd=self.home,
            stdin=subprocess.DEVNULL,
            start_new_session=True,
            preexec_fn=_endWithParent,
            **options,
        )
        self.started.append(process)
        return process

    def close(self):
        for process in reversed(self.started):
            end(process)
        shutil.rmtree(self.folder, ignore_errors=True)

    def input(self, *words):
        """Real mouse and key events: a command line of xdotool; returns what it prints."""
        return subprocess.run(
            ["xdotool", *map(str, words)], env=self.environment, check=True, capture_output=True, text=True, timeout=30
        ).stdout

    def key(self, *names):
        """Presses keys as xdotool names them, one after the other: "Return", "ctrl+a"."""
        self.input("key", "--delay", "20", *names)

    def keyDown(self, name):
        """Presses a key and leaves it down."""
        self.input("keydown", name)

    def keyUp(self, name):
        self.input("keyup", name)

    def type(self, text):
        """Presses the keys of a text."""
        self.input("type", "--delay", "12", "--", text)

    def point(self, x, y):
        """Moves the mouse to a pixel of the screen."""
        self.input("mousemove", x, y)

    def click(self):
        self.input("click", "1")

    def activeWindow(self, process):
        """The active window's number, if it is one of this process, else None."""
        try:
            window = self.input("getactivewindow").strip()
            owner = self.input("getwindowpid", window).strip()
        except subprocess.CalledProcessError:
            return None
        return window if owner == str(process) else None

    def widthOf(self, window):
        """In pixels."""
        return int(re.search(r"WIDTH=(\d+)", self.input("getwindowgeometry", "--shell", window))[1])

    def grab(self):
        """A Picture of the screen as it is now."""
        return self.screen.grab()

    def stillPicture(self, seconds):
        """The screen once it has been the same for so long."""
        last, since = self.grab(), time.monotonic()

        def still():
            nonlocal last, since
            picture = self.grab()
            if picture != last:
                last, since = picture, time.monotonic()
            return time.monotonic() - since >= seconds

        waitFor(still, "a picture that stands still")
        return last

    def _writeSettings(self, palette, fontSize):
        window, base, text, selection = palettes[palette]
        config = self.home / ".config"
        (config / "fontconfig").mkdir(parents=True)
        (config / "fontconfig/fonts.conf").write_text(
            '<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig>'
            "<alias binding='same'><family>sans-serif</family><prefer><family>Inter</family></prefer></alias>"
            "<alias binding='same'><family>monospace</family><prefer><family>JetBrains Mono</family></prefer></alias>"
            "</fontconfig>"
        )
        colours = {"Window": window, "View": base, "Button": window, "Tooltip": base}
        sections = [
            f"[Colors:{name}]\nBackgroundNormal={background}\nForegroundNormal={text}\n"
            for name, background in colours.items()
        ]
        sections.append(f"[Colors:Selection]\nBackgroundNormal={selection}\nForegroundNormal=255,255,255\n")
        sections.append("[KDE]\nCursorBlinkRate=0\nSingleClick=false\n")
        regular = f"{fontSize},-1,5,50,0,0,0,0,0"
        sections.append(f"[General]\nfont=Inter,{regular}\nfixed=JetBrains Mono,{regular}\n")
        (config / "kdeglobals").write_text("\n".join(sections))

    def _startDisplay(self):
        reading, writing = os.pipe()
        width, height = self.size
        server = self.start(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{width}x{height}x24", "-fbdir", str(self.folder)]
            + ["-nolisten", "tcp", "-noreset"],
            pass_fds=[writing],
        )
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError(f"Xvfb did not start (status {server.wait()})")
        self.environment["DISPLAY"] = f":{number}"
        self.screen = Screen(self.folder / "Xvfb_screen0")
        if self.characters:
            self._addKeys()

    def _addKeys(self):
        """Puts the further characters on keys that no keyboard has, before anyone has asked which keys there are."""
        codes = range(208, 256)
        if len(self.characters) > len(codes):
            raise ValueError(f"there are {len(codes)} spare keys, not {len(self.characters)}")
        display = self.environment["DISPLAY"]
        command = ["xkbcomp", "-w", "0"]
        options = {"env": self.environment, "check": True, "text": True}
        map = subprocess.run([*command, display, "-"], capture_output=True, **options).stdout
        map = re.sub(r"(?m)^\s*key <I2\d\d> .*\n", "", map)
        keys = "".join(f"    key <I{code}> {{ [ U{ord(each):04X} ] }};\n" for code, each in zip(codes, self.characters))
        map = re.sub(r'(?m)^xkb_symbols ".*" \{\n', lambda head: head[0] + keys, map)
        subprocess.run([*command, "-", display], input=map, **options)

    def _startBus(self):
        configuration = Path("/usr/share/dbus-1/session.conf")
        if not self.portal:
            services = self.folder / "services"
            services.mkdir()
            (services / "org.a11y.Bus.service").symlink_to("/usr/share/dbus-1/services/org.a11y.Bus.service")
            everything, few = "<standard_session_servicedirs />", f"<servicedir>{services}</servicedir>"
            text = configuration.read_text().replace(everything, few)
            configuration = self.folder / "session.conf"
            configuration.write_text(text)
        bus = self.start(
            ["dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile", "--print-address=1"],
            stdout=subprocess.PIPE,
            text=True,
        )
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()

    def _startWindowManager(self):
        self.start(["openbox", "--sm-disable"])
        waitFor(self._numberOfDesktops, "a window manager")
        # At the first key the window manager takes all its keys anew, and one that is pressed meanwhile passes it by.
        # It does what it is asked in turn: once it has done the last, it is ready.
        self.input("key", "Alt_L")
        self.input("click", "1")
        self.input("set_num_desktops", "1")
        waitFor(lambda: self._numberOfDesktops() == "1", "a window manager that is ready")

    def _numberOfDesktops(self):
        """None while nobody manages any."""
        try:
            return self.input("get_num_desktops").strip()
        except subprocess.CalledProcessError:
            return None


def _endWithParent():
    parentDeathSignal = 1
    _libc.prctl(parentDeathSignal, signal.SIGTERM)


def waitFor(condition, what, timeout=15.0, pause=0.02):
    """Returns the first true value that `condition` gives; fails when that takes longer than `timeout` seconds."""
    deadline = time.monotonic() + timeout
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise TimeoutError(f"waited {timeout:g} s in vain for {what}")
        time.sleep(pause)


def end(process):
    """Ends a process and those it started, politely at first."""
    for number in (signal.SIGTERM, signal.SIGKILL):
        try:
            os.killpg(process.pid, number)
        except ProcessLookupError:
            pass
        try:
            return process.wait(timeout=3)
        except subprocess.TimeoutExpired:
            continue
