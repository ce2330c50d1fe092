"""The program as its user meets it: controls that are looked for, clicked and typed into."""

import json
import socket
import subprocess
from collections import namedtuple
from types import SimpleNamespace

from waiting import Missed, wait_for

Place = namedtuple("Place", "left top width height")


def xdotool(*arguments):
    """Plays mouse and keys; answers what the tool printed."""
    words = [str(argument) for argument in arguments]
    return subprocess.run(["xdotool", *words], check=True, capture_output=True, text=True).stdout.strip()


def focus(window):
    """Gives the keys to a window, as a window manager does for the window that is clicked."""
    if int(xdotool("getwindowfocus", "-f")) != window:
        xdotool("windowfocus", "--sync", window)


def _is_stable(before, now):
    return before is not None and before.place == now.place


class Program:
    """Paths of controls are those of the probe, such as "mapeditor/CarteImg"."""

    def __init__(self, process, socket_file):
        self.process = process
        self._connection = socket.socket(socket.AF_UNIX)
        wait_for("the program starts", lambda: self._connect(socket_file))
        self._answers = self._connection.makefile("r", encoding="utf-8")

    def _connect(self, socket_file):
        if self.process.poll() is not None:
            raise Missed(f"the program stays alive (it ended with {self.process.returncode})")
        return socket_file.exists() and self._connection.connect_ex(str(socket_file)) == 0

    def look(self, path):
        """The state of a control at this moment; None when there is no such control."""
        self._connection.sendall(path.encode() + b"\n")
        answer = json.loads(self._answers.readline() or "{}")
        if not answer:
            return None
        answer["place"] = Place(*answer["place"])
        answer["frame"] = Place(*answer.get("frame", answer["place"]))
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
        try:
            wait_for("", lambda: getattr(self.look(path), "caption", None) == text)
        except Missed:
            seen = getattr(self.look(path), "caption", None)
            raise Missed(f"{path} reads {text!r} (it reads {seen!r})") from None

    def await_lines(self, path, lines):
        """Waits until a list holds exactly these lines."""
        def held():
            return [line["text"] for line in self.look(path).lines]

        try:
            wait_for("", lambda: held() == lines)
        except Missed:
            raise Missed(f"{path} holds {lines} (it holds {held()})") from None

    def await_usable(self, path):
        """Waits until a click on a control would reach it, and gives its window the keys."""
        last = None

        def usable():
            nonlocal last
            before, last = last, self.look(path)
            return (last and last.visible and last.enabled and last.reachable and _is_stable(before, last))

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
        place = self.await_usable(path).place
        self.click(path, place.width - 6)

    def click_line(self, path, row, times=1):
        """Clicks a line of a list, row counted from 0; twice for a double-click."""
        self.await_usable(path)
        left, top, width, height = self.look(path).lines[row]["place"]
        xdotool("mousemove", left + width // 2, top + height // 2, "click", "--repeat", times, "--delay", 80, 1)

    def choose(self, path, row, text):
        """Opens a choice and takes its entry, row counted from 0."""
        self.click(path)
        popup = self.await_usable("QComboBoxListView")
        left, top, width, height = popup.lines[row]["place"]
        xdotool("mousemove", left + width // 2, top + height // 2, "click", 1)
        self.await_gone("QComboBoxListView")
        self.await_caption(path, text)

    def type_into(self, path, text):
        """Replaces the text of a field by typing."""
        self.click(path)
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

    def dismiss(self, text, button, title="Questforge"):
        """Presses a button of the message box that says `text`."""
        self.await_caption("QMessageBox/qt_msgbox_label", text)
        seen = xdotool("getwindowname", self.await_usable("QMessageBox/=" + button).window)
        if seen != title:
            raise Missed(f"the message {text!r} has the title {title} (it has {seen})")
        self.click("QMessageBox/=" + button)
        self.await_gone("QMessageBox")

    def drag(self, path, down):
        """Moves the window of a view by its title, in pixels."""
        place = self.await_usable(path).place
        _, top, _, height = self.look(path).closeButton
        x, y = place.left + place.width // 2, top + height // 2
        xdotool("mousemove", x, y, "mousedown", 1, "mousemove", x, y + down, "mouseup", 1)
        wait_for(f"{path} is moved by {down}", lambda: self.look(path).place.top == place.top + down)

    def press_close_button(self, path):
        """Presses the button that closes the window of a view."""
        self.await_usable(path)
        left, top, width, height = self.look(path).closeButton
        xdotool("mousemove", left + width // 2, top + height // 2, "click", 1)
