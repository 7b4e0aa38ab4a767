"""What an X server shows, read from the file in which it keeps that."""

import hashlib
import mmap
import struct

# The server writes the file in X's window dump format: words of 32 bits, the most significant byte
# first, then the colour map and the lines of the screen, four bytes a pixel.
_HEADER_SIZE, _WIDTH, _HEIGHT, _LINE_SIZE, _COLORS = 0, 4, 5, 12, 19
_COLOR_SIZE = 12
_PIXEL_SIZE = 4


class Screen:
    def __init__(self, file):
        with open(file, "rb") as opened:
            self._bytes = mmap.mmap(opened.fileno(), 0, prot=mmap.PROT_READ)
        words = struct.unpack_from(">25I", self._bytes)
        self.width, self.height = words[_WIDTH], words[_HEIGHT]
        self._line_size = words[_LINE_SIZE]
        self._start = words[_HEADER_SIZE] + words[_COLORS] * _COLOR_SIZE

    def close(self):
        self._bytes.close()

    def fingerprint(self, left, top, width, height):
        """Of a rectangle, as far as it lies on the screen: equal when it looks the same."""
        first, last = max(left, 0), min(left + width, self.width)
        lines = range(max(top, 0), min(top + height, self.height))
        content = b"".join(self._line(line, first, last) for line in lines)
        # A pixel's fourth byte does not show.
        colors = hashlib.sha1()
        for color in range(_PIXEL_SIZE - 1):
            colors.update(content[color::_PIXEL_SIZE])
        return colors.hexdigest()[:12]

    def _line(self, line, first, last):
        start = self._start + line * self._line_size
        return self._bytes[start + first * _PIXEL_SIZE:start + last * _PIXEL_SIZE]
