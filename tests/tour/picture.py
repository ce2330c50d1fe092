"""Pictures from files and from the screen, pixel by pixel."""

import subprocess

from waiting import wait_for


class Picture:
    """Rows of pixels, each of four bytes: red, green, blue, opacity."""

    def __init__(self, width, height, data):
        self.width, self.height, self.data = width, height, data

    def part(self, left, top, width, height):
        """A piece of the picture as a picture of its own."""
        rows = (self.data[4 * (y * self.width + left):][:4 * width] for y in range(top, top + height))
        return Picture(width, height, b"".join(rows))

    def reduced(self, factor):
        """The picture of which this one is an enlargement by a whole factor."""
        width, height = self.width // factor, self.height // factor
        pixels = memoryview(self.data).cast("I")
        starts = (y * factor * self.width for y in range(height))
        rows = (pixels[start:start + width * factor:factor].tobytes() for start in starts)
        return Picture(width, height, b"".join(rows))

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


def _screenshot(place, target, *options):
    left, top, width, height = place
    piece = f"{width}x{height}+{left}+{top}"
    command = ["import", "-silent", "-window", "root", "-crop", piece, "+repage", *options, "-depth", "8", target]
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


def save_still(place, path):
    """The same once nothing moves there any more."""
    before, now = None, None

    def is_still():
        nonlocal before, now
        before, now = now, _screenshot(place, "png:-", "-define", "png:exclude-chunks=date,time")
        return before == now

    wait_for(f"the picture {path.name} stands still", is_still)
    path.write_bytes(now)
