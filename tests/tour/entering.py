"""The stations that lead into a project: the welcome view, a new project, an existing one."""

import picture
from program import xdotool
from stage import SCREEN
from waiting import Missed, wait_for

AUTHOR = "Odile"
FIRST_FILES = ("index.lua", "map01.map", "images/map01/terrain.png", "ev/map01")


def welcome(tour):
    program = tour.program
    program.await_caption("Acc/Label1", "Welcome to Questforge 3! What would you do?")
    if not (tour.stage.app_dir / "projets").is_dir():
        raise Missed("the start makes the folder of the projects")
    program.await_usable("Acc/Label2")
    tour.take_picture("welcome")
    tour.document("welcome", "Acc")
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


def _await_open(program, project, maps):
    program.await_caption("Controlpanel/Label5", project.folder.name)
    program.await_caption("Controlpanel/Label6", AUTHOR)
    program.await_lines("Controlpanel/List1", maps)
    program.await_caption("mapeditor/Label1", "01")


def create_project(tour, project):
    """Makes a project by the welcome view's entry."""
    program, name = tour.program, project.folder.name
    program.click("Acc/Label2")
    program.await_gone("Acc")
    program.type_into("nouvprojet/Text1", name)
    program.type_into("nouvprojet/Text2", AUTHOR)
    tour.take_picture("new-project")
    tour.document("new-project", "nouvprojet")
    program.click("nouvprojet/=Create!")
    program.await_gone("nouvprojet")
    project.await_setting("Jeu", "nom", name)
    project.await_setting("Jeu", "auteur", AUTHOR)
    for file in FIRST_FILES:
        if not (project.folder / file).exists():
            raise Missed(f"the new project has {file}")
    _await_open(program, project, ["1Carte 1"])


def choose_folder(program, name):
    """Chooses a project's folder in the view that the welcome view's entry opens."""
    program.click("Acc/Label3")
    program.await_gone("Acc")
    rows = [line["text"].strip() for line in program.await_usable("openp/Dir1").lines]
    if name not in rows:
        raise Missed(f"the open view starts among the projects (it lists {rows})")
    program.click_line("openp/Dir1", rows.index(name), 2)
    wait_for("a double-click opens a folder",
             lambda: "images" in [line["text"].strip() for line in program.look("openp/Dir1").lines])


def open_project(tour, project, maps):
    """Opens a project by the welcome view's entry; the control panel must then list its maps."""
    program = tour.program
    choose_folder(program, project.folder.name)
    tour.take_picture("open")
    tour.document("open", "openp")
    program.click("openp/Command1")
    program.await_gone("openp")
    _await_open(program, project, maps)


def show_welcome(tour):
    """Comes back to the welcome view from an open project."""
    tour.program.click("Mainform/QMenuBar", 20)
    tour.program.await_usable("Acc/Label2")
