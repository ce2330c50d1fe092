"""The program as its user meets it: controls that are looked for, clicked and typed into."""

import json
import socket
import subprocess
from collections import namedtuple
from types import SimpleNamespace

from waiting import await_value, require, wait_for

Place = namedtuple("Place", "left top width height")


def xdotool(*arguments):
    """Plays mouse and keys; answers what the tool printed."""
    words = [str(argument) for argument in arguments]
    return subprocess.run(["xdotool", *words], check=True, capture_output=True, text=True).stdout.strip()


def focus(window):
    """Gives the keys to a window, as a window manager does for the window that is clicked."""
    if int(xdotool("getwindowfocus", "-f")) != window:
        xdotool("windowfocus", "--sync", window)


def _click_middle(place, times=1):
    left, top, width, height = place
    xdotool("mousemove", left + width // 2, top + height // 2, "click", "--repeat", times, "--delay", 80, 1)


class Program:
    """Paths of controls are those of the probe, such as "mapeditor/CarteImg"."""

    def __init__(self, process, socket_file):
        self.process = process
        self._connection = socket.socket(socket.AF_UNIX)
        wait_for("the program starts", lambda: self._connect(socket_file))
        self._answers = self._connection.makefile("r", encoding="utf-8")

    def _connect(self, socket_file):
        ended = self.process.poll()
        require(ended is None, f"the program stays alive (it ended with {ended})")
        return socket_file.exists() and self._connection.connect_ex(str(socket_file)) == 0

    def look(self, path):
        """The state of a control at this moment; None when there is no such control."""
        self._connection.sendall(path.encode() + b"\n")
        answer = json.loads(self._answers.readline() or "{}")
        if not answer:
            return None
        answer["place"] = Place(*answer["place"])
        return SimpleNamespace(**answer)

    def shows(self, path):
        """Whether a control can be seen."""
        control = self.look(path)
        return control is not None and control.visible

    def await_shown(self, path):
        """Waits until a control can be seen and answers its state."""
        return wait_for(f"{path} is shown", lambda: self.shows(path) and self.look(path))

    def await_gone(self, path):
        wait_for(f"{path} is shown no more", lambda: not self.shows(path))

    def await_caption(self, path, text):
        """Waits until a control bears a text."""
        await_value(f"the text of {path}", lambda: getattr(self.look(path), "caption", None), text)

    def lines(self, path):
        """The texts of a list's lines."""
        return [line["text"] for line in self.look(path).lines]

    def await_lines(self, path, lines):
        await_value(f"the list {path}", lambda: self.lines(path), lines)

    def await_usable(self, path):
        """Waits until a click on a control would reach it, and gives its window the keys."""
        last = None

        def usable():
            nonlocal last
            before, last = last, self.look(path)
            return before and last and before.place == last.place and last.enabled and last.reachable

        wait_for(f"{path} can be clicked", usable)
        focus(last.window)
        return last

    def point(self, path, x=None, y=None):
        """Moves the mouse to a place of a control, in pixels from its corner; its middle otherwise."""
        place = self.await_usable(path).place
        x = place.width // 2 if x is None else x
        y = place.height // 2 if y is None else y
        xdotool("mousemove", place.left + x, place.top + y)

    def click(self, path, x=None, y=None):
        self.point(path, x, y)
        xdotool("click", 1)

    def step_forward(self, path):
        """Clicks the arrow at the right end of a scroll bar."""
        self.click(path, self.await_usable(path).place.width - 6)

    def click_line(self, path, row, times=1):
        """Clicks a line of a list, row counted from 0; twice for a double-click."""
        _click_middle(self.await_usable(path).lines[row]["place"], times)

    def choose(self, path, row, text):
        """Opens a choice and takes its entry, row counted from 0."""
        self.click(path)
        entries = path.split("/")[-1] + "List"
        self.click_line(entries, row)
        self.await_gone(entries)
        self.await_caption(path, text)

    def type_into(self, path, text):
        """Replaces the text of a field by typing."""
        self.click(path)
        self.replace_text(path, text)

    def replace_text(self, path, text):
        """The same in the field that has the keys."""
        xdotool("key", "ctrl+a")
        xdotool("type", "--delay", 20, text)
        self.await_caption(path, text)

    def answer(self, prompt, text, before_ok=lambda: None):
        """Types the answer into the input box that asks `prompt`."""
        self.await_caption("QInputDialog/QLabel", prompt)
        self.type_into("QInputDialog/QLineEdit", text)
        before_ok()
        self.click("QInputDialog/=OK")
        self.await_gone("QInputDialog")

    def dismiss(self, text, button):
        """Presses a button of the message box that says `text`."""
        self.await_caption("QMessageBox/qt_msgbox_label", text)
        self.click("QMessageBox/=" + button)
        self.await_gone("QMessageBox")

    def press_close_button(self, path):
        """Presses the button that closes the window of a view."""
        _click_middle(self.await_usable(path).closeButton)

    def close(self, path):
        self.press_close_button(path)
        self.await_gone(path)
