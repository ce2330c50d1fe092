"""Smooth shapes: drawn many times too large, then reduced.

Coordinates are units of the finished picture at its normal size.
"""

import math

from PIL import Image, ImageDraw

OUTLINE = (32, 36, 66)


class Drawing:
    """A square transparent sheet of the given number of units."""

    def __init__(self, units, line):
        self.units, self.line = units, line
        self.scale = 768 // units if units < 64 else 1024 // units
        self.image = Image.new("RGBA", (units * self.scale,) * 2, (0, 0, 0, 0))

    def picture(self, size):
        """The finished picture, size pixels wide and high."""
        return self.image.resize((size, size), Image.LANCZOS)

    def points(self, shape):
        """Units to pixels of the large sheet."""
        return [(x * self.scale, y * self.scale) for x, y in shape]

    def shape(self, shape, colours, line=None, holes=()):
        """A filled outline; two colours make a gradient from top to bottom."""
        mask = Image.new("L", self.image.size, 0)
        brush = ImageDraw.Draw(mask)
        brush.polygon(self.points(shape), fill=255)
        for hole in holes:
            brush.polygon(self.points(hole), fill=0)
        self.image.paste(self.gradient(shape, colours), (0, 0), mask)
        width = self.line if line is None else line
        if width:
            for closed in (shape,) + tuple(holes):
                self.stroke(list(closed) + list(closed[:2]), OUTLINE, width)

    def gradient(self, shape, colours):
        """A sheet of colours that run from the shape's top to its bottom."""
        one, other = (colours, colours) if isinstance(colours[0], int) else colours
        top, bottom = min(y for _, y in shape), max(y for _, y in shape)
        column = Image.new("RGBA", (1, self.image.height))
        for y in range(self.image.height):
            part = (y / self.scale - top) / max(0.01, bottom - top)
            part = max(0.0, min(1.0, part))
            colour = tuple(int(a + (b - a) * part) for a, b in zip(one, other))
            column.putpixel((0, y), colour + (255,))
        return column.resize(self.image.size)

    def glow(self, centre, radius, colour, strength):
        """Light that fades from the centre outwards; strength is 0 to 1."""
        size = int(radius * 2 * self.scale)
        fade = Image.radial_gradient("L").resize((size, size))
        fade = fade.point(lambda far: int(max(0, 180 - far) / 180 * 255 * strength))
        light = Image.new("RGBA", (size, size), tuple(colour) + (255,))
        light.putalpha(fade)
        corner = tuple(int((c - radius) * self.scale) for c in centre)
        sheet = Image.new("RGBA", self.image.size, (0, 0, 0, 0))
        sheet.paste(light, corner)
        self.image.alpha_composite(sheet)

    def stroke(self, shape, colour, width):
        """A line through the points with round ends and joints."""
        brush = ImageDraw.Draw(self.image)
        points = self.points(shape)
        thick = max(1, int(width * self.scale))
        brush.line(points, fill=tuple(colour) + (255,), width=thick, joint="curve")
        reach = thick / 2
        for x, y in (points[0], points[-1]):
            brush.ellipse((x - reach, y - reach, x + reach, y + reach),
                          fill=tuple(colour) + (255,))


def turned(shape, centre, degrees):
    """The shape turned clockwise about the centre."""
    (cx, cy), angle = centre, math.radians(degrees)
    cos, sin = math.cos(angle), math.sin(angle)
    return [(cx + (x - cx) * cos - (y - cy) * sin, cy + (x - cx) * sin + (y - cy) * cos)
            for x, y in shape]


def oval(cx, cy, rx, ry=None, start=0, end=360):
    """Points of an ellipse or of a part of it, clockwise from the right."""
    ry = rx if ry is None else ry
    steps = max(8, int(abs(end - start) / 4))
    angles = [math.radians(start + (end - start) * i / steps) for i in range(steps + 1)]
    return [(cx + rx * math.cos(a), cy + ry * math.sin(a)) for a in angles]


def box(x0, y0, x1, y1, radius=0.0):
    """Points of a rectangle with rounded corners."""
    if not radius:
        return [(x0, y0), (x1, y0), (x1, y1), (x0, y1)]
    corners = ((x1 - radius, y0 + radius, 270), (x1 - radius, y1 - radius, 0),
               (x0 + radius, y1 - radius, 90), (x0 + radius, y0 + radius, 180))
    shape = []
    for cx, cy, start in corners:
        shape += oval(cx, cy, radius, radius, start, start + 90)
    return shape


def star(cx, cy, far, near, count, start=-90):
    """Points of a star with count rays."""
    shape = []
    for index in range(count * 2):
        reach = near if index % 2 else far
        angle = math.radians(start + index * 180 / count)
        shape.append((cx + reach * math.cos(angle), cy + reach * math.sin(angle)))
    return shape
