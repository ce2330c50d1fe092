"""The stations that lead into a project: the welcome view, a new project, an existing one."""

from waiting import require, wait_for

AUTHOR = "Odile"


def welcome(tour):
    tour.program.await_caption("Acc/Label1", "Welcome to Questforge 3! What would you do?")
    tour.program.await_usable("Acc/Label2")
    tour.show("welcome", "Acc")


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
    tour.show("new-project", "nouvprojet")
    program.click("nouvprojet/=Create!")
    program.await_gone("nouvprojet")
    project.await_setting("Jeu", "nom", name)
    project.await_setting("Jeu", "auteur", AUTHOR)
    _await_open(program, project, ["1Carte 1"])


def choose_folder(program, name):
    """Chooses a project's folder in the view that the welcome view's entry opens."""
    def rows():
        return [line.strip() for line in program.lines("openp/Dir1")]

    program.click("Acc/Label3")
    program.await_gone("Acc")
    program.await_usable("openp/Dir1")
    require(name in rows(), f"the open view starts among the projects (it lists {rows()})")
    program.click_line("openp/Dir1", rows().index(name), 2)
    wait_for("a double-click opens a folder", lambda: "images" in rows())


def open_project(tour, project, maps):
    """Opens a project by the welcome view's entry; the control panel must then list its maps."""
    choose_folder(tour.program, project.folder.name)
    tour.show("open", "openp")
    tour.program.click("openp/Command1")
    tour.program.await_gone("openp")
    _await_open(tour.program, project, maps)


def show_welcome(program):
    """Comes back to the welcome view from an open project."""
    program.click("Mainform/QMenuBar", 20)
    program.await_usable("Acc/Label2")
