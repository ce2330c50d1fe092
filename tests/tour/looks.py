"""Every view as it looks on a light and a dark desktop, at 100 and at 200 %: pictures for the documentation.

Each look needs the program and a display anew, so only who renews the documentation takes them.
"""

from itertools import product

import picture
from entering import choose_folder, show_welcome
from mapview import GRID, middle_of
from program import Program, xdotool
from stage import SCREEN, Stage
from waiting import wait_for

TIME_LIMIT = 280  # seconds for all of them, of which a quick machine needs a small part
SAMPLE = "A Letter for the Moon"
_SUBFOLDER = "looks"
_THEMES = {"light": "Adwaita", "dark": "Adwaita:dark"}
_SCALES = {1: "", 2: "-2x"}
_VIEWS = ("welcome", "create", "open", "control-panel", "map-editor", "event-panel", "variables", "fights", "options",
          "publish")
_CELL_WITH_EVENT, _CELL_BESIDE = (2, 15), (4, 8)
_PANEL = "mapeditor/Frame6"


def _name(view, theme, scale):
    return f"{_SUBFOLDER}/{view}-{theme}{_SCALES[scale]}.png"


def names():
    """The files of all looks, below the folder of the pictures."""
    return {_name(*look) for look in product(_VIEWS, _THEMES, _SCALES)}


def take_all(app_dir, plugins, pictures):
    """Walks through the program once for each look; its sample game is copied, not touched."""
    (pictures / _SUBFOLDER).mkdir(exist_ok=True)
    for theme, scale in product(_THEMES, _SCALES):
        with Stage(app_dir, plugins, scale) as stage:
            stage.bring(SAMPLE)
            stage.start_program(GTK_THEME=_THEMES[theme])
            walk = _Walk(Program(stage.program, stage.socket), scale)
            for view, path in walk.views():
                place = walk.program.await_shown(path).frame
                picture.save_still(place, pictures / _name(view, theme, scale))


class _Walk:
    """The way from view to view."""

    def __init__(self, program, scale):
        self.program, self._scale = program, scale

    def views(self):
        """Names each view, and a path to it, while it is shown."""
        yield from self._before_a_project()
        yield from self._in_the_map_editor()
        yield from self._from_the_control_panel()

    def _rest(self):
        """Takes the mouse to where it marks nothing."""
        xdotool("mousemove", SCREEN[2] * self._scale - 1, SCREEN[3] * self._scale - 1)

    def _before_a_project(self):
        program = self.program
        program.await_usable("Acc/Label2")
        yield "welcome", "Acc"
        program.click("Acc/Label2")
        program.type_into("nouvprojet/Text1", "The Night Train")
        program.type_into("nouvprojet/Text2", "Odile")
        yield "create", "nouvprojet"
        program.press_close_button("nouvprojet")
        show_welcome(self)
        choose_folder(program, SAMPLE)
        self._rest()
        yield "open", "openp"
        program.click("openp/Command1")
        program.await_caption("Controlpanel/Label5", SAMPLE)
        self._rest()
        yield "control-panel", "Controlpanel"

    def _point(self, cell):
        self.program.point(GRID, *(self._scale * pixels for pixels in middle_of(cell)))

    def _in_the_map_editor(self):
        program = self.program
        program.click("mapeditor/Frame2/=Event")
        self._point(_CELL_BESIDE)
        wait_for("the foot line names the cell", lambda: program.look("mapeditor/FootLine").caption)
        yield "map-editor", "mapeditor"
        self._point(_CELL_WITH_EVENT)
        xdotool("click", 1)
        for button, frame in (("Command17", 10), ("Command19", 9), ("Command13", 7), ("Command18", 8)):
            program.click(f"{_PANEL}/{button}")
            program.await_shown(f"{_PANEL}/Frame{frame}")
        self._rest()
        yield "event-panel", "mapeditor"
        program.click(f"{_PANEL}/=Cancel")
        program.await_gone(_PANEL)

    def _from_the_control_panel(self):
        program = self.program
        entries = ((1, "variables", "var"), (0, "fights", "combateditor"), (2, "options", "gameoptions"))
        for entry, view, path in entries:
            program.click(f"Controlpanel/Label9_{entry}")
            program.await_usable(path)
            self._rest()
            yield view, path
            program.press_close_button(path)
            program.await_gone(path)
        program.click("Controlpanel/Label9_4")
        program.await_usable("QMessageBox/=OK")
        self._rest()
        yield "publish", "QMessageBox"
