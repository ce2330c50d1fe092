#!/usr/bin/python3
"""Checks the shipped pictures: run it after make.py, without arguments."""

import sys
import unittest
from pathlib import Path
from tempfile import TemporaryDirectory
from unittest.mock import patch

from PIL import Image

sys.dont_write_bytecode = True

import make
import pixels
from palette import INK

IMAGES = make.ROOT / "data" / "images"
HERO = IMAGES / "personnages" / "perso01"
THEME = IMAGES / "system" / "theme01"

SIZES = [(THEME / "menuprinc.png", 480, 272), (THEME / "imgprinc.png", 480, 272),
         (THEME / "menuingame.png", 240, 160), (THEME / "parler.png", 464, 88)]
SIZES += [(HERO / f"{way}{step}.png", 28, 29)
          for way in ("dos", "face", "droite", "gauche") for step in "123"]
SIZES += [(HERO / "mort.png", 28, 29)]

# Tiles whose pattern runs on over whole areas; flagstones end in a joint at the border.
SEAMLESS = {"01": (0, 1, 2, 7), "02": (0, 1, 2, 3, 4), "03": (0, 1, 3), "04": (0, 1, 5, 7)}


def load(path):
    """The picture as RGBA."""
    with Image.open(path) as image:
        return image.convert("RGBA")


def step(one, other):
    """How far two pixels differ, 0 to 255."""
    return sum(abs(a - b) for a, b in zip(one[:3], other[:3])) / 3


def brightness(pixel):
    """The luma of a pixel, 0 to 255."""
    return 0.299 * pixel[0] + 0.587 * pixel[1] + 0.114 * pixel[2]


def column_steps(image, x):
    """The mean difference between column x and the next, that of the edge's next is 0."""
    following = (x + 1) % image.width
    pairs = [(image.getpixel((x, y)), image.getpixel((following, y)))
             for y in range(image.height)]
    return sum(step(*pair) for pair in pairs) / len(pairs)


def sheet_tile(number, code):
    """One tile of a tileset's sheet."""
    sheet = load(IMAGES / "terrains" / f"terrain{number}" / "terrain01.png")
    return sheet.crop((code * 28, 0, code * 28 + 28, 29))


class Pictures(unittest.TestCase):
    """All shipped pictures together."""

    def test_every_picture_has_its_size(self):
        for path, width, height in SIZES:
            with self.subTest(path.name):
                self.assertEqual(load(path).size, (width, height))

    def test_drawing_again_gives_the_same_bytes_and_no_other_file(self):
        with TemporaryDirectory() as folder:
            with patch.object(sys, "argv", ["make.py", folder]):
                make.main()
            self.assertEqual(self.contents(Path(folder, "data", "images")), self.contents(IMAGES))

    @staticmethod
    def contents(root):
        """The bytes of all files below root by name."""
        return {str(path.relative_to(root)): path.read_bytes()
                for path in root.rglob("*") if path.is_file()}


class Tilesets(unittest.TestCase):
    """The four tilesets."""

    def test_single_tiles_show_what_the_sheet_shows(self):
        for number in SEAMLESS:
            folder = IMAGES / "terrains" / f"terrain{number}"
            self.assertEqual(load(folder / "terrain01.png").size, (280, 29))
            for code in range(10):
                with self.subTest(tileset=number, code=code):
                    single = load(folder / f"terrain0{code + 1}.JPG")
                    part = sheet_tile(number, code)
                    self.assertEqual(single.size, (28, 29))
                    pairs = list(zip(single.getdata(), part.getdata()))
                    self.assertLess(sum(step(*pair) for pair in pairs) / len(pairs), 3)

    def test_descriptor_counts_the_tiles_in_windows_lines(self):
        for number in SEAMLESS:
            descriptor = IMAGES / "terrains" / f"terrain{number}" / "texture.ini"
            self.assertEqual(descriptor.read_bytes(), b"[texture]\r\nnbimg=10\r\n")

    def test_grounds_and_surfaces_join_without_a_seam(self):
        for number, codes in SEAMLESS.items():
            for code in codes:
                with self.subTest(tileset=number, code=code):
                    tile = sheet_tile(number, code)
                    for image in (tile, tile.transpose(Image.TRANSPOSE)):
                        inside = [column_steps(image, x) for x in range(image.width - 1)]
                        seam = column_steps(image, image.width - 1)
                        self.assertLessEqual(seam, sorted(inside)[-2] * 1.1 + 1)

    def test_fresh_map_is_calm(self):
        for number in SEAMLESS:
            with self.subTest(tileset=number):
                light = [brightness(p) for p in sheet_tile(number, 0).getdata()]
                self.assertLess(max(light) - min(light), 90)


class Hero(unittest.TestCase):
    """The hero's thirteen pictures."""

    def test_every_picture_is_outlined_so_that_it_shows_on_any_ground(self):
        for path in sorted(HERO.glob("*.png")):
            with self.subTest(path.name):
                image = load(path)
                alpha = image.getchannel("A").load()
                self.assertEqual(set(image.getchannel("A").getdata()), {0, 255})
                for x in range(28):
                    for y in range(29):
                        if alpha[x, y] and self.open_to_ground(alpha, x, y):
                            self.assertEqual(image.getpixel((x, y))[:3], INK)

    @staticmethod
    def open_to_ground(alpha, x, y):
        """Whether a transparent pixel lies beside this one."""
        return any(0 <= px < 28 and 0 <= py < 29 and not alpha[px, py]
                   for px, py in ((x + 1, y), (x - 1, y), (x, y + 1), (x, y - 1)))

    def test_the_thirteen_pictures_all_differ(self):
        pictures = [load(path).tobytes() for path in HERO.glob("*.png")]
        self.assertEqual(len(set(pictures)), 13)


class Theme(unittest.TestCase):
    """Where the engine writes over the pictures."""

    def test_white_text_reads_well_where_it_is_written(self):
        for name, box in (("menuprinc.png", (160, 182, 320, 250)),
                          ("imgprinc.png", (24, 12, 290, 24)),
                          ("menuingame.png", (12, 40, 228, 148)),
                          ("parler.png", (12, 12, 452, 76))):
            with self.subTest(name):
                pixels_of_box = load(THEME / name).crop(box).getdata()
                self.assertLess(max(brightness(p) for p in pixels_of_box), 96)
                self.assertEqual({p[3] for p in pixels_of_box}, {255})


class Drawing(unittest.TestCase):
    """The pixel drawing itself."""

    def test_noise_stays_in_range_and_depends_on_each_argument(self):
        values = [pixels.noise(x, y, seed) for x in range(-9, 9) for y in range(-9, 9)
                  for seed in range(3)]
        self.assertTrue(all(0 <= value < 1 for value in values))
        self.assertGreater(len(set(values)), len(values) * 0.9)

    def test_wrapping_pixels_come_in_on_the_other_side(self):
        image = pixels.blank()
        pixels.wrap(image, 30, -1, INK)
        self.assertEqual(image.getpixel((2, 28)), INK + (255,))


if __name__ == "__main__":
    unittest.main()
