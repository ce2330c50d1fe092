"""The place where the tour plays: a copy of the runnable folder and a display, both its own."""

import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

from waiting import require

SCREEN = (0, 0, 1280, 800)
_libc = ctypes.CDLL(None)
_PR_SET_PDEATHSIG, _PR_SET_CHILD_SUBREAPER = 1, 36


def _die_with_the_tour():
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGKILL)


def open_display(scale=1):
    """Opens a virtual display, from now on that of this process and its children; answers its server."""
    reader, writer = os.pipe()
    size = f"{SCREEN[2] * scale}x{SCREEN[3] * scale}x24"
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writer), "-screen", "0", size, "-nolisten", "tcp", "-noreset"],
        pass_fds=[writer], preexec_fn=_die_with_the_tour, stderr=subprocess.DEVNULL)
    os.close(writer)
    with os.fdopen(reader) as answer:
        number = answer.readline().strip()
    require(number, "the virtual display opens")
    os.environ["DISPLAY"] = ":" + number
    return server


def _own_folder():
    """Mostly the same one, since the pictures of some views show its name."""
    usual = Path(tempfile.gettempdir(), "tour")
    try:
        usual.mkdir(mode=0o700)
        return usual
    except FileExistsError:
        return Path(tempfile.mkdtemp(prefix="tour-"))


class Stage:
    """Copies the folder, leaving out what an author made there, and opens a display.

    Used with `with`; at the end nothing of it is left, whatever happened. `scale` is that of the display: the
    toolkit's pixels are so many of its own in each direction.
    """

    def __init__(self, app_dir, plugins, scale=1):
        self._scale = scale
        self._source, self._plugins = Path(app_dir), Path(plugins).resolve()
        self.folder = _own_folder()
        self.app_dir = self.folder / "Questforge"
        self.socket = self.folder / "probe"
        self.program = self._display = None
        # Makes the player, which the program starts and leaves alone, a child of the tour in the end.
        _libc.prctl(_PR_SET_CHILD_SUBREAPER, 1)

    def __enter__(self):
        try:
            self._copy()
            self._open_display()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in (self.program, self._display):
            for player in self.players():
                os.kill(player, signal.SIGKILL)
            if process and process.poll() is None:
                process.kill()
                process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _copy(self):
        def authors_work(folder, names):
            return {"projets", "index.lua"} & set(names) if Path(folder) == self._source else set()

        require((self._source / "questforge").is_file(), f"a runnable folder is at {self._source}")
        shutil.copytree(self._source, self.app_dir, ignore=authors_work)

    def bring(self, project):
        """Copies one of the author's projects, too."""
        shutil.copytree(self._source / "projets" / project, self.app_dir / "projets" / project)

    def _open_display(self):
        self._display = open_display(self._scale)
        # The layout has a key for each letter that the tour types: none has to be added meanwhile. The display
        # would forget it when setxkbmap leaves as its last client; -noreset forbids that.
        subprocess.run(["setxkbmap", "fr"], check=True, stderr=subprocess.DEVNULL)

    def start_program(self, **more):
        """Starts the program as it is; the environment lets the toolkit take the probe in, `more` adds to it."""
        home = self.folder / "home"
        home.mkdir(mode=0o700)
        keep = ("PATH", "DISPLAY", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")
        environment = {name: os.environ[name] for name in keep if name in os.environ}
        environment |= {"HOME": str(home), "XDG_RUNTIME_DIR": str(home), "LANG": "C.UTF-8",
                        "QT_QPA_PLATFORM": "xcb", "QT_PLUGIN_PATH": str(self._plugins),
                        "QT_QPA_GENERIC_PLUGINS": f"probe:{self.socket}",
                        "QT_SCALE_FACTOR": str(self._scale)} | more
        with open(self.folder / "log", "w") as log:
            self.program = subprocess.Popen([self.app_dir / "questforge"], env=environment, cwd="/",
                                            stdout=log, stderr=log, preexec_fn=_die_with_the_tour)

    def log(self):
        """What the program and the player said on their streams."""
        path = self.folder / "log"
        return path.read_text(errors="replace") if path.exists() else ""

    def players(self):
        """Process numbers of the players that run from the copied folder."""
        player = str(self.app_dir / "luaplayer.exe")

        def runs_player(process):
            try:
                return os.readlink(process / "exe") == player
            except OSError:
                return False

        return [int(process.name) for process in Path("/proc").glob("[0-9]*") if runs_player(process)]
