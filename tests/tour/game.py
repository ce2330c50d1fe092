"""The running game as its player sees it: the window of 480 x 272 pixels, whatever its enlargement."""

import subprocess
import time
from contextlib import contextmanager

from PIL import Image

import picture
from closing import ask_to_close
from program import focus, xdotool
from project import COLUMNS, ROWS
from waiting import require, wait_for

SIZE = (480, 272)
TILE = (28, 29)
MAP_LEFT, MAP_TOP = 2, 36
TALK_BOX = (8, 180)
MENU = (120, 56)


def _part(frame, cell):
    row, column = cell
    return picture.part(frame, (MAP_LEFT + (column - 1) * TILE[0], MAP_TOP + (row - 1) * TILE[1], *TILE))


class Game:
    def __init__(self, player, project):
        self.process, self._images = player, project.folder / "images"
        self._window = int(wait_for("the player opens its window", lambda: self._windows_of(player))[-1])
        focus(self._window)
        lines = xdotool("getwindowgeometry", "--shell", self._window).splitlines()
        values = dict(line.split("=") for line in lines)
        self._place = [int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT")]

    @staticmethod
    def _windows_of(player):
        try:
            return xdotool("search", "--onlyvisible", "--pid", player).split()
        except subprocess.CalledProcessError:
            return []  # none yet

    def frame(self):
        """The picture of the game at this moment, at its own size."""
        return picture.from_screen(self._place).resize(SIZE, Image.Resampling.NEAREST)

    def _await_frame(self, what, shown):
        return wait_for(f"the game shows {what}", lambda: shown(self.frame()))

    def _picture(self, name):
        return picture.from_file(self._images / f"{name}.png")

    @contextmanager
    def holding(self, key):
        """Used with `with`: the key is down meanwhile."""
        xdotool("keydown", key)
        yield
        xdotool("keyup", key)

    def press(self, key):
        """Presses a key as long as a person does: for some frames of the game."""
        with self.holding(key):
            time.sleep(0.1)

    def ask_to_close(self):
        ask_to_close(self._window)

    def _await_panel(self, name, corner):
        """Waits for a picture over which something stands, but not too much."""
        panel = self._picture(f"System/{name}")

        def shown(frame):
            return 0.8 < picture.share_of(panel, picture.part(frame, (*corner, *panel.size))) < 1

        self._await_frame(name, shown)

    def await_title(self):
        self._await_panel("menuprinc", (0, 0))

    def await_menu(self):
        self._await_panel("menuingame", MENU)

    def await_map(self, model):
        """Waits until all cells of a map show their tiles; the hero may stand on two of them."""
        sheet = self._picture(f"map{model.number}/terrain")
        tiles = [picture.part(sheet, (code * TILE[0], 0, *TILE)) for code in range(10)]
        cells = [(row, column) for row in range(1, ROWS + 1) for column in range(1, COLUMNS + 1)]

        def shown(frame):
            return sum(_part(frame, cell) != tiles[model.code(cell)] for cell in cells) <= 2

        self._await_frame(f"map {model.number}", shown)

    def _hero_stands(self, frame, cell, side):
        return picture.share_of(self._picture(f"personnages/hero/{side}1"), _part(frame, cell)) == 1

    def await_hero(self, side, cell):
        """Waits until the hero stands on a cell, turned to a side."""
        self._await_frame(f"the hero as {side}1 on row {cell[0]}, column {cell[1]}",
                          lambda frame: self._hero_stands(frame, cell, side))

    def walk_against(self, key, cell, side):
        """Holds a key for longer than a step takes; the hero must turn and stay on the cell."""
        with self.holding(key):
            self.await_hero(side, cell)
            time.sleep(0.6)
            stays = self._hero_stands(self.frame(), cell, side)
            require(stays, f"a blocked cell stops the hero on row {cell[0]}, column {cell[1]}")

    def _text(self, frame):
        """The talk box as it is shown, without what is drawn at its foot; None while there is none."""
        box = self._picture("System/parler")
        seen = picture.part(frame, (*TALK_BOX, *box.size))
        inner = (10, 10, box.width - 20, 60)
        letters, empty = picture.part(seen, inner), picture.part(box, inner)
        return letters if letters != empty and picture.share_of(box, seen) >= 0.8 else None

    def await_text(self, other_than=None):
        """Waits for a talk box with letters in it, and answers them as a picture."""
        def shown(frame):
            text = self._text(frame)
            return text != other_than and text

        return self._await_frame("a text", shown)

    def await_no_text(self):
        self._await_frame("no text any more", lambda frame: self._text(frame) is None)
