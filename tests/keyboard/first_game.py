#!/usr/bin/python3
"""Makes a first game by keys alone, from an empty program to a hero who meets a text.

Usage: first_game.py APPDIR PLUGINS, as for the tour.
"""

import sys

from keys import Keys, perform
from drawing import START_QUESTION
from game import Game
from mapview import GRID
from project import Map, Project, crlf
from waiting import wait_for
from writing import PANEL

PROJECT, AUTHOR = "Keys", "Odile"
TEXT = "Nobody clicked here."
MODES = ["Picture", "Blocks", "Event"]


class FirstGame:
    def __init__(self, stage):
        self.keys = Keys(stage)
        self.program = self.keys.program
        self.project = Project(stage.app_dir, PROJECT)
        self.map = None
        self._at = (1, 1)  # the cell where the keys are

    def create(self):
        self.keys.use("Acc/Label2", "Return")
        self.keys.await_focus("nouvprojet/Text1")
        self.keys.type_into("nouvprojet/Text1", PROJECT)
        self.keys.type_into("nouvprojet/Text2", AUTHOR)
        self.keys.use("nouvprojet/Command1", "Return")
        self.project.await_setting("Jeu", "auteur", AUTHOR)
        self.program.await_caption("mapeditor/Label1", "01")
        self.map = Map(self.project, "01")

    def _click(self, cell):
        """Goes to a cell by the arrows and presses it."""
        self.keys.tab_to(GRID)
        down, right = cell[0] - self._at[0], cell[1] - self._at[1]
        self.keys.press(*["Down" if down > 0 else "Up"] * abs(down),
                        *["Right" if right > 0 else "Left"] * abs(right), "space")
        self._at = cell

    def _choose_mode(self, mode):
        """The arrows choose among the modes, of which Tab meets the chosen one alone."""
        chosen = next(i for i in range(3) if self.program.look(f"mapeditor/Option1_{i}").checked)
        self.keys.tab_to(f"mapeditor/Option1_{chosen}")
        self.keys.press(*["Down"] * (MODES.index(mode) - chosen))
        wait_for(f"the mode {mode} is chosen", lambda: self.program.look(f"mapeditor/={mode}").checked)

    def draw(self, fence, start, talk):
        """Paints some cells, blocks one and sets the hero down."""
        painted = [fence, start, talk]
        code = self.map.other_code(painted)
        self.keys.tab_to("mapeditor/Choixtext")
        self.keys.press(*["Right"] * code)
        for cell in painted:
            self._click(cell)
            self.map.set_code(cell, code)
            self.map.await_saved()
        self._choose_mode("Blocks")
        self._click(fence)
        self.map.block(fence)
        self.map.await_saved()
        self.keys.use("mapeditor/Command9")
        self.keys.dismiss(START_QUESTION)
        self.keys.await_focus(GRID)  # where the start is chosen
        self._click(start)
        self.map.start = start
        self.program.await_caption("mapeditor/Label4", str(start[1]))

    def attach(self, cell):
        """Gives a cell its event, which also saves the hero's start."""
        self._choose_mode("Event")
        self._click(cell)
        self.keys.await_focus(f"{PANEL}/listev")
        self.map.await_saved()
        self.keys.use(f"{PANEL}/=Display Text", "Return")
        self.keys.answer("Type the text! :", TEXT)
        self.keys.await_focus(f"{PANEL}/=Display Text")
        self.keys.use(f"{PANEL}/=Save", "Return")
        self.program.await_gone(PANEL)
        self.project.await_bytes(f"ev/map01/ev{cell[0]}{cell[1]}", crlf("", f'affichertexte("{TEXT}")'))

    def test(self, stage, start, talk):
        """Runs the game: it shows what was drawn, the block holds, and the text comes."""
        self.keys.press("ctrl+Tab")
        self.keys.use("Controlpanel/Label9_3", "Return")
        game = Game(wait_for("the player starts", stage.players)[0], self.project)
        game.await_title()
        game.press("x")
        game.await_map(self.map)
        game.walk_against("Left", start, "gauche")
        game.hold("Right")
        game.await_text()
        game.let_go("Right")
        game.press("x")
        game.await_hero("droite", talk)


def play(stage):
    game = FirstGame(stage)
    game.create()
    cells = game.map.free_run(3)
    game.draw(*cells)
    game.attach(cells[2])
    game.test(stage, *cells[1:])


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(perform(play, *sys.argv[1:]))
