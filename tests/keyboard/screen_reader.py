#!/usr/bin/python3
"""Uses the program as a screen reader does: each control that can be seen must have a name and a role.

All views are opened by what the screen reader can press, and the cells of a map are read at the keyboard.

Usage: screen_reader.py APPDIR PLUGINS, as for the tour. Needs a session bus of its own.
"""

import os
import sys
from collections import namedtuple

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi

from keys import Keys, Missed, perform, wait_for
from mapview import GRID

_DRAWERS = {"filler", "layered pane", "menu bar", "panel"}  # hold controls and tell nothing themselves
_MANY = 30  # of a table with more, the first cells stand for all


Met = namedtuple("Met", "node role name box")  # box: the name of the frame round it, if any


def _is(node, state):
    return node.get_state_set().contains(state)


def _below(node, box=None):
    """All that can be seen below a node, itself included."""
    if _is(node, Atspi.StateType.SHOWING):
        met = Met(node, node.get_role_name(), node.get_name().strip(), box)
        yield met
        children = (node.get_child_at_index(i) for i in range(min(_MANY, node.get_child_count())))
        for child in filter(None, children):
            yield from _below(child, met.name if met.role == "panel" else None)


def _is_mute(met):
    """Whether it lacks a role, or a name of its own: the toolkit lends it that of the frame round it.

    An empty line of text, such as the foot of a map, has nothing to tell yet.
    """
    if met.role == "label" or met.role in _DRAWERS and not met.name:
        return False
    return not met.name or met.role in ("unknown", "invalid") or met.name == met.box


class Reader:
    """Finds controls by what is read out."""

    def __init__(self, process):
        self._process = process
        self._application = wait_for("the program meets screen readers", self._find)
        self._application.set_cache_mask(Atspi.Cache.NONE)  # what is asked is as it is at that moment

    def _find(self):
        desktop = Atspi.get_desktop(0)
        found = (desktop.get_child_at_index(i) for i in range(desktop.get_child_count()))
        return next((one for one in found if one and one.get_process_id() == self._process), None)

    def _all(self):
        windows = (self._application.get_child_at_index(i) for i in range(self._application.get_child_count()))
        return [met for window in filter(None, windows) for met in _below(window)]

    def press(self, role, name):
        """Presses the topmost control of this role and name: what it can do first is that."""
        def found():
            return [met.node for met in self._all() if (met.role, met.name) == (role, name)]

        node = wait_for(f"a {role} named {name!r} is met", found)[-1]
        if node.get_n_actions() == 0 or not node.do_action(0):
            raise Missed(f"the {role} {name!r} can be pressed")

    def look(self, view):
        """Waits for a view, and looks at all that can be seen."""
        def found():
            all_met = self._all()
            return view in (met.name for met in all_met) and all_met

        all_met = wait_for(f"{view} is met", found)
        mute = [met[1:] for met in all_met if _is_mute(met)]
        if mute:
            raise Missed(f"each control has a name and a role beside {view} (not so: {mute})")

    def cell(self):
        """What is read of the cell of the map that has the keys."""
        table = next(met.node for met in self._all() if met.role == "table")
        cells = (table.get_child_at_index(i) for i in range(table.get_child_count()))
        return next((cell.get_name() for cell in cells if _is(cell, Atspi.StateType.FOCUSED)), None)


def _press_all(reader, *captions):
    for caption in captions:
        reader.press("push button", caption)


def read_editor(reader):
    """Opens all frames of the map editor, and an event with all of its own."""
    _press_all(reader, "Main Menu", "Load map", "Change Texture")
    reader.look("Change texture(Tileset)")
    reader.press("radio button", "Event")
    reader.press("table cell", "Row 2, column 3: tile 1")
    _press_all(reader, "Change the hero's HP", "Change map", "A condition", "Change a variable")
    reader.look("Change Map")
    reader.press("push button", "Display Text")
    reader.look("Type the text! :")
    reader.press("push button", "Cancel")


def read_cells(reader, keys):
    """The cell that the arrows walk to is told with all that it holds."""
    reader.press("push button", "Save")
    keys.tab_to(GRID)
    for steps, cell in ((["Right"], "Row 1, column 2: tile 6, blocked"),
                        (["Right", "Down"], "Row 2, column 3: tile 1, event"),
                        (["Right"] + 3 * ["Down"], "Row 5, column 4: tile 4, start of the hero")):
        keys.press(*steps)
        wait_for(f"{cell!r} is read", lambda: reader.cell() == cell, 10)


def play(stage):
    keys, reader = Keys(stage), Reader(stage.program.pid)
    reader.look("Bienvenu")
    reader.press("push button", "Open an existing project")
    reader.look("Open")
    reader.press("menu item", "Menu")
    reader.press("push button", "Create a new project")
    reader.look("Create a project")
    reader.press("push button", "Create!")
    reader.look("Control Panel")
    read_editor(reader)
    read_cells(reader, keys)
    for entry, view in (("Fight Editor", "Fight Editor"), ("Editor of variables", "Variables of the game"),
                        ("Game Setup", "Game Options"), ("Finalize and publish", "Creation ...")):
        reader.press("push button", entry)
        reader.look(view)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    bus = {"DBUS_SESSION_BUS_ADDRESS": os.environ["DBUS_SESSION_BUS_ADDRESS"], "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
    sys.exit(perform(play, *sys.argv[1:], **bus))
