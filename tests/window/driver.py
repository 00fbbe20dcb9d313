"""Drives the program's window as a person does: finds things by role and name in the accessibility tree, clicks where
they are drawn, types with real keys, and waits for what should happen.

    with Desktop() as desktop, Program(desktop, path) as program:
        program.find("button", "Select Folder").click()
"""

import os

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  the version must be asked for first

from desktop import end, waitFor  # noqa: E402


class Program:
    """The program on a desktop. Inside a `with`, it is running and its first window is open."""

    def __init__(self, desktop, path, arguments=(), errorOutput=None):
        self.desktop, self.path, self.arguments, self.errorOutput = desktop, path, arguments, errorOutput
        self.scale = 1

    def __enter__(self):
        self.process = self.desktop.start([str(self.path), *self.arguments], stderr=self.errorOutput)
        _connect(self.desktop)
        self.tree = waitFor(self._application, "the program in the accessibility tree")
        self.find("frame")
        window = self.waitFor(self.activeWindow, "an active window")
        # Until it has been drawn, neither the places of things nor the targets of clicks are settled.
        self.desktop.stillPicture(0.1)
        # On a scaled display the tree may use the toolkit's units instead of pixels.
        self.scale = self.desktop.widthOf(window) / self.find("frame").box[2]
        return self

    def __exit__(self, *_):
        end(self.process)

    def elements(self, role=None, name=None):
        """All visible elements with this role and name, in the order of the tree. The name may be a compiled
        pattern."""
        return [
            element
            for element in Element(self.tree, self).descendants()
            if (role is None or element.role == role) and _matches(name, element.name) and element.showing
        ]

    def find(self, role=None, name=None, timeout=15.0):
        """Waits for the one element with this role and name."""
        found = self.waitFor(lambda: self.elements(role, name), f"{role} {_shown(name)}", timeout)
        if len(found) > 1:
            raise LookupError(f"{len(found)} elements are {role} {_shown(name)}\n{self.dump()}")
        return found[0]

    def waitUntilGone(self, role=None, name=None, timeout=15.0):
        self.waitFor(lambda: not self.elements(role, name), f"the end of {role} {_shown(name)}", timeout)

    def waitFor(self, condition, what, timeout=15.0):
        """Like desktop.waitFor, but a failure shows the tree and comes at once if the program has ended."""

        def checked():
            value = condition()
            if not value and self.process.poll() is not None:
                raise RuntimeError(f"the program ended with status {self.process.returncode}, before {what}")
            return value

        try:
            return waitFor(checked, what, timeout)
        except TimeoutError as error:
            raise TimeoutError(f"{error}\n{self.dump()}") from None

    def focused(self):
        """The element that has the keyboard focus, or None. Others claim it too: its ancestors and, from Qt 6.8 on, the
        current item of a closed list."""

        def hasFocus(element):
            return element.has("focused") and element.has("focusable") and not element.has("transient")

        focused = list(filter(hasFocus, Element(self.tree, self).descendants()))
        return focused[-1] if focused else None

    def key(self, *names):
        """Like Desktop.key."""
        self.desktop.key(*names)

    def type(self, text):
        """Types a text. Characters beyond ASCII must be among those the desktop was made with."""
        for character in text:
            if not character.isascii() and character not in self.desktop.characters:
                raise ValueError(f"no key of this desktop has {character!r}")
        self.desktop.type(text)

    def activeWindow(self):
        """The number of the active window if it belongs to this program, else None."""
        return self.desktop.activeWindow(self.process.pid)

    def picture(self, hideMouse=True, still=0.3):
        """The active window without its frame, once nothing has moved for `still` seconds."""
        if hideMouse:
            self.desktop.point(*self.desktop.size)
        windows = Element(self.tree, self).children
        active = self.waitFor(lambda: [each for each in windows() if each.has("active")], "an active window")
        return self.desktop.stillPicture(still).cut(*active[-1].box)

    def dump(self):
        """The accessibility tree as text, for failures."""
        return "\n".join(
            f"{'  ' * depth}{element.role} {element.name!r}{'' if element.showing else ' (hidden)'}"
            for element, depth in Element(self.tree, self).walk()
        )

    def _application(self):
        desktop = Atspi.get_desktop(0)
        desktop.set_cache_mask(Atspi.Cache.NONE)
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            if child is not None and child.get_process_id() == self.process.pid:
                return child
        return None


class Element:
    """An element of the accessibility tree. One that has vanished has no name, state, size or children."""

    def __init__(self, accessible, program):
        self.accessible, self.program = accessible, program

    @property
    def role(self):
        # Newer versions of the library say "button" for "push button".
        return _ask(self.accessible.get_role_name, "").replace("push button", "button")

    @property
    def name(self):
        return _ask(self.accessible.get_name, "")

    @property
    def description(self):
        return _ask(self.accessible.get_description, "")

    @property
    def text(self):
        """The text in a text field."""
        return _ask(lambda: Atspi.Text.get_text(self.accessible, 0, -1), "")

    def setText(self, text):
        """Puts a text into a field as assistive technology does."""
        Atspi.EditableText.set_text_contents(self.accessible, text)

    @property
    def showing(self):
        return self.has("showing")

    @property
    def box(self):
        """Left, top, width and height in pixels of the screen."""
        box = _ask(lambda: self.accessible.get_extents(Atspi.CoordType.SCREEN), Atspi.Rect())
        return tuple(round(number * self.program.scale) for number in (box.x, box.y, box.width, box.height))

    def has(self, state):
        """Whether it has a state, by its name in Atspi.StateType: "focused", "enabled", "showing"."""
        kind = getattr(Atspi.StateType, state.upper())
        return _ask(lambda: self.accessible.get_state_set().contains(kind), False)

    def children(self):
        count = _ask(self.accessible.get_child_count, 0)
        children = (_ask(lambda index=index: self.accessible.get_child_at_index(index), None) for index in range(count))
        return [Element(child, self.program) for child in children if child is not None]

    def parent(self):
        return Element(self.accessible.get_parent(), self.program)

    def walk(self, depth=0):
        """Every element in it with its depth, in the order of the tree."""
        for child in self.children():
            yield child, depth
            yield from child.walk(depth + 1)

    def descendants(self):
        return (element for element, _ in self.walk())

    def click(self):
        """Clicks in its middle, with a real mouse event."""
        self.point()
        self.program.desktop.click()

    def point(self):
        """Moves the mouse to its middle."""
        x, y, width, height = self.box
        self.program.desktop.point(x + width // 2, y + height // 2)

    def actions(self):
        """The names of the actions that assistive technology can perform on it."""
        count = Atspi.Action.get_n_actions(self.accessible)
        return [Atspi.Action.get_action_name(self.accessible, index) for index in range(count)]

    def press(self):
        """Calls the press action, as assistive technology does."""
        names = self.actions()
        if "Press" not in names:
            raise LookupError(f"{self.role} {self.name!r} has no press action but {names}")
        Atspi.Action.do_action(self.accessible, names.index("Press"))


def _connect(desktop):
    """Points the accessibility library, which reads the process's own environment, at the desktop."""
    for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"):
        os.environ[name] = desktop.environment.get(name, "")
    Atspi.init()
    Atspi.set_timeout(3000, 15000)


def _ask(question, otherwise):
    try:
        answer = question()
    except GLib.Error:
        return otherwise
    return otherwise if answer is None else answer


def _matches(wanted, name):
    if wanted is None:
        return True
    return name == wanted if isinstance(wanted, str) else wanted.search(name) is not None


def _shown(name):
    return "" if name is None else repr(name) if isinstance(name, str) else f"matching {name.pattern!r}"
