"""Tileset 01: a meadow with woods, water and the way into a cave."""

from palette import (BARK, CAVE, EARTH, FIR, GOLD, GRASS, INK, LEAF, RED, STONE,
                     WATER, WHITE, WOOD)
from pixels import (TILE, ball, blank, fill, noise, outline, over, put, scatter, shadow,
                    stamp, wrap)

TUFT = ["d.d", ".d."]
BLADE = ["..l", "l.l", ".l."]


def grass():
    """The calm lawn that all the meadow stands on."""
    image = blank()
    fill(image, (0, 0) + TILE, GRASS[2])
    scatter(image, [(3, 4), (17, 2), (10, 12), (23, 14), (5, 22), (18, 23)],
            TUFT, {"d": GRASS[1]})
    scatter(image, [(10, 4), (25, 7), (2, 14), (16, 17), (26, 26), (11, 26)],
            BLADE[1:], {"l": GRASS[3]})
    return image


def flowers():
    """The lawn with small flowers in three colours."""
    image = grass()
    shape = [".pp.", "pccp", "pccp", ".ppd", ".gg."]
    for marks, petal, heart in (
            ([(3, 6), (20, 17)], WHITE, GOLD[2]),
            ([(14, 9), (6, 18)], RED[4], GOLD[4]),
            ([(22, 3), (12, 22)], GOLD[3], RED[2])):
        scatter(image, marks, shape,
                {"p": petal, "c": heart, "g": GRASS[0], "d": GRASS[0]})
    return image


def tall_grass():
    """Dense high blades in three rows."""
    image = grass()
    clump = ["..l..", "l.l.m", "lmlml", "dmlmd", "ddmdd", ".ddd."]
    tones = {"l": GRASS[4], "m": GRASS[3], "d": GRASS[0]}
    for row, (y, start) in enumerate(((1, 0), (8, 3), (15, 1), (22, 4))):
        marks = [(start + column * 7 + (row * 2 + column) % 2, y) for column in range(4)]
        scatter(image, marks, clump, tones)
    return image


def path():
    """Trodden earth; tufts in the corners soften a line and dot an area."""
    image = blank()
    for y in range(TILE[1]):
        for x in range(TILE[0]):
            put(image, x, y, EARTH[3])
    scatter(image, [(6, 6), (19, 11), (9, 20)], ["lll.", ".lll"], {"l": EARTH[4]})
    scatter(image, [(16, 4), (4, 14), (21, 22), (13, 14)], ["dd"], {"d": EARTH[2]})
    scatter(image, [(11, 8), (22, 17)], [".ll", "lmd", "ddd"],
            {"l": EARTH[5], "m": EARTH[4], "d": EARTH[1]})
    grassy_corners(image)
    return image


def grassy_corners(image):
    """Grass that creeps in where four tiles meet."""
    corner = ["glgd", "lgd.", "gd..", "d..."]
    width, height = image.size
    colours = {"g": GRASS[2], "l": GRASS[3], "d": EARTH[1]}
    for flip_x, flip_y in ((0, 0), (0, 1), (1, 0), (1, 1)):
        rows = corner[::-1] if flip_y else corner
        rows = [row[::-1] for row in rows] if flip_x else rows
        stamp(image, rows, colours, (width - 4) * flip_x, (height - 4) * flip_y)


def trunk(image, box):
    """A lit tree trunk with roots."""
    x0, y0, x1, y1 = box
    for y in range(y0, y1):
        for x in range(x0, x1):
            part = (x - x0) / max(1, x1 - x0 - 1)
            put(image, x, y, BARK[3 if part < 0.3 else 2 if part < 0.7 else 1])
    for x in (x0 - 1, x1):
        put(image, x, y1 - 1, BARK[1])


def tree():
    """A broad-leaved tree of several clumps of leaves."""
    image = blank()
    trunk(image, (11, 19, 17, 27))
    for centre, radii, seed in (
            ((7, 14), (6.2, 5.6), 1), ((20.5, 14), (6.2, 5.6), 2), ((14, 17), (7, 5), 3),
            ((9, 8), (6.2, 5.8), 4), ((18.5, 8), (6.2, 5.8), 5), ((13.5, 6), (6, 4.8), 6),
            ((13.5, 12), (5.6, 4.8), 7)):
        ball(image, centre, radii, LEAF[1:], 0.5, 0.3, seed)
    outline(image, LEAF[0])
    ground = grass()
    shadow(ground, (14, 25.5), (11, 3))
    return over(ground, image)


def fir():
    """A fir: four skirts of needles, each wider than the one above."""
    image = blank()
    trunk(image, (12, 23, 16, 27))
    for top, bottom, half in ((14, 24, 11.5), (9, 19, 9.5), (5, 14, 7.5), (1, 9, 5.5)):
        for y in range(top, bottom):
            reach = half * (y - top + 1) / (bottom - top)
            for x in range(28):
                side = (x - 13.5) / reach
                fray = 1 if y == bottom - 1 and x % 3 == 1 else 0
                if abs(side) <= 1.0 and not fray:
                    put(image, x, y, FIR[needle(side, y, top, bottom, x)])
    outline(image, FIR[0])
    ground = grass()
    shadow(ground, (14, 25.5), (11, 3))
    return over(ground, image)


def needle(side, y, top, bottom, x):
    """The tone of a fir's needle: light from the left, dark below each skirt."""
    depth = (y - top) / (bottom - top)
    level = 3.6 - side * 1.3 - (1.2 if depth > 0.8 else 0) + (noise(x, y, 9) - 0.5) * 1.4
    if y - top < 2 and top > 2:
        level -= 1
    return max(1, min(5, int(level)))


def rock():
    """A boulder with a smaller one before it."""
    image = blank()
    ball(image, (14, 15), (11, 10), STONE, 0.7, 0.12, 3)
    ball(image, (22, 21), (5, 4.5), STONE, 0.6, 0.12, 5)
    ball(image, (6, 22), (4, 3.4), STONE, 0.6, 0.12, 6)
    crack = ["d....", ".d...", ".dd..", "...d.", "...dd"]
    stamp(image, crack, {"d": STONE[1]}, 14, 12)
    stamp(image, ["ll.", "lgl", ".ll"], {"l": LEAF[4], "g": LEAF[3]}, 9, 8)
    stamp(image, [".gl.", "ggll"], {"l": LEAF[4], "g": LEAF[3]}, 5, 13)
    outline(image, INK)
    ground = grass()
    shadow(ground, (15, 24.5), (12, 3))
    stamp(ground, BLADE, {"l": GRASS[4]}, 1, 23)
    return over(ground, image)


def water():
    """A lake's face: quiet waves that run on from tile to tile."""
    image = blank()
    fill(image, (0, 0) + TILE, WATER[2])
    wave = ["..llll....", "ll....ll..", "........ll"]
    for x, y in ((2, 3), (16, 10), (4, 18), (19, 24)):
        stamp(image, wave, {"l": WATER[3]}, x, y, wrap)
        stamp(image, [".dddddd", "d......"], {"d": WATER[1]}, x + 1, y + 4, wrap)
    for x, y in ((5, 3), (19, 10), (22, 24)):
        stamp(image, ["ww"], {"w": WATER[4]}, x, y, wrap)
    return image


def sign():
    """A sign post with an unreadable line of writing."""
    rows = [
        "..........oooo..........", "..........oLmo..........",
        "ooooooooooooooooooooo...", "oLLLLLLLLLLLLLLLLLLlo...",
        "oLllllllllllllllllllloo.", "oLldddlddldddlddddllmllo",
        "oLllllllllllllllllllmmlo", "oLlddlddddlddldddllmmoo.",
        "oLlllllllllllllllmmmmo..", "ooooooooooooooooooooo...",
        "..........oLmo..........", "..........oLmo..........", "..........oLmo..........",
        "..........oLmo..........", "..........oLmo..........", "..........oLmo..........",
        "..........oooo..........",
    ]
    image = grass()
    shadow(image, (14, 24.5), (7, 2.2))
    colours = {"o": WOOD[0], "L": WOOD[5], "l": WOOD[4], "m": WOOD[3], "d": WOOD[1]}
    stamp(image, rows, colours, 2, 8)
    for x in (8, 17):
        stamp(image, BLADE, {"l": GRASS[4]}, x, 23)
    return image


def cave_entrance():
    """A dark arch in a hill of stone, grown over with grass."""
    image = blank()
    ball(image, (13.5, 20), (14.6, 19.5), STONE[:5], 0.7, 0.2, 8)
    for y in range(29):
        for x in range(28):
            arch(image, x, y)
    for x in range(3, 25):
        hang = 3 + int(noise(x // 2, 0, 3) * 3) + abs(x - 14) // 4
        for y in range(1, hang + abs(x - 14) // 4):
            if image.getpixel((x, y))[3]:
                put(image, x, y, GRASS[4 if y < 3 else 3 if noise(x, y) > 0.4 else 1])
    outline(image, INK)
    return over(grass(), image)


def arch(image, x, y):
    """One pixel of the arch: a stone rim round the dark."""
    reach = ((x - 13.5) / 8.5) ** 2 + ((min(y, 18) - 18) / 10.0) ** 2
    if reach <= 1.0:
        depth = max(0, 2 - int(reach * 3)) if y < 24 else 0
        put(image, x, y, CAVE[0] if depth else (CAVE[1] if y < 26 else CAVE[2]))
    elif reach <= 1.45:
        joint = noise(x // 4, y // 4, 7) > 0.55
        put(image, x, y, STONE[4 if x < 14 and not joint else 3 if not joint else 2])


def tiles():
    """The ten tiles by rising code."""
    return [grass(), flowers(), tall_grass(), path(), tree(), fir(), rock(), water(),
            sign(), cave_entrance()]
