"""Tileset 03: inside a house, that is also an inn or a shop."""

from palette import (BLUE, GOLD, INK, LEAF, PLASTER, PLUM, RED, ROOF, STONE, WHITE, WOOD)
from people import shopkeeper
from pixels import blank, fill, noise, outline, over, put, shadow, stamp, wrap


def planks():
    """A floor of long boards with staggered ends."""
    image = blank()
    ends = {0: 9, 1: 23, 2: 3, 3: 17}
    for y in range(29):
        board = min(3, y // 7)
        top = y - board * 7
        for x in range(28):
            colour = WOOD[4]
            if top == 0:
                colour = FLOOR_LIGHT
            if top == (6 if board < 3 else 7):
                colour = WOOD[2]
            put(image, x, y, colour)
        if top < (6 if board < 3 else 7):
            put(image, ends[board], y, WOOD[2])
            put(image, (ends[board] + 1) % 28, y, FLOOR_LIGHT)
    for x, y in ((4, 3), (15, 10), (22, 17), (8, 24)):
        stamp(image, ["gggg..", "...ggg"], {"g": WOOD[3]}, x, y, wrap)
    return image


FLOOR_LIGHT = (198, 153, 104)


def worn_planks():
    """The boards with knots and a crack."""
    image = planks()
    knot = [".ggg.", "gdkdg", ".ggg."]
    for x, y in ((14, 2), (3, 16), (20, 23)):
        stamp(image, knot, {"g": WOOD[3], "d": WOOD[2], "k": WOOD[1]}, x, y)
    stamp(image, ["kk....", "..kkk.", ".....k"], {"k": WOOD[1]}, 5, 9)
    return image


def flagstones():
    """A kitchen floor of pale stone squares."""
    image = blank()
    for y in range(29):
        for x in range(28):
            across, down = x % 14, (y if y < 14 else y - 14)
            tall = 14 if y < 14 else 15
            shade = 3 if (x < 14) == (y < 14) else 4
            colour = TILES[shade]
            if across == 0 or down == 0:
                colour = TILES[5]
            if across == 13 or down == tall - 1:
                colour = TILES[1]
            elif noise(x // 2, y // 2, 21) > 0.93:
                colour = TILES[shade - 1]
            put(image, x, y, colour)
    return image


TILES = [STONE[1], (134, 122, 112), (165, 155, 142), (181, 172, 158), (196, 188, 173),
         (214, 207, 192)]


def rug():
    """A woven red rug whose pattern runs on in all directions."""
    image = blank()
    for y in range(29):
        for x in range(28):
            across, down = abs(x - 13.5), abs(y - 14) * 27 / 28
            weave = RED[2] if (x + y) % 2 else RUG
            far = across + down
            colour = weave
            if 11 <= far < 13:
                colour = GOLD[2]
            elif far < 3:
                colour = GOLD[3]
            elif far < 5:
                colour = RED[0]
            elif 22 <= far < 24:
                colour = BLUE[2]
            elif far >= 25.5:
                colour = GOLD[3]
            put(image, x, y, colour)
    return image


RUG = (182, 45, 58)


def wall():
    """A plastered inside wall above a dark wainscot."""
    image = blank()
    for y in range(29):
        for x in range(28):
            stripe = x % 14 in (3, 4, 5)
            put(image, x, y, PLASTER[3 if stripe else 2])
    fill(image, (0, 0, 28, 3), WOOD[1])
    fill(image, (0, 0, 28, 1), WOOD[2])
    fill(image, (0, 3, 28, 4), PLASTER[0])
    fill(image, (0, 18, 28, 19), WOOD[4])
    fill(image, (0, 19, 28, 27), WOOD[2])
    for x in range(0, 28, 7):
        fill(image, (x, 20, x + 1, 27), WOOD[1])
        fill(image, (x + 1, 20, x + 2, 27), WOOD[3])
    fill(image, (0, 26, 28, 29), WOOD[1])
    fill(image, (0, 28, 28, 29), WOOD[0])
    return image


def bookshelf():
    """Three boards of books before the wall."""
    image = wall()
    fill(image, (1, 1, 27, 29), WOOD[0])
    fill(image, (2, 2, 26, 28), WOOD[3])
    fill(image, (2, 2, 26, 3), WOOD[5])
    spines = [RED[2], BLUE[3], GOLD[2], LEAF[3], PLUM[2], ROOF[4], BLUE[2], LEAF[4], RED[3]]
    for shelf, top in enumerate((4, 12, 20)):
        fill(image, (4, top, 24, top + 7), WOOD[0])
        x = 4
        while x < 23:
            width = 2 if noise(x, top, 3) > 0.45 else 3
            height = 5 + int(noise(x, top, 4) * 2)
            colour = spines[int(noise(x, top, 5 + shelf) * len(spines))]
            book(image, x, top + 7 - height, min(width, 24 - x), height, colour)
            x += width
    return image


def book(image, x, y, width, height, colour):
    """A spine with a lit edge and a golden band."""
    fill(image, (x, y, x + width, y + height), colour)
    dark = [int(c * 0.65) for c in colour]
    fill(image, (x + width - 1, y, x + width, y + height), dark)
    fill(image, (x, y + 2, x + width - 1, y + 3), GOLD[4])


def table():
    """A table with a jug and a loaf."""
    image = planks()
    shadow(image, (14, 25), (13, 3))
    for x in (3, 22):
        fill(image, (x, 18, x + 3, 27), WOOD[1])
        fill(image, (x, 18, x + 1, 27), WOOD[2])
    rows = blank()
    fill(rows, (2, 7, 26, 19), WOOD[3])
    fill(rows, (2, 7, 26, 8), WOOD[5])
    fill(rows, (2, 17, 26, 20), WOOD[1])
    for y in (10, 14):
        fill(rows, (3, y, 25, y + 1), WOOD[2])
    outline(rows, WOOD[0])
    over(image, rows)
    jug = ["..ooo...", ".obBwo..", ".obBbooo", "obBbbbo.o", "obBbbbooo", "obbbbCo.", ".oooooo."]
    stamp(image, jug, {"o": INK, "b": BLUE[3], "B": BLUE[4], "w": WHITE, "C": BLUE[2]}, 5, 4)
    loaf = ["..oooooo..", ".oLlLlLlo.", "olLlLlLlmo", "ollllllmmo", ".oooooooo."]
    stamp(image, loaf, {"o": WOOD[0], "L": GOLD[4], "l": GOLD[2], "m": GOLD[1]}, 14, 9)
    return image


def hearth():
    """A fireplace in the wall."""
    image = wall()
    for y in range(3, 29):
        for x in range(2, 26):
            joint = y % 5 == 2 or (x + (y // 5) * 4) % 8 == 0
            put(image, x, y, STONE[1] if joint else STONE[3 + (noise(x // 8, y // 5) > 0.5)])
    fill(image, (1, 3, 27, 6), WOOD[3])
    fill(image, (1, 5, 27, 6), WOOD[0])
    fill(image, (1, 3, 27, 4), WOOD[5])
    for y in range(10, 27):
        for x in range(6, 22):
            if ((x - 13.5) / 8) ** 2 + ((min(y, 16) - 16) / 6.5) ** 2 <= 1:
                put(image, x, y, INK)
    flame = [
        ".....r......", "....rr...r..", "..r.rorr.rr.", ".rrrrooorror", "rroorooyoorr",
        "rooyooyyoyor", "roywyyywyyor", ".rowwywwwyr.", "kkkkkkkkkkkk", ".kmmkkmmkk..",
    ]
    stamp(image, flame, {"r": RED[3], "o": ROOF[5], "y": GOLD[3], "w": GOLD[4],
                         "k": WOOD[1], "m": WOOD[3]}, 8, 16)
    fill(image, (3, 27, 25, 29), STONE[4])
    fill(image, (3, 28, 25, 29), STONE[1])
    return image


def talker():
    """The shopkeeper behind a counter."""
    image = planks()
    over(image, shopkeeper(), 0, 0)
    fill(image, (0, 19, 28, 20), WOOD[0])
    fill(image, (0, 20, 28, 23), WOOD[4])
    fill(image, (0, 20, 28, 21), WOOD[5])
    fill(image, (0, 23, 28, 29), WOOD[2])
    fill(image, (0, 23, 28, 24), WOOD[0])
    fill(image, (0, 28, 28, 29), WOOD[0])
    for x in range(0, 28, 7):
        fill(image, (x, 24, x + 1, 28), WOOD[1])
        fill(image, (x + 1, 24, x + 2, 28), WOOD[3])
    coins = [".yy.", "yYYd", ".dd."]
    colours = {"y": GOLD[4], "Y": GOLD[3], "d": GOLD[1]}
    stamp(image, coins, colours, 3, 18)
    stamp(image, coins, colours, 22, 18)
    return image


def door():
    """A door in the wall, with a mat before it."""
    image = wall()
    fill(image, (4, 2, 24, 27), WOOD[0])
    fill(image, (5, 3, 23, 27), WOOD[4])
    fill(image, (7, 5, 21, 27), WOOD[0])
    for x in range(8, 20):
        for y in range(6, 27):
            put(image, x, y, WOOD[1 if (x - 8) % 4 == 3 else 3 if (x - 8) % 4 == 0 else 2])
    for y in (9, 20):
        fill(image, (8, y, 16, y + 2), STONE[2])
        fill(image, (8, y, 16, y + 1), STONE[4])
    stamp(image, ["yY", "Yd"], {"y": GOLD[4], "Y": GOLD[3], "d": GOLD[1]}, 17, 15)
    fill(image, (5, 26, 23, 29), LEAF[2])
    for x in range(5, 23, 2):
        put(image, x, 27, LEAF[4])
    fill(image, (5, 28, 23, 29), LEAF[0])
    return image


def tiles():
    """The ten tiles by rising code."""
    return [planks(), worn_planks(), flagstones(), rug(), bookshelf(), table(), hearth(),
            wall(), talker(), door()]
