"""The editor's own pictures in pixels: welcome scene, banner, fighter."""

import math

import people
from landscape import (Scene, castle, cloud, firs, great_tree, hill, lake, mix, mountain,
                       sky, smooth, sun)
from palette import BARK, EARTH, GOLD, GRASS, INK, LEAF, RED, ROOF, STONE, WATER, ramp
from pixels import blank, noise, put

SKY = ramp("3f7fc4 5e9cd6 88bce4 b6dbee e4f3ee")
CLOUD = ramp("a9c4dc cbdfec e9f3f6 ffffff")
FAR = ramp("5f7fa8 6f8fb4 84a3c2 9bb8cf b2cbdb")
SNOW = ramp("c3d6e6 ffffff")
BACK = ramp("4f8f6c 5d9e70 6fae78 86bd82")
WALLS = ramp("8a8aa0 b0aebc dcd8d6")
PAPER = ramp("f6ecd2 efe2c2 dccba4 b9a27a 8d7453")
CELL = 20


def far_country(scene, shift, horizon):
    """Sky, clouds and mountains; shift moves them to the right."""
    sky(scene, SKY, horizon)
    sun(scene, (shift + 160, 44), 15, (255, 247, 214), GOLD[4], 64)
    for x, y, width, seed in ((-137, 18, 70, 1), (-8, 30, 90, 2), (182, 12, 64, 5)):
        cloud(scene, shift + x, y, width, CLOUD, seed)
    for x, y, half, seed in ((-170, 96, 70, 1), (-90, 80, 84, 2), (20, 92, 76, 3),
                             (210, 84, 90, 5), (120, 104, 70, 8)):
        mountain(scene, (shift + x, y + horizon - 170), half, horizon + 8, FAR, SNOW,
                 seed * 10, -1)


def country(scene):
    """The whole country of the welcome view, as if all were painted."""
    far_country(scene, 270, 170)
    hill(scene, lambda x: 168 + smooth(x, 70, 3) * 8, BACK, 20, 1)
    hill(scene, rock, LEAF[2:], 40, 2)
    castle(scene, 372, 140, WALLS, ROOF[1:4], (70, 64, 92))
    spots = [(x, int(rock(x)) + 4, 9 + int(noise(x, 2) * 9)) for x in range(4, 480, 7)
             if not 362 < x < 440]
    firs(scene, spots, LEAF[1:4])
    slope = [(x, int(rock(x)) + 8 + int(noise(x, 8) * 44), 10 + int(noise(x, 9) * 7))
             for x in range(290, 480, 5)]
    slope = [spot for spot in slope if spot[1] < 194 and not 392 < spot[0] < 412]
    firs(scene, sorted(slope, key=lambda spot: spot[1]), LEAF[1:4])
    lake(scene, lambda x: 196 + abs(x - 330) * 0.03, lambda x: 214 + int(smooth(x, 40, 7) * 3),
         WATER[4:1:-1], WATER[5])
    hill(scene, lambda x: 212 + smooth(x, 46, 9) * 4, GRASS[1:5], 60, 3, 0.3)
    road(scene)
    hill(scene, lambda x: 288 + smooth(x, 40, 17) * 5 - max(0, x - 380) * 0.1, GRASS[0:4],
         20, 4, 0.3)


def rock(x):
    """The rise under the castle, and low woods elsewhere."""
    away = max(0, abs(x - 401) - 34)
    return min(140 + away * 0.75, 188 + smooth(x, 30, 5) * 4)


def road(scene):
    """A sandy road that winds from the foreground to the far shore."""
    scene.next_layer()
    sand = ramp("b98f5e d3ac76 e6c994")
    for y in range(216, 320):
        part = (y - 216) / 104
        middle = 372 + 46 * part * (1.6 - part) * smooth(y, 44, 4) - part * 24
        reach = 3 + part * 17
        for x in range(int(middle - reach), int(middle + reach) + 1):
            edge = abs(x - middle) / reach
            index = 0 if edge > 0.86 else 2 if noise(x // 3, y, 6) > 0.72 else 1
            scene.plot(x, y, sand[index])


def people_and_trees(scene):
    """What stands near: flowers, the hero on the road, a tree."""
    flowers(scene)
    scene.lay(great_tree(92, LEAF, BARK, 5), 398, 176)
    scene.lay(people.hero()["dos2"], 352, 244)


def flowers(scene):
    """Flowers all over the meadow, none on the road."""
    scene.next_layer()
    for index in range(70):
        x, y = int(noise(index, 1, 40) * 480), 226 + int(noise(index, 2, 40) * 90)
        colour = (RED[4], GOLD[3], (255, 255, 255))[index % 3]
        if scene.image.getpixel((x, y))[1] > scene.image.getpixel((x, y))[0] + 15:
            for dx, dy in ((0, 0), (1, 0), (0, 1), (1, 1)):
                scene.plot(x + dx, y + dy, colour if dx + dy < 2 else mix(colour, GRASS[1], 0.4))


def painted(column, row):
    """Whether a cell of the paper has come to life yet."""
    edge = 15.6 + smooth(row * 3, 5, 51) * 1.6
    gap = column - edge
    return gap > 2 or gap > -2 and noise(column, row, 52) < (gap + 2) / 4


def paper(scene, x, y):
    """The paper's pixel: squared, with the country's contours in pencil."""
    line = x % CELL == 0 or y % CELL == 0
    colour = PAPER[1] if line else PAPER[0]
    layer = scene.layer
    here = layer[y][x]
    beside = layer[y][min(scene.width - 1, x + 1)]
    below = layer[min(scene.height - 1, y + 1)][x]
    if here != beside or here != below:
        strength = 0.16 + 0.5 * max(0.0, min(1.0, (x - 40) / 300))
        if noise(x, y, 60) > 0.18:
            colour = mix(colour, PAPER[4], strength)
    return colour


def welcome():
    """Squared paper on which a country is drawn and, to the right, alive."""
    scene = Scene(480, 320)
    country(scene)
    people_and_trees(scene)
    image = blank((480, 320))
    for y in range(320):
        for x in range(480):
            if painted(x // CELL, y // CELL):
                put(image, x, y, scene.image.getpixel((x, y)))
            else:
                put(image, x, y, paper(scene, x, y))
    for row in range(16):
        for column in range(24):
            lift_cell(image, column, row)
    pencil(image, (204, 60), (262, 6))
    return image


def pencil(image, tip, end):
    """A pencil, six pixels thick, whose tip rests on the paper."""
    length = math.dist(tip, end)
    ux, uy = (end[0] - tip[0]) / length, (end[1] - tip[1]) / length
    for y in range(end[1] - 6, tip[1] + 6):
        for x in range(tip[0] - 6, end[0] + 8):
            along = (x - tip[0]) * ux + (y - tip[1]) * uy
            across = (x - tip[0]) * -uy + (y - tip[1]) * ux
            colour = pencil_colour(along / length, along, across)
            if colour:
                put(image, x, y, colour)


def pencil_colour(part, along, across):
    """The colour of a pencil's pixel, or nothing beside it."""
    reach = min(4.6, along * 0.42)
    if not 0 <= part <= 1 or abs(across) > reach:
        return None
    if abs(across) > reach - 1 or part > 0.985:
        return INK
    face = 3 if across < -1 else 2 if across < 1.4 else 1
    if along < 4:
        return INK
    if along < 12:
        return EARTH[face + 1]
    if part > 0.9:
        return RED[face + 1]
    return STONE[face + 1] if part > 0.83 else GOLD[face]


def lift_cell(image, column, row):
    """A lit upper and a shaded lower edge where painted cells meet the paper."""
    if not painted(column, row):
        return
    x, y = column * CELL, row * CELL
    for step in range(CELL):
        for dx, dy, there, tint in (
                (0, step, (column - 1, row), (255, 255, 255)),
                (step, 0, (column, row - 1), (255, 255, 255)),
                (CELL - 1, step, (column + 1, row), (30, 30, 60)),
                (step, CELL - 1, (column, row + 1), (30, 30, 60))):
            if not painted(*there) and x + dx < image.width and y + dy < image.height:
                old = image.getpixel((x + dx, y + dy))[:3]
                put(image, x + dx, y + dy, mix(old, tint, 0.45))


def banner():
    """The strip on top of the control panel."""
    scene = Scene(232, 64)
    sky(scene, SKY, 50)
    cloud(scene, 14, 0, 34, CLOUD, 1)
    cloud(scene, 96, -4, 40, CLOUD, 2)
    for x, y, half, seed in ((20, 20, 44, 1), (74, 14, 50, 2), (140, 22, 40, 3)):
        mountain(scene, (x, y), half, 56, FAR, SNOW, seed * 10, -1)
    hill(scene, lambda x: 44 + smooth(x, 40, 3) * 4, BACK, 12, 1)
    hill(scene, lambda x: min(50 + smooth(x, 20, 4) * 2, 48 + max(0, abs(x - 193) - 31) * 0.6),
         LEAF[2:], 20, 2)
    castle(scene, 164, 49, WALLS, ROOF[1:4], (70, 64, 92), 0.7)
    firs(scene, [(x, 52 + int(noise(x, 1) * 3), 8 + int(noise(x, 2) * 7))
                 for x in range(2, 160, 8)], LEAF[1:4])
    hill(scene, lambda x: 54 + smooth(x, 30, 9) * 2, GRASS[1:5], 14, 3, 0.3)
    scene.lay(people.hero()["droite2"], 112, 32)
    return scene.image


def fighter():
    """A stand-in for a fighter's picture: the hero, twice as large."""
    image = blank((64, 64))
    hero = people.hero()["droite1"]
    ground = blank((64, 64))
    for x in range(64):
        for y in range(54, 64):
            if ((x - 32) / 22) ** 2 + ((y - 58) / 4.5) ** 2 <= 1:
                put(ground, x, y, STONE[0], 90)
    image.alpha_composite(ground)
    image.alpha_composite(hero.resize((56, 58), 0), (4, 1))
    return image
