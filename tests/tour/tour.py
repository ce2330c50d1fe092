#!/usr/bin/python3
"""Plays the program along its typical road, from the welcome view to the running game and back.

Usage: tour.py APPDIR PICTURES PLUGINS [DOC]

APPDIR is the runnable folder: the tour plays a copy of it, without an author's projects. PICTURES receives the
pictures that the documentation shows. PLUGINS is the folder of toolkit plugins that holds the probe. DOC is the
documentation's folder: then all looks of the views are taken, too, and its pictures are replaced by the new ones.
Every step is checked on the disk and on the screen. The exit code is 0 when all happened, else 1 and a line that
names what did not.
"""

import signal
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
from playing import play_game
from program import Program
from project import Project
from stage import SCREEN, Stage
from waiting import Missed

TIME_LIMIT = 280  # seconds, of which a quick machine needs a small part
PROJECT = "Vallée"
MARGIN = 6  # pixels round several controls that are shown together
ROAD = (welcome, lambda tour: create_project(tour, tour.project), drawing.paint, drawing.block, drawing.place_hero,
        drawing.name_map, writing.write_event, drawing.add_map, drawing.change_tileset, writing.write_mistake,
        writing.add_variable, writing.write_condition, writing.write_leap, writing.write_sign,
        writing.write_change_of_map, look_around, play_game, switching.create_over, switching.open_first_again,
        switching.leave)


class Tour:
    """What the stations share: the program, its project, what is drawn there and the folder of the pictures."""

    def __init__(self, stage, pictures):
        self.stage, self._pictures = stage, pictures
        self.program = Program(stage.program, stage.socket)
        self.project = Project(stage.app_dir, PROJECT)
        self.maps = {}

    def _save(self, name, look):
        path = self._pictures / f"{name}.png"
        if not path.exists():
            picture.still(look).save(path)

    def show(self, name, *paths):
        """Takes a picture, once: of a view with its frame, or of some controls."""
        lefts, tops, widths, heights = zip(*(self.program.await_shown(path).frame for path in paths))
        edge = MARGIN if len(paths) > 1 else 0
        left, top = min(lefts) - edge, min(tops) - edge
        right, bottom = max(map(add, lefts, widths)) + edge, max(map(add, tops, heights)) + edge
        place = (left, top, right - left, bottom - top)
        self._save(name, lambda: picture.from_screen(place))

    def show_game(self, game, name):
        """The same of the running game."""
        self._save(name, game.frame)


def play(stage, pictures):
    """The whole road; when it stops, leaves a picture of what there was to see."""
    try:
        stage.start_program()
        tour = Tour(stage, pictures)
        for station in ROAD:
            station(tour)
    except Exception:
        print(stage.log(), end="", file=sys.stderr)
        picture.from_screen(SCREEN).save(pictures / "stopped.png")
        raise


def main(app_dir, pictures, plugins, doc=None):
    pictures = Path(pictures)
    pictures.mkdir(parents=True, exist_ok=True)
    for old in pictures.rglob("*.png"):
        old.unlink()
    try:
        with Stage(app_dir, plugins) as stage:
            play(stage, pictures)
        if doc:
            signal.alarm(looks.TIME_LIMIT)
            looks.take_all(app_dir, plugins, pictures)
            documentation.renew(pictures, Path(doc))
        else:
            documentation.check_names(pictures, Path(app_dir) / "Doc")
    except Missed as failure:
        print(f"The tour stopped; this did not happen: {failure}", file=sys.stderr)
        return 1
    print(f"The tour was played; its pictures are in {pictures}")
    return 0


def stop(number, _frame):
    raise Missed(f"the tour ends in time (signal {signal.Signals(number).name})")


if __name__ == "__main__":
    for reason in (signal.SIGALRM, signal.SIGTERM, signal.SIGINT):
        signal.signal(reason, stop)
    signal.alarm(TIME_LIMIT)
    if len(sys.argv) not in (4, 5):
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
