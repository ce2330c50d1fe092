"""The panels of the game's theme: frame of play, menu, talk box."""

from PIL import Image

from palette import GOLD, INK, NIGHT, RED, WHITE
from pixels import dither, fill, put, stamp

HEART = [
    ".ooo.ooo.", "orrrorrro", "orwrrrrqo", "orwrrrrqo", "orrrrrrqo", ".orrrrqo.",
    "..orrqo..", "...oqo...", "....o....",
]
SHIELD = [
    "ooooooooo", "oggggbbbo", "ogyggbbbo", "oyyygbbbo", "ogyggbbbo", "oggggbbbo",
    ".ogggbbo.", "..oggbo..", "...ooo...",
]
KNOT = [
    "..ooo..", ".oyyyo.", "oyYYydo", "oyYwydo", "oyyyydo", ".odddo.", "..ooo..",
]
KNOT_COLOURS = {"o": INK, "y": GOLD[2], "Y": GOLD[3], "w": GOLD[4], "d": GOLD[1]}


def cut(dx, dy, width, height, size=3):
    """Whether a pixel lies in one of the panel's cut-off corners."""
    across = min(dx, width - 1 - dx)
    down = min(dy, height - 1 - dy)
    return across + down < size


def panel(image, box, light=NIGHT[6], deep=NIGHT[1], high=NIGHT[2]):
    """A dark blue plate with a double light border and cut corners."""
    x0, y0, x1, y1 = box
    width, height = x1 - x0, y1 - y0
    rings = {0: INK, 1: light, 2: NIGHT[7], 3: NIGHT[4], 4: INK}
    for dy in range(height):
        for dx in range(width):
            if cut(dx, dy, width, height):
                continue
            depth = min(dx, dy, width - 1 - dx, height - 1 - dy)
            across = min(dx, width - 1 - dx) + min(dy, height - 1 - dy)
            depth = min(depth, max(0, across - 3))
            colour = rings.get(depth) or plate(dx, dy, height, deep, high)
            put(image, x0 + dx, y0 + dy, colour)


def plate(x, y, height, deep, high):
    """The face of a panel: a faint glow that ends in the upper half."""
    return high if y / height < 0.42 + dither(x, y) * 0.5 else deep


def knots(image, box):
    """Golden rivets on the four corners of a panel."""
    x0, y0, x1, y1 = box
    for x in (x0 + 1, x1 - 8):
        for y in (y0 + 1, y1 - 8):
            stamp(image, KNOT, KNOT_COLOURS, x, y)


def groove(image, box):
    """A sunken field for changing text."""
    x0, y0, x1, y1 = box
    fill(image, box, NIGHT[0])
    fill(image, (x0, y0, x1, y0 + 1), INK)
    fill(image, (x0, y1 - 1, x1, y1), NIGHT[4])
    fill(image, (x1 - 1, y0, x1, y1), NIGHT[4])


def talk_box():
    """The box that people speak in."""
    image = Image.new("RGBA", (464, 88), (0, 0, 0, 0))
    panel(image, (0, 0, 464, 88))
    knots(image, (0, 0, 464, 88))
    return image


def game_menu():
    """The panel of the menu in the game, with a ribbon at its head."""
    image = Image.new("RGBA", (240, 160), (0, 0, 0, 0))
    panel(image, (0, 0, 240, 160))
    knots(image, (0, 0, 240, 160))
    for x in range(24, 216):
        fade = min(x - 24, 215 - x)
        if fade > 30 or dither(x, 30) + 0.5 < fade / 30:
            put(image, x, 30, GOLD[2])
            put(image, x, 31, GOLD[0])
    stamp(image, KNOT, KNOT_COLOURS, 117, 27)
    return image


def play_frame():
    """The frame round the map in play with fields for name and life above."""
    image = Image.new("RGBA", (480, 272), NIGHT[0] + (255,))
    fill(image, (0, 34, 480, 272), INK)
    fill(image, (1, 35, 479, 269), NIGHT[4])
    fill(image, (2, 36, 478, 268), NIGHT[0])
    fill(image, (0, 269, 480, 272), NIGHT[1])
    fill(image, (0, 271, 480, 272), INK)
    panel(image, (0, 0, 480, 35))
    for box in ((20, 10, 296, 26), (324, 10, 355, 26), (357, 10, 463, 26)):
        groove(image, box)
    stamp(image, SHIELD, {"o": INK, "g": NIGHT[6], "b": NIGHT[4], "y": GOLD[3]}, 8, 13)
    stamp(image, HEART, {"o": INK, "r": RED[3], "q": RED[2], "w": WHITE}, 312, 13)
    for x in (300, 467):
        stamp(image, KNOT, KNOT_COLOURS, x, 14)
    return image
