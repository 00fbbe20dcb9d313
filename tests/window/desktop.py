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

# The colours in the desktop's settings: window, base (lists and fields), text, selection.
palettes = {
    "light": ("239,239,239", "255,255,255", "0,0,0", "61,174,233"),
    "dark": ("36,36,36", "30,30,30", "255,255,255", "61,174,233"),
}


class Desktop:
    """For use in a `with`: it ends what it has started and removes its folder. A process can have one at a time,
    because the accessibility library connects only once. The keyboard has American keys and one more for each of
    `characters`. On the session bus only the accessibility service can be started or, with `portal`, everything that is
    installed here, because the portal needs that."""

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
            # Of this desktop's settings the toolkit reads palette and fonts without additional packages.
            "XDG_CURRENT_DESKTOP": "KDE",
            "KDE_SESSION_VERSION": "5",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            # If GTK provides the theme, it would put a tree of its own beside the program's.
            "NO_AT_BRIDGE": "1",
            "QT_QPA_PLATFORM": "xcb",
            # Without this, it complains on standard error when something is asked for that has just vanished.
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
        """Starts a program on this desktop. It ends no later than the desktop, even if this process is killed."""
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
        """Sends real mouse and key events by an xdotool command line. Returns what it prints."""
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

    def numbers(self, window, name):
        """The numbers in a property of a window; none if the window does not have it."""
        command = ["obxprop", "--id", window, name]
        shown = subprocess.run(command, env=self.environment, check=True, capture_output=True, text=True).stdout
        return list(map(int, re.findall(r"\d+", shown.partition("=")[2])))

    def grab(self):
        """A Picture of the screen as it is now."""
        return self.screen.grab()

    def stillPicture(self, seconds):
        """The screen, once it has stayed the same for this many seconds."""
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
        """Puts the additional characters on spare keys, before any program asks which keys there are."""
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
        # At the first key the window manager grabs all its keys again and misses a key that is pressed meanwhile. It
        # handles requests in order: once it has done the last one, it is ready.
        self.input("key", "Alt_L")
        self.input("click", "1")
        self.input("set_num_desktops", "1")
        waitFor(lambda: self._numberOfDesktops() == "1", "a window manager that is ready")

    def _numberOfDesktops(self):
        """None while no window manager is running."""
        try:
            return self.input("get_num_desktops").strip()
        except subprocess.CalledProcessError:
            return None


def _endWithParent():
    parentDeathSignal = 1
    _libc.prctl(parentDeathSignal, signal.SIGTERM)


def waitFor(condition, what, timeout=15.0, pause=0.02):
    """Returns the first true value that `condition` gives. Fails if none comes within `timeout` seconds."""
    deadline = time.monotonic() + timeout
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise TimeoutError(f"waited {timeout:g} s in vain for {what}")
        time.sleep(pause)


def end(process):
    """Ends a process and those that it started: first by request, then by force."""
    for number in (signal.SIGTERM, signal.SIGKILL):
        try:
            os.killpg(process.pid, number)
        except ProcessLookupError:
            pass
        try:
            return process.wait(timeout=3)
        except subprocess.TimeoutExpired:
            continue
