"""Pictures of a virtual display, read from the frame buffer that Xvfb keeps in a file (in the format of xwd)."""

import struct
import zlib


class Screen:
    """The frame buffer in the file at `path`."""

    def __init__(self, path):
        self.path = path

    def grab(self):
        """A Picture of the whole screen as it is now."""
        data = self.path.read_bytes()
        header = struct.unpack(">25I", data[:100])
        size, width, height, bitsPerPixel, bytesPerLine, colours = (header[i] for i in (0, 4, 5, 11, 12, 19))
        assert bitsPerPixel == 32, "a pixel of the display must take four bytes"
        pixels = data[size + 12 * colours :]
        return Picture(width, height, [pixels[y * bytesPerLine : y * bytesPerLine + 4 * width] for y in range(height)])


class Picture:
    """Rows of pixels, four bytes each: blue, green, red, nothing."""

    def __init__(self, width, height, rows):
        self.width, self.height, self.rows = width, height, rows

    def __eq__(self, other):
        return self.rows == other.rows

    def cut(self, x, y, width, height):
        left, top = max(x, 0), max(y, 0)
        rows = [row[4 * left : 4 * (x + width)] for row in self.rows[top : y + height]]
        return Picture(len(rows[0]) // 4, len(rows), rows)

    def pixel(self, x, y):
        """The colour at a place, as "#rrggbb"."""
        blue, green, red = self.rows[y][4 * x : 4 * x + 3]
        return f"#{red:02x}{green:02x}{blue:02x}"

    def save(self, path):
        """Writes a PNG file."""
        lines = bytearray()
        for row in self.rows:
            line = bytearray(3 * self.width)
            line[0::3], line[1::3], line[2::3] = row[2::4], row[1::4], row[0::4]
            lines += b"\0" + line
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(
            b"\x89PNG\r\n\x1a\n"
            + _chunk(b"IHDR", struct.pack(">2I5B", self.width, self.height, 8, 2, 0, 0, 0))
            + _chunk(b"IDAT", zlib.compress(bytes(lines), 9))
            + _chunk(b"IEND", b"")
        )


def _chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
