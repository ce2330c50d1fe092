"""The editor's icons and the sign of the program."""

import math

from palette import BLUE, GOLD, LEAF, NIGHT, RED, ROOF, STONE, WATER, WHITE, WOOD
from vector import Drawing, box, oval, star, turned

SHEET = ((255, 252, 243), (236, 224, 196))
GREEN = ((126, 200, 96), (62, 146, 78))
STEEL = ((240, 244, 248), (160, 172, 192))
BRASS = (GOLD[4], GOLD[2])


def create():
    """A new sheet with the first piece of a country, and a plus."""
    art = Drawing(48, 1.6)
    art.shape([(8, 4), (29, 4), (38, 13), (38, 43), (8, 43)], SHEET)
    art.shape([(29, 4), (38, 13), (29, 13)], ((226, 208, 170), (200, 178, 136)))
    art.shape(box(13, 17, 33, 36), (WATER[4], WATER[5]), 0)
    art.shape(oval(26.5, 22.5, 3), GOLD[3], 0)
    art.shape([(13, 36), (13, 31), (20, 23), (27, 31), (33, 28), (33, 36)],
              (LEAF[5], LEAF[3]), 0)
    art.stroke(box(13, 17, 33, 36) + [(13, 17)], (122, 104, 82), 1)
    art.shape(oval(36, 36.5, 9), GREEN)
    art.stroke([(36, 31.7), (36, 41.3)], WHITE, 2.8)
    art.stroke([(31.2, 36.5), (40.8, 36.5)], WHITE, 2.8)
    return art


def open_project():
    """A folder out of which a map looks."""
    art = Drawing(48, 1.6)
    art.shape([(4, 12), (6, 9), (17, 9), (20, 13), (40, 13), (42, 15), (42, 40), (4, 40)],
              (GOLD[2], GOLD[1]))
    sheet = turned(box(12, 6, 37, 34, 1.5), (24, 20), 5)
    art.shape(sheet, SHEET)
    art.stroke([(17, 14), (22, 18), (20, 22)], RED[2], 1.6)
    for degrees in (45, -45):
        art.stroke(turned([(28, 13), (33, 13)], (30.5, 13), degrees), RED[2], 1.7)
    art.stroke([(25, 19), (30, 17)], RED[2], 1.6)
    art.shape([(9, 21), (46, 21), (41, 41), (4, 41)], (GOLD[4], GOLD[2]))
    art.stroke([(12, 23.6), (42.6, 23.6)], (255, 247, 214), 1.2)
    return art


def documentation():
    """An open book with a ribbon."""
    art = Drawing(48, 1.6)
    art.shape([(3, 13), (24, 17), (45, 13), (45, 40), (24, 44), (3, 40)],
              (BLUE[3], BLUE[2]))
    left = [(6, 9), (14, 8), (20, 9.5), (24, 13), (24, 40), (20, 37.5), (14, 36.5), (6, 37)]
    art.shape(left, SHEET)
    art.shape([(48 - x, y) for x, y in left], ((255, 250, 236), (222, 208, 178)))
    for y in (16, 21, 26, 31):
        art.stroke([(9.5, y - 1), (14.5, y - 1), (20.5, y + 1)], (164, 148, 120), 1.5)
    art.stroke([(27.5, 32), (33.5, 30), (38.5, 30)], (164, 148, 120), 1.5)
    art.shape(oval(33.3, 20, 6.2), (WATER[4], WATER[2]), 1.2)
    art.stroke([(33.3, 19.6), (33.3, 23)], WHITE, 1.8)
    art.shape(oval(33.3, 16.6, 1.1), WHITE, 0)
    art.shape([(37, 7.6), (41, 7.8), (41, 15), (39, 13), (37, 15)], (RED[3], RED[2]), 1)
    return art


def sword(art, degrees):
    """A sword with its point up, turned about the picture's middle."""
    middle = (12, 12)
    art.shape(turned([(10.1, 17), (10.1, 0.6), (12, -2.6), (13.9, 0.6), (13.9, 17)],
                     middle, degrees), STEEL)
    art.stroke(turned([(12, 1.4), (12, 16)], middle, degrees), (128, 142, 168), 0.7)
    art.shape(turned(box(10.9, 18.6, 13.1, 24), middle, degrees), WOOD[2])
    art.shape(turned(box(7.2, 16.6, 16.8, 19, 1.1), middle, degrees), BRASS)
    art.shape(turned(oval(12, 25, 1.7), middle, degrees), BRASS)


def fight():
    """Two crossed swords."""
    art = Drawing(24, 0.9)
    sword(art, 45)
    sword(art, -45)
    return art


def variables():
    """A tag with the unknown x."""
    art = Drawing(24, 0.9)
    art.shape(box(1.5, 2.5, 22.5, 21.5, 4), (BLUE[3], BLUE[2]))
    art.stroke([(5, 4.4), (19, 4.4)], BLUE[4], 0.9)
    art.stroke([(5.4, 8), (7.6, 8), (11.4, 16.4), (13.6, 16.4)], WHITE, 1.9)
    art.stroke([(13.4, 8), (11.8, 8.4), (7.2, 16), (5.6, 16.4)], WHITE, 1.9)
    art.stroke([(16, 10.6), (19.4, 10.6)], GOLD[3], 1.7)
    art.stroke([(16, 14), (19.4, 14)], GOLD[3], 1.7)
    return art


def gear(cx, cy, far, near, teeth):
    """Points of a cog wheel."""
    shape = []
    for index in range(teeth):
        for part, reach in ((-0.30, near), (-0.19, far), (0.19, far), (0.30, near)):
            angle = math.tau * (index + part) / teeth
            shape.append((cx + reach * math.cos(angle), cy + reach * math.sin(angle)))
    return shape


def setup():
    """A cog wheel."""
    art = Drawing(24, 0.9)
    art.shape(gear(12, 12, 11, 8.3, 8), (STEEL[0], (140, 152, 178)), None,
              (oval(12, 12, 3.6),))
    art.stroke(oval(12, 12, 6, 6, 190, 300), WHITE, 0.9)
    return art


def test():
    """A green button to start with."""
    art = Drawing(24, 0.9)
    art.shape(oval(12, 12, 10.8), GREEN)
    art.stroke(oval(12, 12, 9.2, 9.2, 195, 310), (184, 232, 150), 0.9)
    art.shape([(9, 6.6), (18, 12), (9, 17.4)], WHITE, 0)
    return art


def publish():
    """A parcel that an arrow leaves upwards."""
    art = Drawing(24, 0.9)
    art.shape([(2, 12), (12, 9.4), (22, 12), (12, 15)], WOOD[1])
    art.shape([(12, 0.8), (17.4, 6.6), (14.2, 6.6), (14.2, 13.2), (9.8, 13.2), (9.8, 6.6),
               (6.6, 6.6)], GREEN)
    art.shape([(2, 12), (12, 15), (12, 23.2), (2, 20)], (WOOD[5], WOOD[4]))
    art.shape([(22, 12), (12, 15), (12, 23.2), (22, 20)], (WOOD[4], WOOD[3]))
    return art


def sign():
    """The program's sign: a compass star over an anvil."""
    art = Drawing(64, 1.8)
    art.shape(box(2, 2, 62, 62, 14), (NIGHT[4], NIGHT[1]))
    art.stroke(box(5, 5, 59, 59, 11) + [(48, 5)], NIGHT[5], 1)
    art.glow((32, 22), 24, ROOF[5], 0.75)
    art.shape([(10, 36), (22, 34), (52, 34), (52, 38), (44, 44), (38, 45), (38, 48), (46, 53),
               (46, 56), (18, 56), (18, 53), (26, 48), (26, 45), (18, 42)],
              (STONE[4], STONE[1]))
    art.stroke([(23, 35.8), (50, 35.8)], STONE[5], 1.6)
    art.shape(star(32, 22, 10, 4, 4, -45), (GOLD[2], GOLD[1]), 1.2)
    art.shape(star(32, 22, 16.5, 4, 4), (GOLD[4], GOLD[2]), 1.2)
    art.shape([(32, 5.5), (32, 22), (29.2, 19.2)], (255, 250, 220), 0)
    art.shape([(48.5, 22), (32, 22), (34.8, 19.2)], (255, 250, 220), 0)
    for x, y, reach in ((14, 27, 1.7), (50, 26, 1.9), (46, 12, 1.5), (17, 14, 1.3)):
        art.shape(star(x, y, reach * 1.5, reach * 0.5, 4), GOLD[4], 0)
    return art
