#!/usr/bin/python3
"""Plays the program along its typical road, from the welcome view to the running game.

Usage: tour.py APPDIR PICTURES PLUGINS

APPDIR is the runnable folder: the tour plays a copy of it, without an author's projects. PICTURES receives
a picture of each station. PLUGINS is the folder of toolkit plugins that holds the probe. Every step is
checked on the disk and on the screen. The exit code is 0 when all happened, else 1 and a line that names
what did not.
"""

import signal
import sys
from pathlib import Path

import picture
from closing import ask_to_close
from drawing import Drawing
from playing import play_game
from program import Program, focus, xdotool
from project import Project
from stage import SCREEN, Stage
from waiting import Missed, wait_for
from writing import Writing

TIME_LIMIT = 280  # seconds, of which a quick machine needs a small part
PROJECT = "Vallée"
AUTHOR = "Odile"


class Tour:
    """What the stations share: the program, its project and the folder of the pictures."""

    def __init__(self, stage, pictures):
        self.stage, self._pictures = stage, pictures
        self.program = Program(stage.program, stage.socket)
        self.project = Project(stage.app_dir, PROJECT)
        self._taken = 0

    def take_picture(self, name, place=None):
        """Saves what the screen shows of the main window, or of a place."""
        self._taken += 1
        place = place or self.program.look("Mainform").place
        picture.save_screen(place, self._pictures / f"{self._taken:02}-{name}.png")


def welcome(tour):
    program = tour.program
    program.await_caption("Acc/Label1", "Welcome to Questforge 3! What would you do?")
    if not (tour.stage.app_dir / "projets").is_dir():
        raise Missed("the start makes the folder of the projects")
    program.await_usable("Acc/Label2")
    tour.take_picture("welcome")
    feel_press(tour, "Acc/Image3", "Acc/Label4")


def feel_press(tour, icon, label):
    """Presses an entry, which must give way, and lets go of it elsewhere: it is back, and nothing opens."""
    program = tour.program
    before = [program.await_usable(part).place for part in (icon, label)]
    program.point(icon)
    seen = picture.from_screen(before[0])
    pressed = [place._replace(left=place.left + 1, top=place.top + 1) for place in before]

    def places():
        return [program.look(part).place for part in (icon, label)]

    xdotool("mousedown", 1)
    wait_for("a pressed entry moves right and down", lambda: places() == pressed)
    wait_for("the move is seen", lambda: picture.from_screen(before[0]).data != seen.data)
    xdotool("mousemove", SCREEN[2] - 1, SCREEN[3] - 1, "mouseup", 1)
    wait_for("the entry moves back", lambda: places() == before)
    wait_for("the way back is seen", lambda: picture.from_screen(before[0]).data == seen.data)


def create_project(tour):
    program, project = tour.program, tour.project
    program.click("Acc/Label2")
    program.await_gone("Acc")
    program.type_into("nouvprojet/Text1", PROJECT)
    program.type_into("nouvprojet/Text2", AUTHOR)
    tour.take_picture("new-project")
    program.click("nouvprojet/=Create!")
    program.await_gone("nouvprojet")
    project.await_setting("Jeu", "nom", PROJECT)
    project.await_setting("Jeu", "auteur", AUTHOR)
    for file in ("index.lua", "map01.map", "images/map01/terrain.png", "ev/map01"):
        if not (project.folder / file).exists():
            raise Missed(f"the new project has {file}")
    program.await_caption("Controlpanel/Label5", PROJECT)
    program.await_caption("Controlpanel/Label6", AUTHOR)
    program.await_lines("Controlpanel/List1", ["1Carte 1"])
    program.await_caption("mapeditor/Label1", "01")


def look_at_fights(tour):
    program = tour.program
    program.click("Controlpanel/Label9_0")
    program.await_caption("combateditor/Strip/Text1", "")
    program.step_forward("combateditor/Strip/HScroll1")
    program.await_caption("combateditor/Strip/Text1", "Nouveau combat")
    tour.take_picture("fight-editor")
    program.press_close_button("combateditor")
    program.await_gone("combateditor")


def leave(tour):
    program, question = tour.program, "Quitter Questforge ?"
    focus(program.look("Mainform").window)
    program.press_close_button("Controlpanel")
    program.await_caption("QMessageBox/qt_msgbox_label", question)
    tour.take_picture("leaving")
    program.dismiss(question, "No")
    program.await_usable("Controlpanel/List1")
    program.press_close_button("Controlpanel")
    program.dismiss(question, "Yes")
    program.await_gone("Controlpanel")
    ask_to_close(program.look("Mainform").window)
    wait_for("closing the main window ends the program", lambda: tour.stage.program.poll() is not None)
    if tour.stage.program.returncode != 0:
        raise Missed(f"the program ends with 0 (it ended with {tour.stage.program.returncode})")


def play(tour):
    """The whole road."""
    drawing, writing = Drawing(tour), Writing(tour)
    road = [lambda: welcome(tour), lambda: create_project(tour), drawing.paint, drawing.block,
            drawing.place_hero, drawing.name_map, lambda: writing.write_event(drawing.cells.talk),
            drawing.add_map, drawing.change_tileset, writing.add_variable,
            lambda: writing.write_condition(drawing.cells.talk),
            lambda: writing.write_change_of_map(drawing.cells.door), lambda: look_at_fights(tour),
            lambda: play_game(tour, drawing), lambda: leave(tour)]
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


def main(app_dir, pictures, plugins):
    pictures = Path(pictures)
    pictures.mkdir(parents=True, exist_ok=True)
    for old in pictures.glob("*.png"):
        old.unlink()
    try:
        with Stage(app_dir, plugins) as stage:
            perform(stage, pictures)
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
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
