#!/usr/bin/python3
"""Makes a first game by keys alone, from an empty program to the running game.

Usage: first_game.py APPDIR PLUGINS, as for the tour.
"""

from keys import main
from drawing import GRID, START_QUESTION
from game import Game
from project import Map, Project, crlf
from waiting import wait_for
from writing import PANEL

PROJECT, AUTHOR = "Keys", "Odile"
TEXT = "Nobody clicked here."
MODES = ["Picture", "Blocks", "Event"]


def create(keys, project):
    keys.use("Acc/Label2", "Return")
    keys.await_focus("nouvprojet/Text1")
    keys.type_into("nouvprojet/Text1", PROJECT)
    keys.type_into("nouvprojet/Text2", AUTHOR)
    keys.use("nouvprojet/Command1", "Return")
    project.await_setting("Jeu", "auteur", AUTHOR)
    keys.program.await_caption("mapeditor/Label1", "01")


def press_cell(keys, *steps):
    """Presses the cell to which the arrows lead from the one pressed last."""
    keys.tab_to(GRID)
    keys.press(*steps, "space")


def choose_mode(keys, mode):
    """The arrows choose among the modes, of which Tab meets the chosen one alone."""
    chosen = next(i for i in range(3) if keys.program.look(f"mapeditor/Option1_{i}").checked)
    keys.tab_to(f"mapeditor/Option1_{chosen}")
    keys.press(*["Down"] * (MODES.index(mode) - chosen))
    wait_for(f"the mode {mode} is chosen", lambda: keys.program.look(f"mapeditor/={mode}").checked)


def draw(keys, model):
    """Paints the first cell, blocks one and sets the hero down on the next."""
    keys.tab_to("mapeditor/Choixtext")
    keys.press("Right")
    press_cell(keys)
    model.set_code((1, 1), 1)
    model.await_saved()
    choose_mode(keys, "Blocks")
    press_cell(keys, "Down", "Right")
    model.block((2, 2))
    model.await_saved()
    keys.use("mapeditor/Command9")
    keys.dismiss(START_QUESTION)
    keys.await_focus(GRID)  # where the start is chosen
    press_cell(keys, "Right")
    model.start = (2, 3)
    keys.program.await_caption("mapeditor/Label4", "3")


def attach(keys, project, model):
    """Gives the next cell its event, which also saves the hero's start."""
    choose_mode(keys, "Event")
    press_cell(keys, "Right")
    keys.await_focus(f"{PANEL}/listev")
    model.await_saved()
    keys.use(f"{PANEL}/=Display Text", "Return")
    keys.answer("Type the text! :", TEXT)
    keys.await_focus(f"{PANEL}/=Display Text")
    keys.use(f"{PANEL}/=Save", "Return")
    keys.program.await_gone(PANEL)
    project.await_bytes("ev/map01/ev24", crlf("", f'affichertexte("{TEXT}")'))


def play(stage, keys):
    project = Project(stage.app_dir, PROJECT)
    create(keys, project)
    model = Map(project, "01")
    draw(keys, model)
    attach(keys, project, model)
    keys.press("ctrl+Tab")
    keys.use("Controlpanel/Label9_3", "Return")
    game = Game(wait_for("the player starts", stage.players)[0], project)
    game.await_title()
    game.press("x")
    game.await_map(model)


if __name__ == "__main__":
    main(play, __doc__)
