"""Drawing on single pixels: stamps of text rows, shaded balls, outlines."""

import math

from PIL import Image

TILE = (28, 29)
BAYER = [[0, 8, 2, 10], [12, 4, 14, 6], [3, 11, 1, 9], [15, 7, 13, 5]]
LIGHT = (-0.48, -0.68, 0.55)


def noise(x, y, seed=0):
    """A number in [0, 1) that depends on nothing but its arguments."""
    value = (x * 374761393 + y * 668265263 + seed * 2147483647 + 974634) & 0xFFFFFFFF
    value = ((value ^ (value >> 13)) * 1274126177) & 0xFFFFFFFF
    value = ((value ^ (value >> 16)) * 2246822519) & 0xFFFFFFFF
    return ((value ^ (value >> 15)) & 0xFFFF) / 65536.0


def dither(x, y):
    """The threshold of a pixel in ordered dithering, -0.5 to 0.5."""
    return (BAYER[y % 4][x % 4] + 0.5) / 16.0 - 0.5


def tone(ramp, level, x=0, y=0, spread=0.0):
    """The colour of a ramp at level 0 (dark) to 1 (light), dithered by spread."""
    index = level * (len(ramp) - 1) + dither(x, y) * spread
    return ramp[max(0, min(len(ramp) - 1, int(math.floor(index + 0.5))))]


def blank(size=TILE):
    """A wholly transparent picture."""
    return Image.new("RGBA", size, (0, 0, 0, 0))


def put(image, x, y, colour, alpha=255):
    """Sets one pixel; outside the picture nothing happens."""
    if 0 <= x < image.width and 0 <= y < image.height:
        image.putpixel((x, y), tuple(colour[:3]) + (alpha,))


def wrap(image, x, y, colour):
    """Sets one pixel of a seamless tile: what leaves one side enters the other."""
    put(image, x % image.width, y % image.height, colour)


def stamp(image, rows, colours, x, y, plot=put):
    """Draws text rows, one letter a pixel; letters without a colour are left out."""
    for dy, row in enumerate(rows):
        for dx, letter in enumerate(row):
            if letter in colours:
                plot(image, x + dx, y + dy, colours[letter])


def scatter(image, marks, rows, colours):
    """Stamps the same rows at each (x, y) of a seamless tile."""
    for x, y in marks:
        stamp(image, rows, colours, x, y, wrap)


def ball(image, centre, radii, ramp, spread=0.6, rough=0.0, seed=0):
    """A lit ellipsoid; rough frays its tones like leaves or weathered stone."""
    (cx, cy), (rx, ry) = centre, radii
    for y in range(int(cy - ry - 1), int(cy + ry + 2)):
        for x in range(int(cx - rx - 1), int(cx + rx + 2)):
            nx, ny = (x - cx) / rx, (y - cy) / ry
            flat = nx * nx + ny * ny
            if flat > 0.97:
                continue
            lit = nx * LIGHT[0] + ny * LIGHT[1] + math.sqrt(1.0 - flat) * LIGHT[2]
            level = 0.5 + 0.5 * lit + (noise(x, y, seed) - 0.5) * rough
            put(image, x, y, tone(ramp, level, x, y, spread))


def outline(image, colour):
    """Surrounds what is drawn by one pixel of colour, inside the picture."""
    solid = image.getchannel("A").load()
    edge = []
    for y in range(image.height):
        for x in range(image.width):
            if not solid[x, y] and touches(solid, image.size, x, y):
                edge.append((x, y))
    for x, y in edge:
        put(image, x, y, colour)


def touches(solid, size, x, y):
    """Whether one of the four neighbours of a pixel is drawn."""
    for dx, dy in ((1, 0), (-1, 0), (0, 1), (0, -1)):
        px, py = x + dx, y + dy
        if 0 <= px < size[0] and 0 <= py < size[1] and solid[px, py]:
            return True
    return False


def darken(image, x, y, part):
    """Takes the given part (0 to 1) of the light away from one pixel."""
    if 0 <= x < image.width and 0 <= y < image.height:
        old = image.getpixel((x, y))
        cool = (0.95, 0.97, 1.1)
        put(image, x, y, [min(255, int(c * (1 - part) * k)) for c, k in zip(old, cool)])


def shadow(image, centre, radii, part=0.32):
    """The flat shadow of something that stands on the ground."""
    (cx, cy), (rx, ry) = centre, radii
    for y in range(image.height):
        for x in range(image.width):
            if ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1.0:
                darken(image, x, y, part)


def over(ground, thing, x=0, y=0):
    """Lays a picture with transparency on another, in place; gives the latter."""
    ground.alpha_composite(thing, (x, y))
    return ground


def fill(image, box, colour):
    """Fills x0 <= x < x1, y0 <= y < y1."""
    x0, y0, x1, y1 = box
    for y in range(y0, y1):
        for x in range(x0, x1):
            put(image, x, y, colour)


def mirror(rows):
    """The rows as seen in a looking glass."""
    return [row[::-1] for row in rows]
