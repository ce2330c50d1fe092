"""The game's title screen: an evening over the lake."""

import math

import people
from landscape import (Scene, castle, firs, great_tree, hill, lake, mountain, smooth,
                       streak, sun, sky)
from palette import GOLD, ramp
from pixels import noise

SKY = ramp("171a45 2b2762 4d3179 823f83 bd5578 e87f66 f7b26c fde09d")
FAR = ramp("33295f 453470 5a4080 744e8c 8d5c92")
SNOW = ramp("8c6fa6 f3c3b5")
BACK = ramp("2a2455 352b60 43346c 533e75")
MIDDLE = ramp("1b1d40 21254a 293054 34405f")
FRONT = ramp("10162b 131c33 18253c 203347 2d4a52")
NEAR = ramp("0c1020 0f1728 142033 1c2f3f 2b4a4c 4a6a55")
LEAVES = ramp("0a1020 101c2c 182c3a 22403f 355a48 61804f")
BARK = ramp("0b0c18 1a1524 2b1f2e 4a3340 7a5550")
WALLS = ramp("2b2350 3d2f62 6b4878")
ROOFS = ramp("3a1f4a 552a58 9a4a62")
POOL = ramp("f0a76d c96b78 7d4a82 463a72 2a2a58")


def background(scene):
    """Everything from the sky to the far shore."""
    sky(scene, SKY, 150)
    sun(scene, (322, 118), 21, (255, 240, 196), GOLD[4], 110)
    lit = ramp("6b3d80 a04f80 dd7570 fbc080")
    for x, y, width, seed in ((14, 26, 130, 1), (176, 74, 150, 2), (356, 30, 110, 3),
                              (30, 70, 60, 4), (300, 88, 150, 5), (408, 66, 90, 6)):
        streak(scene, x, y, width, lit, seed)
    for peak, half, seed in (((40, 92), 76, 1), ((212, 104), 62, 3), ((438, 88), 86, 5),
                             ((118, 76), 88, 7), ((282, 122), 46, 9), ((376, 112), 60, 4)):
        mountain(scene, peak, half, 160, FAR, SNOW, seed * 10)
    hill(scene, lambda x: 146 + smooth(x, 60, 21) * 7 + abs(x - 320) * -0.02, BACK, 16)


def middle(scene):
    """The castle on its rock, the woods and the lake."""
    hill(scene, crag, MIDDLE, 30, 4)
    castle(scene, 84, 116, WALLS, ROOFS, GOLD[3])
    firs(scene, wood(0, 190, 40, 7, crag), MIDDLE)
    lake(scene, lambda x: 154, lambda x: 178, POOL, (255, 226, 160), 322)
    hill(scene, lambda x: shore(170 - x) + smooth(x, 14, 8) * 1.5, MIDDLE[:3], 12)
    hill(scene, lambda x: shore(x - 368) + smooth(x, 14, 9) * 1.5, MIDDLE[:3], 12)
    firs(scene, [(x, int(shore(x - 368)) + 3, 9 + int(noise(x, 1) * 13))
                 for x in range(382, 480, 6)], MIDDLE)
    firs(scene, [(x, int(shore(170 - x)) + 3, 6 + int(noise(x, 1) * 9))
                 for x in range(2, 156, 9)], MIDDLE[:3])


def shore(inland):
    """The land's edge against the lake, rising quickly and then hardly at all."""
    return 178 - inland * 0.9 if inland < 24 else 156.4 - (inland - 24) * 0.06


def crag(x):
    """The castle's rock: steep to both sides, flat on its top."""
    away = max(0, abs(x - 113) - 33)
    return 115 + min(away * 0.8, 34) + smooth(x, 6, 2) * (2 if away else 0)


def wood(start, end, count, tall, curve):
    """Spots for count firs along a curve, higher ones in between."""
    spots = []
    for index in range(count):
        x = start + int((end - start) * (index + noise(index, 0, 2)) / count)
        if not 78 < x < 148:
            spots.append((x, int(curve(x)) + 3, tall + int(noise(index, 3) * 8)))
    return spots


def foreground(scene):
    """The dark meadow with the hero on a knoll, and a tree as a frame."""
    hill(scene, meadow, FRONT, 62, 6, 0.4)
    edge = [(x, int(meadow(x)) + 3, 7 + int(noise(x, 41) * 13)) for x in range(2, 480, 7)
            if x < 146 or x > 352]
    firs(scene, edge, FRONT[:4])
    reeds(scene)
    hill(scene, knoll, NEAR, 24, 7, 0.6)
    blades(scene, knoll)
    scene.lay(people.hero()["dos1"], 84, int(knoll(98)) - 26)
    scene.lay(great_tree(150, LEAVES, BARK, 3), 372, 66)
    hill(scene, lambda x: 262 - max(0, x - 290) ** 1.4 * 0.019 + smooth(x, 18, 15) * 1.5,
         NEAR, 16, 7, 0.6)
    fireflies(scene)


def meadow(x):
    """The near shore: a shallow bay with higher ends."""
    return 177 - (abs(x - 240) / 240) ** 2 * 7 + smooth(x, 34, 12) * 2


def reeds(scene):
    """Reeds along the shore, against the bright water."""
    for x in list(range(150, 196, 3)) + list(range(296, 352, 3)):
        x += int(noise(x, 44) * 3)
        tall = 3 + int(noise(x, 45) * 6)
        for dy in range(tall):
            scene.plot(x + (dy // 3 if noise(x, 46) > 0.5 else 0), int(meadow(x)) - dy, FRONT[1])


def knoll(x):
    """A rise in the left foreground."""
    if x < 98:
        return 199 + (98 - x) ** 1.3 * 0.035 + smooth(x, 11, 6) * 0.8
    return 270 - 71 * math.exp(-((x - 98) / 62) ** 2) + smooth(x, 11, 6) * 0.8


def fireflies(scene):
    """Small lights over the meadow, none before the menu and the hero."""
    for index in range(60):
        x, y = int(noise(index, 70) * 480), 184 + int(noise(index, 71) * 78)
        if 140 < x < 340 and y < 256 or 80 < x < 118 and y < 208:
            continue
        scene.plot(x, y, GOLD[4])
        for dx, dy in ((1, 0), (-1, 0), (0, 1), (0, -1)):
            if index % 3 == 0:
                scene.plot(x + dx, y + dy, (120, 110, 72))


def blades(scene, curve):
    """Grass on the knoll's edge against the light."""
    for x in range(0, 180, 3):
        for dy in range(1 + int(noise(x, 5) * 4)):
            scene.plot(x + (dy // 2 if noise(x, 7) > 0.5 else 0), int(curve(x)) - dy, NEAR[4])


def title():
    """The title screen; its lower middle is left dark and calm for a menu."""
    scene = Scene(480, 272)
    background(scene)
    middle(scene)
    foreground(scene)
    return scene.image
