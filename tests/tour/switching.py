"""The stations after the game: a second project over the first, the way back, and the end.

A map view of the first project stays open all the time. It must never write while its project is not.
"""

from closing import ask_to_close
from entering import create_project, open_project, show_welcome
from mapview import LeftView
from program import focus
from project import Project, untouched
from waiting import Missed, wait_for

OTHER_PROJECT = "Désert"
MAPS = ["1Glade of Zoé", "2Carte 1"]
QUESTION = "Quitter Questforge ?"


class Switching:
    def __init__(self, tour, drawing):
        self._tour, self._program, self._drawing = tour, tour.program, drawing
        self._projects = tour.stage.app_dir / "projets"
        self._view = None  # of the first project's first map
        self._cells = []  # to be painted with the first tile, which the view's chooser shows

    def create_over(self):
        """Makes a second project while the first one is open."""
        model = self._drawing.maps["01"]
        self._cells = [cell for cell in model.free_cells() if model.code(cell) != 0][-2:]
        self._view = LeftView(self._program)
        show_welcome(self._tour)
        with untouched(self._tour.project.folder, "making another project"):
            create_project(self._tour, Project(self._tour.stage.app_dir, OTHER_PROJECT))
        if self._view.is_topmost():
            raise Missed("the new project's map has a view of its own")

    def _click_in_vain(self, when):
        with untouched(self._projects, f"a click into a map view {when}"):
            self._view.click_in_vain(self._cells[0])

    def _paint(self, cell):
        model = self._drawing.maps["01"]
        self._view.click(cell)
        model.set_code(cell, 0)
        model.await_saved()
        self._drawing.await_tile(cell, "01", 0)

    def click_into_left_view(self):
        self._click_in_vain("whose project was left for another")
        self._tour.take_picture("view-of-the-first-project")

    def open_first_again(self):
        """The click that was in vain before is good again."""
        show_welcome(self._tour)
        with untouched(self._projects, "opening a project"):
            open_project(self._tour, self._tour.project, MAPS)
        with untouched(self._projects / OTHER_PROJECT, "painting in the first project"):
            self._paint(self._cells[0])
        self._tour.take_picture("first-project-again")

    def stay(self):
        """Does not close the control panel after all."""
        program = self._program
        focus(program.look("Mainform").window)
        with untouched(self._projects, "staying in the project"):
            program.press_close_button("Controlpanel")
            program.await_caption("QMessageBox/qt_msgbox_label", QUESTION)
            self._tour.take_picture("leaving")
            self._tour.document("leaving", "QMessageBox")
            program.dismiss(QUESTION, "No")
            program.await_usable("Controlpanel/List1")
            program.await_caption("Controlpanel/Label5", self._tour.project.folder.name)
            program.await_lines("Controlpanel/List1", MAPS)
        self._paint(self._cells[1])

    def leave(self):
        """Closes the control panel, and with it the project; the map views stay."""
        program, process = self._program, self._tour.stage.program
        self._cells.reverse()
        program.press_close_button("Controlpanel")
        program.dismiss(QUESTION, "Yes")
        program.await_gone("Controlpanel")
        self._click_in_vain("whose project was closed")
        self._tour.take_picture("no-project")
        ask_to_close(program.look("Mainform").window)
        wait_for("closing the main window ends the program", lambda: process.poll() is not None)
        if process.returncode != 0:
            raise Missed(f"the program ends with 0 (it ended with {process.returncode})")
