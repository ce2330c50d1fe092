"""A map view that is left open while others come and go."""

import picture
from program import xdotool
from waiting import Missed, wait_for

CELL = (28, 29)
GRID = "mapeditor/CarteImg"
_FRAME = 8  # pixels, at least what a window has below its view


def middle_of(cell):
    """The middle of a cell, in pixels from the corner of the grid."""
    row, column = cell
    return (column - 1) * CELL[0] + CELL[0] // 2, (row - 1) * CELL[1] + CELL[1] // 2


class LeftView:
    """Takes the topmost map view and moves it to the foot of the work area.

    Views that are opened later leave its lower rows in sight. Cells are (row, column), counted from 1.
    """

    def __init__(self, program):
        self._program = program
        area, view = program.look("WorkArea").place, program.look("mapeditor").place
        program.drag("mapeditor", area.top + area.height - (view.top + view.height) - _FRAME)
        self._grid = program.await_usable(GRID).place

    def is_topmost(self):
        return self._program.look(GRID).place == self._grid

    def click(self, cell):
        """Clicks a cell, wherever other views lie."""
        x, y = middle_of(cell)
        xdotool("mousemove", self._grid.left + x, self._grid.top + y, "click", 1)
        wait_for("a click raises a map view", self.is_topmost)

    def _choose_mode(self, caption):
        path = f"mapeditor/Frame2/={caption}"
        self._program.click(path)
        wait_for(f"the mode {caption} is chosen", lambda: self._program.look(path).checked)

    def _seen(self, cell):
        x, y = middle_of(cell)
        left, top = self._grid.left + x - CELL[0] // 2, self._grid.top + y - CELL[1] // 2
        return picture.from_screen((left, top, *CELL)).data

    def click_in_vain(self, cell):
        """Clicks a cell in each mode; nothing must be seen of it. The view is left in the mode Picture."""
        before = self._seen(cell)
        for following in ("Picture", "Blocks", "Event", "Picture"):
            self.click(cell)
            self._choose_mode(following)  # once this is seen, the click was handled
            if self._program.shows("mapeditor/Frame6"):
                raise Missed("a click opens no event while the map's project is not open")
        if self._seen(cell) != before:
            raise Missed("a click changes no cell while the map's project is not open")
