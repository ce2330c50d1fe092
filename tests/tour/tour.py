#!/usr/bin/python3
"""Plays the program along its typical road, from the welcome view to the running game and back.

Usage: tour.py APPDIR PICTURES PLUGINS [DOC]

APPDIR is the runnable folder: the tour plays a copy of it, without an author's projects. PICTURES receives the
pictures that the documentation shows. PLUGINS is the folder of toolkit plugins that holds the probe. DOC is the
documentation's folder: then all looks of the views are taken, too, and its pictures are replaced by the new ones.
Every step is checked on the disk and on the screen. The exit code is 0 when all happened, else 1 and a line that
names what did not.
"""

import sys
from operator import add
from pathlib import Path

import documentation
import drawing
import looks
import picture
import switching
import writing
from entering import create_project, welcome
from looking import look_around
from performing import perform
from playing import play_game
from program import Program
from project import Project

PROJECT = "Vallée"
MARGIN = 6  # pixels round several controls that are shown together
ROAD = (welcome, lambda tour: create_project(tour, tour.project), drawing.paint, drawing.block, drawing.place_hero,
        drawing.name_map, writing.write_event, drawing.add_map, drawing.change_tileset, writing.write_mistake,
        writing.add_variable, writing.write_condition, writing.write_leap, writing.write_sign,
        writing.write_change_of_map, look_around, play_game, switching.create_over, switching.open_first_again,
        switching.leave)


class Tour:
    """What the stations share: the program, its project, what is drawn there and the folder of the pictures."""

    def __init__(self, stage, program, pictures=None):
        self.stage, self.program, self._pictures = stage, program, pictures
        self.project = Project(stage.app_dir, PROJECT)
        self.maps = {}

    def show(self, name, *paths, look=None):
        """Takes a picture, once: of a view with its frame, of some controls, or what `look` answers."""
        path = self._pictures / f"{name}.png"
        if not path.exists():
            picture.still(look or (lambda: picture.from_screen(self._place_of(paths)))).save(path)

    def _place_of(self, paths):
        lefts, tops, widths, heights = zip(*(self.program.await_shown(path).frame for path in paths))
        edge = MARGIN if len(paths) > 1 else 0
        left, top = min(lefts) - edge, min(tops) - edge
        right, bottom = max(map(add, lefts, widths)) + edge, max(map(add, tops, heights)) + edge
        return left, top, right - left, bottom - top


def main(app_dir, pictures, plugins, doc=None):
    def play(stage):
        tour = Tour(stage, Program(stage.program, stage.socket), pictures)
        for station in ROAD:
            station(tour)

    pictures = Path(pictures)
    pictures.mkdir(parents=True, exist_ok=True)
    for old in pictures.rglob("*.png"):
        old.unlink()
    perform(play, app_dir, plugins, pictures / "stopped.png")
    if doc:
        looks.take_all(app_dir, plugins, pictures)
        documentation.renew(pictures, Path(doc))
    else:
        documentation.check_names(pictures, Path(app_dir) / "Doc")
    print(f"The tour was played; its pictures are in {pictures}")


if __name__ == "__main__":
    if len(sys.argv) not in (4, 5):
        sys.exit(__doc__)
    main(*sys.argv[1:])
