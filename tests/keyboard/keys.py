"""The program in the hands of an author who has no mouse, and the frame of a test that plays so."""

import signal
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tour"))

import picture
from program import Program, focus, xdotool
from stage import SCREEN, Stage
from waiting import Missed, wait_for

TIME_LIMIT = 200  # seconds, of which a quick machine needs a small part
_CONTROLS = 80  # more than a view has


class Keys:
    """Plays the program of a stage by keys. Paths of controls are those of the probe."""

    def __init__(self, stage):
        self.program = Program(stage.program, stage.socket)
        self._main = wait_for("the main window opens", lambda: self.program.look("Mainform").window)
        focus(self._main)

    def press(self, *names):
        xdotool("key", "--delay", 30, *names)

    def has_focus(self, path):
        control = self.program.look(path)
        return control is not None and control.focused

    def await_focus(self, path):
        wait_for(f"{path} has the keys", lambda: self.has_focus(path))

    def tab_to(self, path):
        """Goes from control to control of a view until this one has the focus."""
        focus(self._main)
        self.program.await_shown(path)
        for _ in range(_CONTROLS):
            if self.has_focus(path):
                return
            self.press("Tab")
        raise Missed(f"Tab leads to {path}")

    def use(self, path, key="space"):
        """Goes to a control and presses it."""
        self.tab_to(path)
        self.press(key)

    def type_into(self, path, text):
        self.tab_to(path)
        self.press("ctrl+a")
        self._type(path, text)

    def answer(self, prompt, text):
        """Answers the input box that asks `prompt`, and waits until the keys are back."""
        self.program.await_caption("QInputDialog/QLabel", prompt)
        focus(self.program.look("QInputDialog").window)
        self._type("QInputDialog/QLineEdit", text)
        self._confirm("QInputDialog")

    def dismiss(self, text):
        self.program.await_caption("QMessageBox/qt_msgbox_label", text)
        focus(self.program.look("QMessageBox").window)
        self._confirm("QMessageBox")

    def _type(self, path, text):
        self.await_focus(path)
        xdotool("type", "--delay", 30, text)
        self.program.await_caption(path, text)

    def _confirm(self, box):
        self.press("Return")
        self.program.await_gone(box)
        focus(self._main)  # a window manager would


def _stop(number, _frame):
    raise Missed(f"the test ends in time (signal {signal.Signals(number).name})")


def main(play, usage, **environment):
    """Runs play(stage, keys) on a stage where the program was started; ends the process."""
    if len(sys.argv) != 3:
        sys.exit(usage)
    signal.signal(signal.SIGALRM, _stop)
    signal.alarm(TIME_LIMIT)
    with Stage(*sys.argv[1:]) as stage:
        stage.start_program(**environment)
        try:
            play(stage, Keys(stage))
        except Exception as failure:
            print(stage.log(), end="", file=sys.stderr)
            picture.from_screen(SCREEN).save("stopped.png")
            sys.exit(f"This did not happen: {failure!r}")
