"""Pictures from files and from the screen, pixel by pixel."""

import subprocess


class Picture:
    """Rows of pixels, each of four bytes: red, green, blue, opacity."""

    def __init__(self, width, height, data):
        self.width, self.height, self.data = width, height, data

    def pixel(self, x, y):
        """The four bytes at a place inside the picture."""
        at = 4 * (y * self.width + x)
        return self.data[at:at + 4]

    def part(self, left, top, width, height):
        """A piece of the picture as a picture of its own."""
        rows = (self.data[4 * (y * self.width + left):][:4 * width] for y in range(top, top + height))
        return Picture(width, height, b"".join(rows))

    def reduced(self, factor):
        """The picture of which this one is an enlargement by a whole factor."""
        width, height = self.width // factor, self.height // factor
        pixels = (self.pixel(x * factor, y * factor) for y in range(height) for x in range(width))
        return Picture(width, height, b"".join(pixels))

    def difference(self, other):
        """How far the colours are apart on the average, 0 to 255."""
        assert (self.width, self.height) == (other.width, other.height)
        return sum(abs(a - b) for a, b in zip(self.data, other.data)) / len(self.data)

    def share_of(self, other):
        """Which part, 0 to 1, of the opaque pixels of a picture of this size is seen here."""
        pairs = [(self.data[i:i + 3], other.data[i:i + 3])
                 for i in range(0, len(other.data), 4) if other.data[i + 3] == 255]
        return sum(seen == wanted for seen, wanted in pairs) / len(pairs)

    def count(self, color):
        """How many pixels have a colour, given as three numbers."""
        wanted = bytes(color)
        return sum(self.data[i:i + 3] == wanted for i in range(0, len(self.data), 4))


def from_file(path):
    """The picture of a file."""
    command = ["convert", str(path), "-alpha", "on", "-type", "TrueColorAlpha", "-depth", "8", "pam:-"]
    stream = subprocess.run(command, check=True, capture_output=True).stdout
    head, data = stream.split(b"ENDHDR\n", 1)
    fields = dict(line.split(b" ", 1) for line in head.splitlines() if b" " in line)
    assert fields[b"DEPTH"] == b"4", head
    return Picture(int(fields[b"WIDTH"]), int(fields[b"HEIGHT"]), data)


def _screenshot(place, target):
    left, top, width, height = place
    piece = f"{width}x{height}+{left}+{top}"
    command = ["import", "-silent", "-window", "root", "-crop", piece, "+repage", "-depth", "8", target]
    return subprocess.run(command, check=True, capture_output=True).stdout


def from_screen(place):
    """What the screen shows within (left, top, width, height)."""
    _, size, depth, colors = _screenshot(place, "ppm:-").split(b"\n", 3)
    width, height = (int(number) for number in size.split())
    assert depth == b"255", depth
    data = bytearray(b"\xff" * (4 * width * height))
    for part in range(3):
        data[part::4] = colors[part::3]
    return Picture(width, height, bytes(data))


def save_screen(place, path):
    """Writes what the screen shows within (left, top, width, height) to a file."""
    _screenshot(place, str(path))
