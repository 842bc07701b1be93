"""What the display shows, as the X server keeps it in its own memory: a picture in the format of xwd."""
import mmap
import struct

# Of the header's words, which stand with their highest byte first.
HEADER_SIZE, BITS_PER_PIXEL, BYTES_PER_LINE, COLOURS = 0, 11, 12, 19
WORDS = 25
COLOUR_SIZE = 12


class Screen:
    """Of 32 bits to a pixel: blue, green, red and one that counts for nothing."""

    def __init__(self, path):
        with open(path, "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        header = struct.unpack(f">{WORDS}I", self.memory[:4 * WORDS])
        if header[BITS_PER_PIXEL] != 32:
            raise ValueError(f"a display of {header[BITS_PER_PIXEL]} bits to a pixel")
        self.line = header[BYTES_PER_LINE]
        self.begin = header[HEADER_SIZE] + header[COLOURS] * COLOUR_SIZE

    def pixels(self, place, part=(0, 0, 1, 1)):
        """All (blue, green, red) of a place x, y, width, height, or of a part of it in parts of its size."""
        x, y, width, height = place
        left, right = x + int(part[0] * width), x + int(part[2] * width)
        found = []
        for row in range(y + int(part[1] * height), y + int(part[3] * height)):
            line = self.memory[self.begin + row * self.line + 4 * left:self.begin + row * self.line + 4 * right]
            found += zip(line[0::4], line[1::4], line[2::4])
        return found
