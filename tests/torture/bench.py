"""The place where the program is tortured, and its lives there."""

import ctypes
import errno
import mmap
import socket

from offscreen import Offscreen
from waiting import Missed, wait_for

KILL, FAIL_ONE, FAIL_ALL = range(3)
ERRORS = (errno.ENOSPC, errno.EIO, errno.EACCES, errno.EROFS)


class Faults(ctypes.Structure):
    """What the next calls of the program that write below a folder will meet; diskcalls.h has the layout, too."""
    _fields_ = [("_strike_at", ctypes.c_int32), ("_kind", ctypes.c_int32), ("_error", ctypes.c_int32),
                ("_calls", ctypes.c_int32), ("below", ctypes.c_char * 512)]

    def strike(self, call, kind=KILL):
        """Strikes at a call from now on, counted from 1."""
        self._calls, self._kind, self._error = 0, kind, ERRORS[call % len(ERRORS)]
        self._strike_at = call

    def spare(self):
        """Answers whether there were so many calls."""
        struck = 0 < self._strike_at <= self._calls
        self._strike_at = 0
        return struck


class Life:
    """One life of the program. What it is told is done in order."""

    def __init__(self, socket_file):
        self.told = self.done = 0  # lines
        self._hand = socket.socket(socket.AF_UNIX)
        self._hand.settimeout(30)
        wait_for("the program starts", lambda: self._hand.connect_ex(str(socket_file)) == 0)
        self._answers = self._hand.makefile("r", encoding="utf-8")

    def tell(self, lines):
        """A program that is dead does not mind."""
        self.told += len(lines)
        try:
            self._hand.sendall("".join(line + "\n" for line in lines).encode())
        except OSError:
            pass

    def finish(self):
        """Waits until all is done or the program is dead; answers whether it lives."""
        while self.done < self.told:
            try:
                answer = self._answers.readline()
            except ConnectionError:
                answer = ""
            except TimeoutError:
                raise Missed("the program does what it is told in time, and no box is in the way") from None
            if not answer.endswith("\n"):
                return False
            if answer != "done\n":
                raise Missed(f"all controls are there ({answer.strip()})")
            self.done += 1
        return True

    def do(self, lines):
        self.tell(lines)
        if not self.finish():
            raise Missed("the program stays alive")


class Bench(Offscreen):
    def _open_display(self):
        super()._open_display()
        self._plan = self.folder / "plan"
        self._plan.write_bytes(bytes(ctypes.sizeof(Faults)))
        with open(self._plan, "r+b") as file:
            self.faults = Faults.from_buffer(mmap.mmap(file.fileno(), 0))
        self.faults.below = str(self.app_dir).encode()

    def begin_life(self):
        self.start(f"hand:{self.socket}", TORTURE_FAULTS=str(self._plan))
        return Life(self.socket)

    def end_life(self):
        """Kills the program, should it live."""
        self.program.kill()
        self.program.wait()
