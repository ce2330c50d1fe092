"""The place where the program is tortured, and its lives there."""

import ctypes
import errno
import mmap

from offscreen import Offscreen
from waiting import require

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


class Bench(Offscreen):
    """Deeds are lists of orders, done one after the other."""

    def _open_display(self):
        super()._open_display()
        self._plan = self.folder / "plan"
        self._plan.write_bytes(bytes(ctypes.sizeof(Faults)))
        with open(self._plan, "r+b") as file:
            self.faults = Faults.from_buffer(mmap.mmap(file.fileno(), 0))
        self.faults.below = str(self.app_dir).encode()

    def begin_life(self):
        self.start(TORTURE_FAULTS=str(self._plan))

    def end_life(self):
        """Kills the program, should it live."""
        self.program.kill()
        self.program.wait()

    def begin(self, deeds):
        self._told, self.done = len(deeds), 0
        for deed in deeds:
            for order in [*deed, ["look"]]:
                self.tell(*order)

    def finish(self):
        """Waits until all deeds are done or the program is dead; answers whether it lives."""
        try:
            while self.done < self._told:
                self.answer()
                self.done += 1
        except ConnectionError:
            return False
        absent = [line for line in self.unasked if line.startswith("?")]
        require(not absent, f"all controls are there ({absent})")
        return True

    def do(self, deed):
        self.begin([deed])
        require(self.finish(), "the program stays alive")
