#!/usr/bin/python3
"""Uses the program as a screen reader does: each control that can be seen must have a name and a role.

All views are opened by what the screen reader can press.

Usage: screen_reader.py APPDIR PLUGINS, as for the tour. Needs a session bus of its own.
"""

import os
import sys
from collections import namedtuple
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tour"))

from performing import perform
from waiting import Missed, wait_for

_DRAWERS = {"filler", "layered pane", "menu bar", "panel"}  # hold controls and tell nothing themselves
_MANY = 30  # of a table with more, the first cells stand for all

Met = namedtuple("Met", "node role name box")  # box: the name of the frame round it, if any


def _children(node, most=_MANY):
    return filter(None, (node.get_child_at_index(i) for i in range(min(most, node.get_child_count()))))


def _below(node, box=None):
    """All that can be seen below a node, itself included."""
    if node.get_state_set().contains(Atspi.StateType.SHOWING):
        met = Met(node, node.get_role_name(), node.get_name().strip(), box)
        yield met
        for child in _children(node):
            yield from _below(child, met.name if met.role == "panel" else None)


def _is_mute(met):
    """Whether it lacks a role, or a name of its own: the toolkit lends it that of the frame round it."""
    if met.role == "label" or met.role in _DRAWERS and not met.name:
        return False  # an empty line of text, such as the foot of a map, has nothing to tell yet
    return not met.name or met.role in ("unknown", "invalid") or met.name == met.box


class Reader:
    """Finds controls by what is read out."""

    def __init__(self, process):
        self._process = process
        self._application = wait_for("the program meets screen readers", self._find)
        self._application.set_cache_mask(Atspi.Cache.NONE)  # what is asked is as it is at that moment

    def _find(self):
        programs = _children(Atspi.get_desktop(0))
        return next((one for one in programs if one.get_process_id() == self._process), None)

    def _all(self):
        return [met for window in _children(self._application) for met in _below(window)]

    def press(self, role, *names):
        """Presses the topmost control of this role and each name: what it can do first is that."""
        for name in names:
            node = wait_for(f"a {role} named {name!r} is met", lambda: [
                met.node for met in self._all() if (met.role, met.name) == (role, name)])[-1]
            if node.get_n_actions() == 0 or not node.do_action(0):
                raise Missed(f"the {role} {name!r} can be pressed")

    def look(self, view):
        """Waits for a view, and looks at all that can be seen."""
        def found():
            all_met = self._all()
            return view in (met.name for met in all_met) and all_met

        mute = [met[1:] for met in wait_for(f"{view} is met", found) if _is_mute(met)]
        if mute:
            raise Missed(f"each control has a name and a role beside {view} (not so: {mute})")


def play(stage):
    reader = Reader(stage.program.pid)
    reader.look("Bienvenu")
    reader.press("push button", "Open an existing project")
    reader.look("Open")
    reader.press("menu item", "Menu")
    reader.press("push button", "Create a new project")
    reader.look("Create a project")
    reader.press("push button", "Create!")
    reader.look("Control Panel")
    reader.press("push button", "Main Menu", "Load map", "Change Texture")
    reader.look("Change texture(Tileset)")
    reader.press("radio button", "Event")
    reader.press("table cell", "Row 2, column 3: tile 1")
    reader.press("push button", "Change the hero's HP", "Change map", "A condition", "Change a variable")
    reader.look("Change Map")
    reader.press("push button", "Display Text")
    reader.look("Type the text! :")
    reader.press("push button", "Cancel")
    for entry, view in (("Fight Editor", "Fight Editor"), ("Editor of variables", "Variables of the game"),
                        ("Game Setup", "Game Options"), ("Finalize and publish", "Creation ...")):
        reader.press("push button", entry)
        reader.look(view)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    perform(play, *sys.argv[1:], DBUS_SESSION_BUS_ADDRESS=os.environ["DBUS_SESSION_BUS_ADDRESS"],
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
