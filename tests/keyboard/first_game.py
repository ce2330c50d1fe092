#!/usr/bin/python3
"""Makes a first game by keys alone, from an empty program to the running game: stations of the tour without a mouse.

Usage: first_game.py APPDIR PLUGINS, as for the tour.
"""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tour"))

import drawing
import writing
from entering import create_project
from performing import perform
from playing import start_game
from program import Program, xdotool
from project import ROWS
from tour import Tour
from waiting import Missed

MODES = ["Picture", "Blocks", "Event"]
MOST_CONTROLS = 80  # more than a view has


def press(*names):
    xdotool("key", "--delay", 30, *names)


class Keys(Program):
    """Plays by keys what its base plays with the mouse."""

    def tab_to(self, path):
        """Goes from control to control of a window until this one has the focus."""
        self.await_usable(path)
        for _ in range(MOST_CONTROLS):
            if self.look(path).focused:
                return
            press("Tab")
        raise Missed(f"Tab leads to {path}")

    def click(self, path, x=None, y=None):
        mode = path.rpartition("=")[2]
        if mode in MODES:
            self._choose_mode(mode)
            return
        self.tab_to(path)
        if path == drawing.GRID:
            row, column = drawing.cell_at(x, y)
            press("Home", *["Up"] * ROWS, *["Right"] * (column - 1), *["Down"] * (row - 1))
        press("space")

    def _choose_mode(self, mode):
        """The arrows choose among the modes, of which Tab meets the chosen one alone."""
        chosen = next(i for i in range(3) if self.look(f"mapeditor/Option1_{i}").checked)
        self.tab_to(f"mapeditor/Option1_{chosen}")
        press(*["Down"] * (MODES.index(mode) - chosen))

    def step_forward(self, path):
        self.tab_to(path)
        press("Right")

    def type_into(self, path, text):
        self.tab_to(path)
        self.replace_text(path, text)


class KeyTour(Tour):
    def show(self, *_, **__):
        """Takes no pictures."""


def play(stage):
    tour = KeyTour(stage, Keys(stage.program, stage.socket))
    create_project(tour, tour.project)
    for station in (drawing.paint, drawing.block, drawing.place_hero, drawing.name_map, writing.write_event):
        station(tour)
    press("ctrl+Tab")
    start_game(tour).await_map(tour.maps["01"])


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    perform(play, *sys.argv[1:])
