"""A virtual display of its own and a look at the windows on it."""

import os
import subprocess
import time


class Display:
    """Open while it is used with `with`."""

    def __enter__(self):
        reader, writer = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset"],
            pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as answer:
            self._name = ":" + answer.readline().strip()
        return self

    def __exit__(self, *_):
        self._server.kill()
        self._server.wait()

    def title_after_start(self, command, home, **settings):
        """Starts a command, answers the title of its first visible window and ends it; empty: it ended by itself."""
        environment = {"PATH": os.environ["PATH"], "LANG": "C.UTF-8", "DISPLAY": self._name, "HOME": str(home),
                       "XDG_RUNTIME_DIR": str(home), "QT_QPA_PLATFORM": "xcb", **settings}
        program = subprocess.Popen([command], env=environment, cwd="/", stderr=subprocess.DEVNULL)
        try:
            end = time.monotonic() + 40
            title = ""
            while not title and program.poll() is None and time.monotonic() < end:
                time.sleep(0.1)
                title = self._title(program.pid)
            return title
        finally:
            program.kill()
            program.wait()

    def _title(self, process):
        words = ["xdotool", "search", "--onlyvisible", "--all", "--pid", str(process), "--name", ".", "getwindowname"]
        found = subprocess.run(words, env={**os.environ, "DISPLAY": self._name}, capture_output=True, text=True)
        return found.stdout.strip()
