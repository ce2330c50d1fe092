"""The stations after the game: a second project over the first, the way back, and the end."""

from closing import ask_to_close
from drawing import paint_cell
from entering import create_project, open_project, show_welcome
from program import focus
from project import Project, untouched
from waiting import await_value

_OTHER_PROJECT = "Désert"
_MAPS = ["1Glade of Zoé", "2Carte 1"]
_QUESTION = "Quitter Questforge ?"


def create_over(tour):
    """Makes a second project while the first one is open."""
    show_welcome(tour.program)
    with untouched(tour.project.folder, "making another project"):
        create_project(tour, Project(tour.stage.app_dir, _OTHER_PROJECT))


def open_first_again(tour):
    projects = tour.stage.app_dir / "projets"
    show_welcome(tour.program)
    with untouched(projects, "opening a project"):
        open_project(tour, tour.project, _MAPS)
    with untouched(projects / _OTHER_PROJECT, "painting in the first project"):
        paint_cell(tour, (6, 12), 0)


def leave(tour):
    """Stays after all, then closes the control panel, and with it the project; and in the end the program."""
    program = tour.program
    focus(program.look("Mainform").window)
    with untouched(tour.stage.app_dir / "projets", "leaving the project"):
        program.press_close_button("Controlpanel")
        program.await_caption("QMessageBox/qt_msgbox_label", _QUESTION)
        tour.show("leaving", "QMessageBox")
        program.dismiss(_QUESTION, "No")
        program.await_usable("Controlpanel/List1")
        program.press_close_button("Controlpanel")
        program.dismiss(_QUESTION, "Yes")
        program.await_gone("Controlpanel")
        ask_to_close(program.look("Mainform").window)
        await_value("the exit code of the program", tour.stage.program.poll, 0)
