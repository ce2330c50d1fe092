#!/usr/bin/python3
"""Draws all pictures of the game that ship with the tool.

Without an argument the files under data/images are written anew; with one,
the same tree is written below that folder. The editor's own pictures are
vectors, drawn by hand: src/app/pictures.
"""

import sys
from pathlib import Path

from PIL import Image

sys.dont_write_bytecode = True  # leaves no caches between the sources

import cave
import frames
import house
import meadow
import people
import title
import village
from pixels import TILE

ROOT = Path(__file__).resolve().parents[2]
TILESETS = (meadow, village, house, cave)


def save(image, path):
    """Writes one picture; its folder is made when it is not there."""
    path.parent.mkdir(parents=True, exist_ok=True)
    if path.suffix == ".JPG":
        image.convert("RGB").save(path, "JPEG", quality=98, subsampling=0, optimize=True)
    else:
        image.save(path, "PNG", optimize=True)


def write_tilesets(images):
    """Each tileset as ten tiles, one sheet for the game, and its descriptor."""
    for number, tileset in enumerate(TILESETS, 1):
        folder = images / "terrains" / f"terrain{number:02}"
        tiles = tileset.tiles()
        sheet = Image.new("RGB", (TILE[0] * len(tiles), TILE[1]))
        for index, tile in enumerate(tiles):
            save(tile, folder / f"terrain0{index + 1}.JPG")
            sheet.paste(tile.convert("RGB"), (index * TILE[0], 0))
        save(sheet, folder / "terrain01.png")
        descriptor = f"[texture]\r\nnbimg={len(tiles)}\r\n"
        (folder / "texture.ini").write_bytes(descriptor.encode("ascii"))


def write_hero(images):
    """The hero's thirteen pictures."""
    for name, image in people.hero().items():
        save(image, images / "personnages" / "perso01" / (name + ".png"))


def write_theme(images):
    """The pictures of the game's title, frame and boxes."""
    folder = images / "system" / "theme01"
    save(title.title().convert("RGB"), folder / "menuprinc.png")
    save(frames.play_frame().convert("RGB"), folder / "imgprinc.png")
    save(frames.game_menu(), folder / "menuingame.png")
    save(frames.talk_box(), folder / "parler.png")


def main():
    """Writes every picture below the root that was chosen."""
    root = Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT
    images = root / "data" / "images"
    write_tilesets(images)
    write_hero(images)
    write_theme(images)


if __name__ == "__main__":
    main()
