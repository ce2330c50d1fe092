#!/usr/bin/python3
"""Plays the program along its typical road, from the welcome view to the running game and back.

Usage: tour.py APPDIR PICTURES PLUGINS [DOC]

APPDIR is the runnable folder: the tour plays a copy of it, without an author's projects. PICTURES receives
a picture of each station, and below "documentation" those that the documentation shows. PLUGINS is the
folder of toolkit plugins that holds the probe. DOC is the documentation's folder: then all looks of the views
are taken, too, and its pictures are replaced by the new ones. Every step is checked on the disk and on the
screen. The exit code is 0 when all happened, else 1 and a line that names what did not.
"""

import signal
import sys
from pathlib import Path

import documentation
import looking
import looks
import picture
from drawing import Drawing
from entering import create_project, welcome
from playing import play_game
from program import Program
from project import Project
from stage import SCREEN, Stage
from switching import Switching
from waiting import Missed
from writing import Writing

TIME_LIMIT = 280  # seconds, of which a quick machine needs a small part
PROJECT = "Vallée"
MARGIN = 6  # pixels round several controls that are shown together


class Tour:
    """What the stations share: the program, its project and the folder of the pictures."""

    def __init__(self, stage, pictures):
        self.stage, self._pictures = stage, pictures
        self.program = Program(stage.program, stage.socket)
        self.project = Project(stage.app_dir, PROJECT)
        self._taken = 0
        self._shown = pictures / documentation.SUBFOLDER

    def take_picture(self, name, place=None):
        """Saves what the screen shows of the main window, or of a place."""
        self._taken += 1
        place = place or self.program.look("Mainform").place
        picture.save_screen(place, self._pictures / f"{self._taken:02}-{name}.png")

    def document(self, name, *paths):
        """Takes a picture for the documentation, once: of a view with its frame, or of some controls."""
        if (self._shown / f"{name}.png").exists():
            return
        places = [self.program.await_shown(path).frame for path in paths]
        left, top = min(place.left for place in places), min(place.top for place in places)
        right = max(place.left + place.width for place in places)
        bottom = max(place.top + place.height for place in places)
        edge = MARGIN if len(places) > 1 else 0
        place = (left - edge, top - edge, right - left + 2 * edge, bottom - top + 2 * edge)
        picture.save_still(place, self._shown / f"{name}.png")

    def document_game(self, game, name):
        """The same of the running game."""
        self.take_picture(name, game.place)
        picture.save_still(game.place, self._shown / f"{name}.png")


def play(tour):
    """The whole road."""
    drawing, writing = Drawing(tour), Writing(tour)
    switching = Switching(tour, drawing)
    road = [lambda: welcome(tour), lambda: create_project(tour, tour.project), drawing.paint, drawing.block,
            drawing.place_hero, drawing.name_map, lambda: writing.write_event(drawing.cells.talk),
            drawing.add_map, drawing.change_tileset, lambda: writing.write_mistake(drawing.cells.mistake),
            writing.add_variable, lambda: writing.write_condition(drawing.cells.talk),
            lambda: writing.write_leap(drawing.cells), lambda: writing.write_sign(drawing.cells.sign),
            lambda: writing.write_change_of_map(drawing.cells.door), lambda: looking.fights(tour),
            lambda: looking.game_setup(tour), lambda: looking.publishing(tour),
            lambda: play_game(tour, drawing), switching.create_over, switching.click_into_left_view,
            switching.open_first_again, switching.stay, switching.leave]
    for station in road:
        station()


def perform(stage, pictures):
    """Plays the road; when it stops, leaves a picture of what there was to see instead."""
    try:
        stage.start_program()
        play(Tour(stage, pictures))
    except Exception:
        print(stage.log(), end="", file=sys.stderr)
        picture.save_screen(SCREEN, pictures / "stopped.png")
        raise


def main(app_dir, pictures, plugins, doc=None):
    pictures = Path(pictures)
    shown = pictures / documentation.SUBFOLDER
    shown.mkdir(parents=True, exist_ok=True)
    for old in pictures.rglob("*.png"):
        old.unlink()
    try:
        with Stage(app_dir, plugins) as stage:
            perform(stage, pictures)
        if doc:
            signal.alarm(looks.TIME_LIMIT)
            looks.take_all(app_dir, plugins, shown)
            documentation.renew(shown, Path(doc))
        else:
            documentation.check_names(shown, Path(app_dir) / "Doc")
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
