"""A keyboard and a mouse that a Wayland compositor takes for real devices. This module speaks the wire protocol itself,
because no tool that every release has can hold a key or move a pointer without a mouse."""

import array
import os
import socket
import struct
import time

# Keys that have a name. Every other key is named by its character.
named = "Return KP_Enter Escape Tab space BackSpace Home End Up Down Prior Next F4".split()
withShift = {"Tab": "ISO_Left_Tab"}
modifiers = {"shift": 1, "ctrl": 4, "alt": 8}
leftButton = 0x110
# The key codes of a display are those of a keyboard plus eight.
firstCode = 8

_display = 1
_wanted = "wl_seat", "zwp_virtual_keyboard_manager_v1", "zwlr_virtual_pointer_manager_v1"


class VirtualInput:
    """Devices of the compositor at the socket `path`, whose only output has this size in pixels. Types ASCII and
    `characters`."""

    def __init__(self, path, size, characters=""):
        self.size = size
        self.connection = socket.socket(socket.AF_UNIX)
        self.connection.settimeout(15)
        self.connection.connect(path)
        self.received = b""
        self.newest = _display
        self.held = 0
        registry, bound = self._new(_display, 1), {}
        for sender, opcode, body in self._synchronized():
            if (sender, opcode) == (registry, 0):
                name, length = struct.unpack_from("=II", body)
                interface = body[8 : 8 + length - 1].decode()
                if interface in _wanted:
                    bound[interface] = self._new(registry, 0, body[: 8 + (length + 3) // 4 * 4] + struct.pack("=I", 1))
        seat, keyboards, pointers = (bound[each] for each in _wanted)
        self.keyboard = self._new(keyboards, 0, struct.pack("=I", seat))
        self.pointer = self._new(pointers, 0, struct.pack("=I", seat))
        self._giveKeymap(characters)
        self._synchronized()

    def close(self):
        self.connection.close()

    def keyDown(self, name):
        """Presses a key and leaves it down. A modifier may come before it: "ctrl+a"."""
        *others, key = name.split("+") if len(name) > 1 else [name]
        self._modify(sum(modifiers[each] for each in others))
        self._key(key, 1)

    def keyUp(self, name):
        self._key(name.split("+")[-1] if len(name) > 1 else name, 0)
        self._modify(0)

    def point(self, x, y):
        """Moves the pointer to a pixel of the output."""
        self._send(self.pointer, 1, struct.pack("=5I", _now(), x, y, *self.size))
        self._send(self.pointer, 4, b"")
        self._synchronized()

    def click(self):
        for state in (1, 0):
            self._send(self.pointer, 2, struct.pack("=3I", _now(), leftButton, state))
            self._send(self.pointer, 4, b"")
        self._synchronized()

    def _modify(self, mask):
        if mask != self.held:
            self.held = mask
            self._send(self.keyboard, 2, struct.pack("=4I", mask, 0, 0, 0))

    def _key(self, name, state):
        self._send(self.keyboard, 1, struct.pack("=3I", _now(), self.codes[name] - firstCode, state))
        self._synchronized()

    def _giveKeymap(self, characters):
        ascii = map(chr, range(0x20, 0x7F))
        keys = {name: [name, withShift.get(name, name)] for name in named}
        keys |= {each: [f"U{ord(each):04X}"] for each in (*ascii, *characters)}
        self.codes = {name: code for code, name in enumerate(keys, firstCode + 1)}
        codes = "".join(f"<K{code}> = {code};\n" for code in self.codes.values())
        symbols = "".join(f"key <K{self.codes[name]}> {{[{', '.join(levels)}]}};\n" for name, levels in keys.items())
        keymap = (
            f"xkb_keymap {{ xkb_keycodes {{ minimum = 8; maximum = 255;\n{codes} }};\n"
            'xkb_types { include "complete" }; xkb_compatibility { include "complete" };\n'
            f"xkb_symbols {{\n{symbols} }}; }};\0"
        ).encode()
        file = os.memfd_create("keymap")
        os.write(file, keymap)
        xkbText = 1
        self._send(self.keyboard, 0, struct.pack("=II", xkbText, len(keymap)), [file])
        os.close(file)

    def _new(self, object, opcode, body=b""):
        """Sends a request that ends with the number of a new object, and returns the number."""
        self.newest += 1
        self._send(object, opcode, body + struct.pack("=I", self.newest))
        return self.newest

    def _send(self, object, opcode, body, files=()):
        message = struct.pack("=II", object, (8 + len(body)) << 16 | opcode) + body
        control = [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", files))] if files else []
        self.connection.sendmsg([message], control)

    def _synchronized(self):
        """Waits until the compositor has handled all requests. Returns its events meanwhile: sender, opcode, body."""
        done, events = self._new(_display, 0), []
        while not events or events[-1][0] != done:
            events.append(self._event())
        return events

    def _event(self):
        sender, size = struct.unpack("=II", self._read(8))
        event = sender, size & 0xFFFF, self._read((size >> 16) - 8)
        if event[:2] == (_display, 0):
            raise RuntimeError(f"the compositor refuses: {event[2]}")
        return event

    def _read(self, size):
        while len(self.received) < size:
            data = self.connection.recv(65536)
            if not data:
                raise RuntimeError("the compositor has gone")
            self.received += data
        data, self.received = self.received[:size], self.received[size:]
        return data


def _now():
    return time.monotonic_ns() // 1_000_000 & 0xFFFFFFFF
