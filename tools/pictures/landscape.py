"""Landscapes in pixels: sky, mountains, hills, castle, trees, water."""

import math

from PIL import Image

from pixels import ball, blank, dither, noise, outline, put


class Scene:
    """A picture that is drawn from its background to its front."""

    def __init__(self, width, height):
        self.width, self.height = width, height
        self.image = Image.new("RGBA", (width, height), (0, 0, 0, 255))

    def plot(self, x, y, colour):
        """Sets one pixel; outside nothing happens."""
        if 0 <= x < self.width and 0 <= y < self.height:
            self.image.putpixel((x, y), tuple(colour[:3]) + (255,))

    def lay(self, thing, x, y):
        """Puts a picture with transparency in front."""
        pixels = thing.load()
        for dy in range(thing.height):
            for dx in range(thing.width):
                if pixels[dx, dy][3] > 127:
                    self.plot(x + dx, y + dy, pixels[dx, dy])


def mix(one, other, part):
    """The colour between two."""
    return tuple(int(a + (b - a) * part + 0.5) for a, b in zip(one, other))


def smooth(x, scale, seed):
    """A soft curve along x, -1 to 1, with bumps about scale pixels wide."""
    cell = math.floor(x / scale)
    part = x / scale - cell
    part = part * part * (3 - 2 * part)
    left, right = noise(int(cell), 0, seed), noise(int(cell) + 1, 0, seed)
    return (left + (right - left) * part) * 2 - 1


def sky(scene, colours, bottom, steps=4):
    """A gradient from the top to row bottom, in dithered steps."""
    ramp = []
    for one, other in zip(colours, colours[1:]):
        ramp += [mix(one, other, part / steps) for part in range(steps)]
    ramp.append(colours[-1])
    for y in range(scene.height):
        level = min(1.0, y / bottom) * (len(ramp) - 1)
        for x in range(scene.width):
            index = int(level + dither(x, y) * 0.9 + 0.5)
            scene.plot(x, y, ramp[max(0, min(len(ramp) - 1, index))])


def sun(scene, centre, radius, disc, glow, reach):
    """A disc with rings of dithered light around it."""
    cx, cy = centre
    for y in range(scene.height):
        for x in range(scene.width):
            far = math.hypot(x - cx, y - cy)
            if far <= radius:
                scene.plot(x, y, disc)
            elif far < reach:
                part = (1 - (far - radius) / (reach - radius)) ** 2
                part = math.floor(part * 9 + dither(x, y) * 0.9 + 0.45) / 9 * 0.75
                if part > 0:
                    old = scene.image.getpixel((x, y))[:3]
                    scene.plot(x, y, mix(old, glow, part))


def streak(scene, x, y, width, ramp, seed):
    """A long thin evening cloud, lit from below."""
    for dx in range(width):
        part = dx / width
        thick = math.sin(part * math.pi) ** 0.7 * (3.2 + smooth(dx, 16, seed) * 3)
        if thick < 0.8:
            continue
        for dy in range(int(-thick), int(thick * 0.6) + 1):
            level = (dy + thick) / (thick * 1.6 + 0.01) * (len(ramp) - 1)
            index = max(0, min(len(ramp) - 1, int(level + dither(x + dx, y + dy) * 0.6 + 0.5)))
            scene.plot(x + dx, y + dy, ramp[index])


def mountain(scene, peak, half, bottom, ramp, snow, seed, light=1):
    """A peak with a bright and a dark face; light is the bright side, -1 left."""
    px, py = peak
    height = bottom - py
    for y in range(py, bottom):
        part = (y - py) / height
        reach = half * part ** 0.9
        left = px - reach - smooth(y, 7, seed) * 2.5 * part
        right = px + reach + smooth(y, 6, seed + 1) * 2.5 * part
        crest = px + smooth(y, 9, seed + 2) * reach * 0.28
        for x in range(int(left), int(right) + 1):
            scene.plot(x, y, face(x, y, crest, part, ramp, snow, seed, light, reach))


def face(x, y, crest, part, ramp, snow, seed, light, reach):
    """The colour of a mountain's pixel: snow above a ragged line, gullies below."""
    side = (x - crest) * light / max(1.0, reach)
    gully = smooth(x * 1.4 - y * 0.9 * light, 7, seed + 3)
    lit = side > 0 and gully > -0.45 or side <= 0 and gully > 0.72
    line = 0.34 + smooth(x, 5, seed + 4) * 0.13
    if part < line:
        return snow[1] if lit else snow[0]
    level = (2 if lit else 1) + part * 1.0 + dither(x, y) * 0.5
    return ramp[max(0, min(len(ramp) - 1, int(level)))]


def hill(scene, curve, ramp, depth=34.0, seed=0, grain=0.5):
    """All below the curve (row by column), lit at the edge and darker deeper down."""
    for x in range(scene.width):
        top = curve(x)
        for y in range(int(top), scene.height):
            level = (1 - min(1.0, (y - top) / depth)) * (len(ramp) - 1)
            speck = (noise(x // 2, y, seed) - 0.5) * grain
            index = int(level + speck + dither(x, y) * 0.8 + 0.5)
            scene.plot(x, y, ramp[max(0, min(len(ramp) - 1, index))])


def firs(scene, spots, ramp, seed=0):
    """Small firs; spots are (x, foot row, height)."""
    for x, foot, height in spots:
        for dy in range(height):
            tier = dy % 4
            reach = dy / height * height * 0.32 + tier * 0.45
            for dx in range(-int(reach), int(reach) + 1):
                index = 1 + (1 if dx < 0 else 0) - (1 if tier == 3 or dx > reach * 0.5 else 0)
                scene.plot(x + dx, foot - height + dy, ramp[max(0, min(2, index))])
        scene.plot(x, foot, ramp[0])


def lake(scene, curve_top, bottom, colours, glints, shine=None):
    """Water between the curve and row bottom; shine is the column of the sun's path."""
    for x in range(scene.width):
        for y in range(int(curve_top(x)), bottom(x)):
            level = (y - curve_top(x)) / max(1, bottom(x) - curve_top(x))
            index = int(level * (len(colours) - 1) + dither(x, y) * 0.7 + 0.5)
            colour = colours[max(0, min(len(colours) - 1, index))]
            if noise(x // 7, y, 31) > 0.9:
                colour = mix(colour, glints, 0.35)
            if shine is not None and abs(x - shine) < 16 - abs(noise(0, y, 3) * 9):
                if noise(x // 4, y, 5) > 0.35:
                    colour = glints
            scene.plot(x, y, colour)


def castle(scene, x, foot, ramp, roof, window, tall=1.0):
    """A castle 58 wide with five towers, 65 x tall high; foot is the row below it."""
    towers = ((0, 26, 9, 10), (12, 36, 8, 12), (24, 50, 11, 15), (39, 33, 8, 12),
              (49, 24, 9, 10))
    block(scene, x + 3, foot - 17, 52, 17, ramp)
    for dx in range(3, 55, 4):
        block(scene, x + dx, foot - 19, 2, 2, ramp[1:])
    for dx, height, width, spire in towers:
        height, spire = int(height * tall), int(spire * tall)
        block(scene, x + dx, foot - height, width, height, ramp)
        cone(scene, x + dx - 1, foot - height, width + 2, spire, roof)
        for y in range(foot - height + 4, foot - 8, 8):
            pane(scene, x + dx + width // 2, y, window)
    gate(scene, x + 26, foot, ramp[0])


def block(scene, x, y, width, height, ramp):
    """A wall, bright on its right edge and darker on its left."""
    for dy in range(height):
        for dx in range(width):
            part = dx / max(1, width - 1)
            index = 2 if part > 0.7 else 1 if part > 0.25 else 0
            if noise((x + dx) // 3, (y + dy) // 2, 17) > 0.85:
                index = max(0, index - 1)
            scene.plot(x + dx, y + dy, ramp[min(index, len(ramp) - 1)])


def cone(scene, x, foot, width, height, roof):
    """A pointed roof."""
    for dy in range(height):
        reach = (dy + 1) / height * width / 2
        for dx in range(width):
            side = dx + 0.5 - width / 2
            if abs(side) <= reach:
                index = 2 if side > reach * 0.35 else 1 if side > -reach * 0.4 else 0
                scene.plot(x + dx, foot - height + dy, roof[index])


def pane(scene, x, y, window):
    """A lit slit window."""
    scene.plot(x, y, window)
    scene.plot(x, y + 1, window)


def gate(scene, x, foot, colour):
    """An arched gate of seven by nine pixels."""
    for dy in range(9):
        for dx in range(7):
            if dy > 1 or 1 <= dx <= 5 and dy or 2 <= dx <= 4:
                scene.plot(x + dx, foot - 9 + dy, colour)


def great_tree(size, ramp, bark, seed):
    """A broad tree, size pixels wide, with its trunk in the middle."""
    image = blank((size, int(size * 1.15)))
    middle, half = size / 2, size / 2
    for y in range(int(size * 0.55), image.height):
        flare = max(0.0, (y - size * 0.95) / size) * 0.5
        reach = size * (0.07 + flare * flare * 3)
        for x in range(int(middle - reach), int(middle + reach) + 1):
            side = (x - middle) / reach + (noise(x // 2, y // 5, seed) - 0.5) * 0.6
            put(image, x, y, bark[3 if side < -0.4 else 2 if side < 0.25 else 1])
    clumps = []
    for index in range(44):
        angle = index * 2.399963
        far = math.sqrt((index + 0.5) / 44)
        clumps.append((half * 0.78 + math.sin(angle) * far * half * 0.56,
                       middle + math.cos(angle) * far * half * 0.76,
                       half * (0.2 + noise(index, 0, seed) * 0.06)))
    for index, (cy, cx, radius) in enumerate(sorted(clumps, reverse=True)):
        depth = (cx - middle) / half * 0.9 + (cy - half * 0.78) / half * 1.3
        first = max(0, min(2, int(1.2 + depth)))
        tones = ramp[1:len(ramp) - first]
        ball(image, (cx, cy), (radius, radius * 0.85), tones, 0.5, 0.45, seed + index)
    outline(image, ramp[0])
    return image
