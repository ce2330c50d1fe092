"""Tileset 02: a village; roofs, walls and doors combine to houses."""

from palette import (GOLD, GRASS, INK, LEAF, PLASTER, RED, ROOF, SAND, STONE, WATER, WHITE,
                     WOOD)
from people import villager
from pixels import (TILE, ball, blank, fill, noise, outline, over, put, scatter, shadow,
                    stamp, wrap)


def ground():
    """The village green's trodden sand."""
    image = blank()
    fill(image, (0, 0) + TILE, SAND[3])
    scatter(image, [(4, 5), (18, 3), (11, 13), (22, 18), (3, 22)], ["lll", ".ll"],
            {"l": SAND[4]})
    scatter(image, [(12, 6), (24, 10), (6, 16), (16, 22), (26, 25)], ["dd"], {"d": SAND[2]})
    return image


def tufts():
    """The ground with grass growing through it."""
    image = ground()
    rows = ["..l...", "l.ll.l", "glglgl", ".ggdg.", "..dd.."]
    colours = {"l": GRASS[4], "g": GRASS[2], "d": SAND[1]}
    scatter(image, [(3, 6), (17, 9), (8, 19), (20, 22)], rows, colours)
    scatter(image, [(12, 3), (24, 16), (2, 14)], ["l.l", ".g."], colours)
    return image


def lawn():
    """Short, light grass with mown specks."""
    image = blank()
    fill(image, (0, 0) + TILE, GRASS[3])
    scatter(image, [(3, 4), (17, 2), (10, 12), (23, 14), (5, 22), (18, 23)],
            ["d.d", ".d."], {"d": GRASS[2]})
    scatter(image, [(10, 4), (25, 8), (2, 14), (16, 17), (12, 26)],
            ["l.l", ".l."], {"l": GRASS[4]})
    return image


def cobbles():
    """Paving stones of differing width, laid in courses."""
    image = blank()
    fill(image, (0, 0) + TILE, SAND[0])
    courses = ((0, 6, (0, 8, 19)), (6, 6, (4, 13, 22)), (12, 6, (1, 10, 20)),
               (18, 5, (6, 14, 24)), (23, 6, (2, 11, 19)))
    for y, height, starts in courses:
        for index, x in enumerate(starts):
            following = starts[index + 1] if index + 1 < len(starts) else starts[0] + 28
            paving_stone(image, x, y, following - x - 1, height - 1)
    return image


def paving_stone(image, x, y, width, height):
    """One rounded stone, lit from above left."""
    base = 3 if noise(x, y, 12) > 0.4 else 4
    for dy in range(height):
        for dx in range(width):
            corner = dx in (0, width - 1) and dy in (0, height - 1)
            if corner:
                continue
            level = base
            if dy == 0 or dx == 0:
                level += 1
            if dy == height - 1 or dx == width - 1:
                level -= 1
            wrap(image, x + dx, y + dy, SAND_STONE[level])


SAND_STONE = [STONE[1], STONE[2], (132, 126, 122), (160, 153, 144), (183, 175, 162),
              (206, 199, 184)]


def roof():
    """Rounded roof tiles in rows that are half a tile apart."""
    image = blank()
    fill(image, (0, 0) + TILE, ROOF[2])
    shape = ["RrrrrrD", "RrrrrrD", "RrrrrrD", "LRrrrqD", "DLRrqDD", "DDqqqDD", "KDDDDDK"]
    colours = {"r": ROOF[3], "R": ROOF[4], "L": ROOF[5], "q": ROOF[2], "D": ROOF[1],
               "K": ROOF[1]}
    rows = ((0, 0, 7), (7, 3, 7), (14, 0, 7), (21, 3, 8))
    for y, start, height in rows:
        for column in range(4):
            tall = shape if height == 7 else shape[:1] + shape
            stamp(image, tall, colours, start + column * 7, y, wrap)
    return image


def wall():
    """A plastered house wall with a timber frame and a stone foot."""
    image = blank()
    for y in range(29):
        for x in range(28):
            fleck = noise(x // 2, y // 2, 5) > 0.86
            put(image, x, y, PLASTER[2 if fleck else 3])
    fill(image, (0, 4, 28, 5), PLASTER[1])
    beam(image, (0, 0, 28, 4))
    for x0 in range(0, 28, 7):
        for y in range(23, 29):
            for x in range(x0, x0 + 7):
                joint = y in (25, 28) or (x - x0 + (3 if y > 25 else 0)) % 7 == 0
                put(image, x, y, STONE[1] if joint else STONE[4 if y in (23, 26) else 3])
    fill(image, (0, 22, 28, 23), WOOD[0])
    return image


def beam(image, box):
    """A timber with a light upper and a dark lower edge."""
    x0, y0, x1, y1 = box
    fill(image, box, WOOD[2])
    for x in range(x0, x1):
        put(image, x, y0, WOOD[3])
        put(image, x, y1 - 1, WOOD[1])
        if noise(x // 3, y0, 2) > 0.6:
            put(image, x, (y0 + y1) // 2, WOOD[1])


def window_wall():
    """The wall with a window, shutters and a box of flowers."""
    image = wall()
    rows = [
        "..oooooooooooooooo..",
        "oooffffffffffffffooo",
        "osofWbbbbffbbbbbfoso",
        "oSofbWbbbffWbbbbfoSo",
        "osofbbbbbffbWbbbfoso",
        "oSofbbbgbffbbbbbfoSo",
        "osoffffffffffffffoso",
        "oSofbbbbbffbbbbgfoSo",
        "osofbbbbbffbbbggfoso",
        "oooffffffffffffffooo",
        "..olrgllRgllrgllRo..",
        "..orRrglRrglRrlRro..",
        "..owvwvwvwvwvwvwvo..",
        "...oooooooooooooo...",
    ]
    colours = {"o": WOOD[0], "f": WOOD[4], "b": WATER[1], "W": WATER[5], "g": WATER[3],
               "s": ROOF[3], "S": ROOF[2], "l": LEAF[4], "r": RED[3], "R": GOLD[3],
               "w": WOOD[3], "v": WOOD[2]}
    rows[10] = rows[10].replace("g", "l")
    stamp(image, rows, colours, 4, 6)
    return image


def door():
    """The wall with a round-topped door and a step before it."""
    image = wall()
    for y in range(5, 27):
        for x in range(5, 23):
            rise = ((x - 13.5) / 9.0) ** 2 + ((min(y, 12) - 12) / 8.0) ** 2
            inner = ((x - 13.5) / 7.0) ** 2 + ((min(y, 12) - 12) / 6.2) ** 2
            if inner <= 1.0:
                plank = (x - 7) % 4 == 3
                put(image, x, y, ROOF[0] if plank else ROOF[3 if (x - 7) % 4 == 0 else 2])
            elif rise <= 1.0:
                put(image, x, y, STONE[4] if (x + y) % 5 else STONE[2])
    for y in (13, 21):
        stamp(image, ["iiiiiiii", "jjjjjjjj"], {"i": STONE[1], "j": INK}, 7, y)
    stamp(image, ["yY", "Yd"], {"y": GOLD[4], "Y": GOLD[3], "d": GOLD[1]}, 18, 16)
    stamp(image, ["llllllllllllllllllll", "mmmmmmmmmmmmmmmmmmmm", "dddddddddddddddddddd"],
          {"l": STONE[5], "m": STONE[4], "d": STONE[1]}, 4, 26)
    return image


def hedge():
    """A clipped hedge with blossoms; hedges side by side close up."""
    image = blank()
    for x, y, seed in ((4, 13, 1), (14, 11, 2), (24, 13, 3), (0, 19, 4), (9, 19, 5),
                       (19, 19, 6), (28, 19, 4)):
        ball(image, (x, y), (6.5, 6), LEAF[1:], 0.5, 0.3, seed)
    fill(image, (0, 21, 28, 25), LEAF[1])
    for x in range(28):
        for y in range(20, 25):
            if noise(x, y, 8) > 0.62:
                put(image, x, y, LEAF[2])
    for x, y in ((6, 12), (17, 9), (22, 17), (11, 18), (3, 19)):
        stamp(image, [".p.", "pyp", ".p."], {"p": WHITE, "y": GOLD[3]}, x, y)
    outline(image, LEAF[0])
    base = ground()
    shadow(base, (14, 25), (16, 2.2))
    return over(base, image)


def well():
    """A round stone well with water and a bucket's rope."""
    image = blank()
    ball(image, (14, 19), (11, 8), STONE[1:], 0.3)
    for y in range(17, 27):
        for x in range(3, 26):
            if image.getpixel((x, y))[3] and (y % 4 == 1 or (x + (y // 4) * 3) % 6 == 0):
                put(image, x, y, STONE[1])
    ball(image, (14, 15), (11, 5.5), [STONE[5]], 0)
    ball(image, (14, 15), (8.5, 3.8), [WATER[0]], 0)
    ball(image, (14, 16), (7, 2.4), [WATER[2]], 0)
    stamp(image, ["www..", "..ww."], {"w": WATER[4]}, 10, 15)
    for x in (3, 23):
        fill(image, (x, 4, x + 2, 16), WOOD[3])
        fill(image, (x + 1, 4, x + 2, 16), WOOD[1])
    fill(image, (1, 3, 27, 6), ROOF[3])
    fill(image, (3, 1, 25, 3), ROOF[4])
    fill(image, (1, 5, 27, 6), ROOF[1])
    fill(image, (13, 6, 14, 14), GOLD[1])
    outline(image, INK)
    base = ground()
    shadow(base, (14, 25), (12, 3))
    return over(base, image)


def talker():
    """The villager on the village's ground."""
    image = ground()
    shadow(image, (14, 26), (8, 2.2))
    return over(image, villager())


def tiles():
    """The ten tiles by rising code."""
    return [ground(), tufts(), lawn(), cobbles(), roof(), hedge(), well(), window_wall(),
            talker(), door()]
