"""Tileset 04: a cave with crystals, dark water and a hermit."""

from palette import CAVE, CRYSTAL, EARTH, GLOW, GOLD, INK, LEAF, STONE, WHITE
from people import hermit
from pixels import (TILE, ball, blank, dither, fill, noise, outline, over, put, scatter,
                    shadow, stamp, wrap)


def floor():
    """The cave's even floor."""
    image = blank()
    fill(image, (0, 0) + TILE, CAVE[4])
    scatter(image, [(4, 4), (18, 8), (9, 17), (22, 23)], [".lll.", "ll..."], {"l": FLOOR})
    scatter(image, [(12, 3), (24, 14), (3, 13), (15, 22), (7, 26)], ["dd.", ".dd"],
            {"d": CAVE[3]})
    return image


FLOOR = (101, 99, 104)


def pebbles():
    """The floor with cracks and loose stones."""
    image = floor()
    scatter(image, [(4, 7), (19, 18), (11, 22)], [".ll.", "lmmd", "dddd"],
            {"l": CAVE[6], "m": CAVE[5], "d": CAVE[2]})
    stamp(image, ["dd......", "..dd.d..", "....dd..", "......dd", "....dd.."],
          {"d": CAVE[2]}, 13, 7)
    scatter(image, [(22, 5), (6, 17)], ["ll", "dd"], {"l": CAVE[5], "d": CAVE[2]})
    return image


def mushrooms():
    """The floor with glowing mushrooms."""
    image = floor()
    for y in range(29):
        for x in range(28):
            near = min((x - 10) ** 2 + (y - 15) ** 2, (x - 20) ** 2 + (y - 20) ** 2)
            if near < 60 and near / 60 + dither(x, y) * 0.8 < 0.55:
                put(image, x, y, (78, 102, 108))
    big = ["...oooo...", ".ooGGGgoo.", "oGGwGGgggo", "oGwwGgGggo", "oGGGggggho",
           ".oohhhhoo.", "...opqo...", "...opqo...", "...oppqo..", "...ooooo.."]
    small = ["..ooo..", ".oGGgo.", "oGwGggo", "oGGgggo", ".ooooo.", "..opo..", "..oqo..",
             "..ooo.."]
    colours = {"o": GLOW_EDGE, "G": GLOW[3], "g": GLOW[2], "h": GLOW[1], "w": GLOW[4],
               "p": WHITE, "q": STONE[4]}
    stamp(image, big, colours, 6, 7)
    stamp(image, small, colours, 17, 15)
    stamp(image, [".ooo.", "oGwgo", "oGggo", ".opo.", ".ooo."], colours, 4, 20)
    return image


GLOW_EDGE = (18, 46, 58)


def path():
    """A sandy trail over the floor."""
    image = blank()
    fill(image, (0, 0) + TILE, TRAIL[2])
    scatter(image, [(5, 5), (18, 10), (9, 19)], ["lll.", ".lll"], {"l": TRAIL[3]})
    scatter(image, [(15, 4), (3, 13), (21, 21), (12, 25)], ["dd"], {"d": TRAIL[1]})
    scatter(image, [(22, 15), (8, 11)], [".ll", "lmd", "ddd"],
            {"l": EARTH[3], "m": TRAIL[3], "d": TRAIL[0]})
    corner = ["gggd", "ggd.", "gd..", "d..."]
    for flip_x, flip_y in ((0, 0), (0, 1), (1, 0), (1, 1)):
        rows = corner[::-1] if flip_y else corner
        rows = [row[::-1] for row in rows] if flip_x else rows
        stamp(image, rows, {"g": CAVE[4], "d": TRAIL[0]}, 24 * flip_x, 25 * flip_y)
    return image


TRAIL = [(94, 74, 66), (122, 98, 80), (140, 114, 91), (157, 130, 103)]


def wall():
    """Layered rock, dark at the foot; courses join sideways and upwards."""
    image = blank()
    fill(image, (0, 0) + TILE, CAVE[1])
    lumps = ((3, 4, 7, 5), (15, 3, 7, 5), (26, 5, 6, 5), (9, 11, 7, 5.5), (21, 12, 7, 5.5),
             (2, 18, 6.5, 5.5), (14, 20, 7, 5.5), (26, 20, 6, 5.5), (8, 26, 7, 4.6),
             (20, 27, 7, 4.2))
    for index, (x, y, rx, ry) in enumerate(lumps):
        for shift_x in (-28, 0, 28):
            for shift_y in (-29, 0):
                ball(image, (x + shift_x, y + shift_y), (rx, ry), ROCK, 0.5, 0.0, index)
    return image


ROCK = [CAVE[0], CAVE[1], CAVE[2], CAVE[3], (86, 82, 96), (112, 107, 118)]


def stalagmite():
    """Three cones of stone that grew from the floor."""
    image = blank()
    for x, top, bottom, half in ((8, 10, 25, 4.5), (21, 12, 26, 4.5), (14, 2, 27, 6.5)):
        for y in range(top, bottom):
            reach = half * ((y - top + 1) / (bottom - top)) ** 0.8
            for px in range(28):
                side = (px - x) / reach
                if abs(side) <= 1:
                    ring = 0.7 if (y + int(side * 2)) % 6 == 0 else 0
                    level = 4.7 - side * 1.8 - ring + dither(px, y) * 0.5
                    put(image, px, y, CAVE[max(2, min(6, int(level + 0.5)))])
    outline(image, INK)
    ground = floor()
    shadow(ground, (15, 25.5), (12, 3))
    return over(ground, image)


def crystal():
    """A group of violet crystals with a faint light round it."""
    ground = floor()
    for y in range(29):
        for x in range(28):
            if ((x - 14) / 14) ** 2 + ((y - 20) / 9) ** 2 + dither(x, y) < 0.8:
                put(ground, x, y, (96, 86, 120))
    image = blank()
    for x, top, half, lean in ((8, 10, 3, -0.25), (20, 8, 3, 0.25), (14, 2, 4, 0.0)):
        shard(image, x, top, half, lean)
    outline(image, CRYSTAL[0])
    shadow(ground, (14, 25.5), (10, 2.4))
    return over(ground, image)


def shard(image, x, top, half, lean):
    """One crystal: a light, a middle and a dark face under a point."""
    for y in range(top, 26):
        reach = min(half, (y - top) * 0.8 + 0.5)
        middle = x - lean * (y - 26)
        for px in range(28):
            side = (px - middle) / reach
            if abs(side) > 1:
                continue
            face = 4 if side < -0.35 else 3 if side < 0.2 else 2 if side < 0.7 else 1
            if (y - top) < half and side < 0.2:
                face = 4
            put(image, px, y, CRYSTAL[face])


def water():
    """Dark, still water."""
    image = blank()
    fill(image, (0, 0) + TILE, POOL[1])
    wave = ["..llll....", "ll....ll..", "........ll"]
    for x, y in ((2, 3), (16, 10), (4, 18), (19, 24)):
        stamp(image, wave, {"l": POOL[2]}, x, y, wrap)
        stamp(image, [".dddddd", "d......"], {"d": POOL[0]}, x + 1, y + 4, wrap)
    for x, y in ((5, 3), (22, 24)):
        stamp(image, ["ww"], {"w": GLOW[2]}, x, y, wrap)
    return image


POOL = [(20, 38, 62), (27, 52, 80), (38, 74, 104)]


def talker():
    """The hermit with his lantern."""
    image = floor()
    for y in range(29):
        for x in range(28):
            if ((x - 23) / 8) ** 2 + ((y - 21) / 7) ** 2 + dither(x, y) < 0.75:
                put(image, x, y, (122, 108, 92))
    shadow(image, (14, 26), (8, 2.2))
    over(image, hermit())
    lantern = [".oo.", "o..o", "oooo", "oyyo", "oywo", "oyyo", "oooo"]
    stamp(image, lantern, {"o": INK, "y": GOLD[3], "w": WHITE}, 22, 17)
    return image


def exit_stairs():
    """Stairs in the rock that lead up to the daylight."""
    image = wall()
    for y in range(29):
        for x in range(28):
            reach = ((x - 13.5) / 10.5) ** 2 + ((min(y, 14) - 14) / 12.0) ** 2
            if reach <= 1:
                put(image, x, y, step_colour(x, y))
            elif reach <= 1.3:
                put(image, x, y, CAVE[5 if x < 14 else 3])
    return image


DAYLIGHT = [(214, 238, 244), (246, 250, 224)]


def step_colour(x, y):
    """A stair's pixel: lighter with each step towards the top."""
    if y < 9:
        blade = y > 6 and (y == 8 or noise(x, y, 6) > 0.5)
        return LEAF[5] if blade else DAYLIGHT[0 if y < 6 else 1]
    step, edge = (y - 9) // 4, (y - 9) % 4
    ramp = [STONE[5], STONE[4], STONE[3], STONE[2], CAVE[5]]
    dark = [STONE[3], STONE[2], STONE[1], CAVE[3], CAVE[2]]
    return dark[min(4, step)] if edge > 1 else ramp[min(4, step)]


def tiles():
    """The ten tiles by rising code."""
    return [floor(), pebbles(), mushrooms(), path(), stalagmite(), wall(), crystal(),
            water(), talker(), exit_stairs()]
