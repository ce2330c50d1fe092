"""Every view as it looks on a light and a dark desktop, at 100 and at 200 %: pictures for the documentation.

Each look needs the program and a display anew, so only who renews the documentation takes them.
"""

from itertools import product

import picture
from drawing import GRID, middle_of
from entering import choose_folder, show_welcome
from looking import each_view
from program import Program, xdotool
from stage import SCREEN, Stage
from waiting import wait_for

SAMPLE = "A Letter for the Moon"
_THEMES = {"light": "Adwaita", "dark": "Adwaita:dark"}
_SCALES = {1: "", 2: "-2x"}
_VIEWS = ("welcome", "create", "open", "control-panel", "map-editor", "event-panel", "variables", "fights", "options",
          "publish")
_CELL_WITH_EVENT, _CELL_BESIDE = (2, 15), (4, 8)
_PANEL = "mapeditor/Frame6"


def _name(view, theme, scale):
    return f"looks/{view}-{theme}{_SCALES[scale]}.png"


def names():
    """The files of all looks, below the folder of the pictures."""
    return {_name(*look) for look in product(_VIEWS, _THEMES, _SCALES)}


def take_all(app_dir, plugins, pictures):
    """Walks through the program once for each look; its sample game is copied, not touched."""
    (pictures / "looks").mkdir(exist_ok=True)
    for theme, scale in product(_THEMES, _SCALES):
        with Stage(app_dir, plugins, scale) as stage:
            stage.bring(SAMPLE)
            stage.start_program(GTK_THEME=_THEMES[theme])
            program = Program(stage.program, stage.socket)
            for view, path in _views(program, scale):
                frame = program.await_shown(path).frame
                picture.still(lambda: picture.from_screen(frame)).save(pictures / _name(view, theme, scale))


def _views(program, scale):
    """Walks from view to view; names each, and a path to it, while it is shown."""
    yield from _before_a_project(program)
    for views in (_opening(program), _in_the_map_editor(program, scale), each_view(program)):
        for view, path in views:
            if view != "map-editor":  # which shows the cell below the mouse
                xdotool("mousemove", SCREEN[2] * scale - 1, SCREEN[3] * scale - 1)
            yield view, path


def _before_a_project(program):
    program.await_usable("Acc/Label2")
    yield "welcome", "Acc"
    program.click("Acc/Label2")
    program.type_into("nouvprojet/Text1", "The Night Train")
    program.type_into("nouvprojet/Text2", "Odile")
    yield "create", "nouvprojet"
    program.press_close_button("nouvprojet")


def _opening(program):
    show_welcome(program)
    choose_folder(program, SAMPLE)
    yield "open", "openp"
    program.click("openp/Command1")
    program.await_caption("Controlpanel/Label5", SAMPLE)
    yield "control-panel", "Controlpanel"


def _in_the_map_editor(program, scale):
    def point(cell):
        program.point(GRID, *(scale * pixels for pixels in middle_of(cell)))

    program.click("mapeditor/Frame2/=Event")
    point(_CELL_BESIDE)
    wait_for("the foot line names the cell", lambda: program.look("mapeditor/FootLine").caption)
    yield "map-editor", "mapeditor"
    point(_CELL_WITH_EVENT)
    xdotool("click", 1)
    for button, frame in (("Command17", 10), ("Command19", 9), ("Command13", 7), ("Command18", 8)):
        program.click(f"{_PANEL}/{button}")
        program.await_shown(f"{_PANEL}/Frame{frame}")
    yield "event-panel", "mapeditor"
    program.click(f"{_PANEL}/=Cancel")
    program.await_gone(_PANEL)
