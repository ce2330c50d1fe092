"""A copy of the runnable folder whose program is started without a display, and hands in it that do what they are told.

The player that it finds ends at once.
"""

import json
import shutil
import socket
from contextlib import suppress

from stage import Stage

LONGEST_DEED = 60  # seconds


class Offscreen(Stage):
    def __init__(self, app_dir, plugins, library):
        """plugins: the folder that holds the hands. library: tells them of writes and makes calls fail."""
        super().__init__(app_dir, plugins)
        self._library = library
        self.unasked = []  # lines

    def _open_display(self):
        player = self.app_dir / "luaplayer.exe"
        player.unlink()
        player.symlink_to("/bin/true")  # what is played is no matter here

    def start(self, **more):
        """Starts the program; the environment is `more` as well."""
        self.socket.unlink(missing_ok=True)
        shutil.rmtree(self.folder / "home", ignore_errors=True)
        with socket.socket(socket.AF_UNIX) as listener:
            listener.bind(str(self.socket))
            listener.listen()
            listener.settimeout(LONGEST_DEED)
            self.start_program(QT_QPA_PLATFORM="offscreen", QT_QPA_GENERIC_PLUGINS=f"monkey:{self.socket}",
                               LD_PRELOAD=self._library, **more)
            self._hands, _ = listener.accept()
        self._hands.settimeout(LONGEST_DEED)
        self._answers = self._hands.makefile("r", encoding="utf-8")

    def tell(self, *order):
        """A program that is gone does not mind."""
        with suppress(ConnectionError):
            self._hands.sendall(json.dumps(order).encode() + b"\n")

    def answer(self):
        """Waits for the next answer; raises ConnectionError when the program is gone."""
        for line in self._answers:
            if line[0] not in "!?":
                return json.loads(line)
            self.unasked.append(line.strip())
        raise ConnectionError("the program is gone")
