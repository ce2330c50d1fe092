"""The place where the program is tortured: a copy of the runnable folder, and lives of the program in it."""

import ctypes
import errno
import mmap
import os
import socket
import subprocess

from program import Program
from stage import Stage
from waiting import Missed, wait_for

KILL, FAIL_ONE, FAIL_ALL = range(3)
ERRORS = (errno.ENOSPC, errno.EIO, errno.EACCES, errno.EROFS)


class _Plan(ctypes.Structure):
    """As faults.h lays it out."""
    _fields_ = [("strike_at", ctypes.c_int32), ("kind", ctypes.c_int32), ("error", ctypes.c_int32),
                ("calls", ctypes.c_int32), ("below", ctypes.c_char * 512)]


class Faults:
    """What the next calls of the program that write below a folder will meet."""

    def __init__(self, path, below):
        path.write_bytes(bytes(ctypes.sizeof(_Plan)))
        with open(path, "r+b") as file:
            self._plan = _Plan.from_buffer(mmap.mmap(file.fileno(), 0))
        self._plan.below = str(below).encode()

    def strike(self, call, kind=KILL):
        """Strikes at a call from now on, counted from 1."""
        self._plan.calls, self._plan.kind = 0, kind
        self._plan.error = ERRORS[call % len(ERRORS)]
        self._plan.strike_at = call

    def spare(self):
        self._plan.strike_at = 0

    def struck(self):
        return 0 < self._plan.strike_at <= self._plan.calls


class Life:
    """One life of the program. What it is told is done in order."""

    def __init__(self, folder):
        self.told = 0
        self.done = set()  # of what it was told, by number
        self._hand = socket.socket(socket.AF_UNIX)
        self._hand.settimeout(30)
        self._hand.connect(str(folder / "hand"))
        self._rest = b""
        self._lines, self._gone = [], 0
        self.program = Program(_Running, folder / "probe")

    def tell(self, deed, path, *words):
        """Notes what is to be done; answers its number."""
        self.told += 1
        self._lines.append("\t".join([str(self.told), deed, path, *map(str, words)]) + "\n")
        return self.told

    def go(self):
        """Hands over what was noted. A program that is dead does not mind."""
        try:
            self._hand.sendall("".join(self._lines[self._gone:]).encode())
        except OSError:
            pass
        self._gone = len(self._lines)

    def finish(self):
        """Goes on until all is done or the program is dead; answers whether it lives."""
        self.go()
        try:
            while len(self.done) < self.told:
                self.done |= self._answers()
        except EOFError:
            return False
        return True

    def _answers(self):
        try:
            bytes_ = self._hand.recv(65536)
        except ConnectionError:
            bytes_ = b""
        except TimeoutError:
            raise Missed("the program does what it is told in time") from None
        if not bytes_:
            raise EOFError
        *lines, self._rest = (self._rest + bytes_).split(b"\n")
        for line in lines:
            if line.endswith(b"?"):
                raise Missed(f"there is a control for {self._lines[int(line[:-1]) - 1][:80]!r}")
        return {int(line) for line in lines}

    def do(self, deed, path, *words):
        self.tell(deed, path, *words)
        if not self.finish():
            raise Missed("the program stays alive")


class _Running:
    """For the tour's view of the program, which asks a process whether it has ended."""

    @staticmethod
    def poll():
        return None


class Bench(Stage):
    """Needs no display: the program is started without one."""

    def __init__(self, app_dir, plugins, faults):
        super().__init__(app_dir, plugins)
        self._faults_library = faults

    def _open_display(self):
        player = self.app_dir / "luaplayer.exe"
        player.unlink()
        player.symlink_to("/bin/true")  # what is played is no matter here
        self.faults = Faults(self.folder / "plan", self.app_dir)
        self._mother = self._start(self.folder, {"TORTURE_LIVES": "1"})
        self.program = self._mother

    def _start(self, folder, more):
        home = self.folder / "home"
        home.mkdir(mode=0o700, exist_ok=True)
        folder.mkdir(exist_ok=True)
        for name in ("hand", "probe"):
            (folder / name).unlink(missing_ok=True)
        keep = ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")
        environment = {name: os.environ[name] for name in keep if name in os.environ}
        environment |= {"HOME": str(home), "XDG_RUNTIME_DIR": str(home), "LANG": "C.UTF-8",
                        "QT_QPA_PLATFORM": "offscreen", "QT_PLUGIN_PATH": str(self._plugins),
                        "QT_QPA_GENERIC_PLUGINS": f"hand:{folder}", "LD_PRELOAD": self._faults_library,
                        "TORTURE_FAULTS": str(self.folder / "plan")} | more
        with open(self.folder / "log", "a") as log:
            return subprocess.Popen([self.app_dir / "questforge"], env=environment, cwd="/", text=True, bufsize=1,
                                    stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=log)

    def begin_life(self, cold):
        """Lets the program live, from its start or, which is quicker, from where it is ready."""
        if cold:
            self.program = self._start(self.folder / "cold", {})
            folder = self.folder / "cold"
            wait_for("the program starts", lambda: (folder / "hand").exists())
        else:
            self._mother.stdin.write("live\n")
            if not self._mother.stdout.readline():
                raise Missed("the program starts")
            folder = self.folder
        return Life(folder)

    def end_life(self):
        """Kills the program, should it live, and waits until nothing is left of it."""
        if self.program is not self._mother:
            self.program.kill()
            self.program.wait()
            self.program = self._mother
        else:
            self._mother.stdin.write("die\n")
            self._mother.stdout.readline()
