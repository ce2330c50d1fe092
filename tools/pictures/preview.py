#!/usr/bin/python3
"""Shows sample maps with the hero, enlarged, to judge the tiles by eye.

Usage: preview.py FOLDER [SCALE]; the folder gets one picture per tileset.
"""

import sys
from pathlib import Path

from PIL import Image

import make
import people
from pixels import TILE

MAPS = (
    ["44545544454454544", "40100000000220044", "54060333333322054", "40003300000377704",
     "53333018000377764", "40003000000300704", "45103090022300104", "44543445454344544"],
    ["22222044444022222", "20010044444011022", "20550077977000112", "20500003000080052",
     "33333333333333333", "00060003000055500", "22000003000020022", "22221103001222222"],
    ["77777777777677777", "44700000007000447", "00900110000522007", "00700033300020207",
     "05700033300022227", "00700033300785807", "00700000000000007", "77777797777777777"],
    ["55555559555555555", "50040003000600155", "50100003001004005", "53333333332007705",
     "50200060032077705", "54000800033077005", "50010000003300105", "55555555555355555"],
)
WALKERS = ("face1", "droite2", "dos1", "gauche3", "face2", "droite1", "dos2")


def draw_map(rows, tiles, hero):
    """One whole map with the hero walking about on it."""
    image = Image.new("RGBA", (17 * TILE[0], 8 * TILE[1]))
    for row, codes in enumerate(rows):
        for column, code in enumerate(codes):
            image.paste(tiles[int(code)], (column * TILE[0], row * TILE[1]))
    for index, name in enumerate(WALKERS):
        spot = ((3 + index * 2) * TILE[0], (2 + index % 4) * TILE[1])
        image.alpha_composite(hero[name], spot)
    image.alpha_composite(hero["mort"], (8 * TILE[0], 6 * TILE[1]))
    return image


def main():
    """Writes the sample maps."""
    folder = Path(sys.argv[1])
    scale = int(sys.argv[2]) if len(sys.argv) > 2 else 3
    hero = people.hero()
    for number, (rows, tileset) in enumerate(zip(MAPS, make.TILESETS), 1):
        image = draw_map(rows, tileset.tiles(), hero)
        size = (image.width * scale, image.height * scale)
        image.resize(size, Image.NEAREST).save(folder / f"map{number}.png")


if __name__ == "__main__":
    main()
