#!/usr/bin/python3
"""Kills the program at work, again and again, and looks at what it leaves of an author's files.

Usage: torture.py APPDIR PLUGINS LIBRARY [COUNT [SEED]]

APPDIR is the runnable folder, of which a copy is used. PLUGINS is the folder of toolkit plugins that holds the
hands, LIBRARY strikes at calls that change the disk. The author's deeds are done twice from the same files: first
undisturbed, then by one of COUNT lives that are killed, at a call or at any moment. The files must then be whole,
those between two deeds of the first life, and no deed that was finished may be missing. Then the project is
opened again, which may change no file and must sweep away what the killed program left. In more lives each call
of a click fails. The exit code is 0 when all held, else 1 and a line that names what did not.
"""

import itertools
import os
import random
import shutil
import sys
import time
from collections import Counter

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "tour"))

from author import LAST, SHORT, Author, press, write
from bench import FAIL_ALL, FAIL_ONE, Bench
from waiting import Missed

LIVES_OF_A_PROJECT = 30  # then there is another, lest there be ever more to write


def _torn(old, new, seen):
    """The files that hold neither what they held nor what they will hold."""
    return [path for path in old.keys() | new.keys() | seen.keys()
            if seen.get(path) not in (old.get(path), new.get(path))
            and not (path.endswith(".ini") and _is_between(*(files.get(path) for files in (old, new, seen))))]


def _is_between(old, new, seen):
    """Whether a descriptor is on its way, which gets its keys one by one."""
    old, new, seen = (set((content or b"").split(b"\r\n")) for content in (old, new, seen))
    return old & new <= seen <= old | new


class Torture:
    def __init__(self, bench, seed):
        self._bench, self._rng = bench, random.Random(seed)
        self._author = Author(self._rng)
        self._projects, self._kept = bench.app_dir / "projets", bench.folder / "kept"
        self._boot = bench.app_dir / "index.lua"
        self.counts = Counter()

    def _look(self):
        """The files of the author and of dead programs: when they were written and what they hold."""
        paths = [*self._projects.rglob("*"), *self._bench.app_dir.glob("index.lua"),
                 *self._bench.app_dir.glob(".*")]
        return {str(path): (path.stat().st_mtime_ns, path.read_bytes()) for path in paths if path.is_file()}

    def _files(self):
        return {path: content for path, (_, content) in self._look().items() if ".questforge-" not in path}

    def _leftovers(self):
        return [path for path in self._look() if ".questforge-" in path]

    def _start_project(self):
        shutil.rmtree(self._projects, ignore_errors=True)
        self.counts["projects"] += 1
        self._project = f"Vallée {self.counts['projects']}"
        self._bench.begin_life()
        self._bench.do(press("Acc/Label2") + write("nouvprojet/Text1", self._project) + press("nouvprojet/Command1")
                       + self._author.add_variable())
        self._bench.end_life()

    def _open(self):
        """Begins a life with the project open."""
        before, leftovers = self._look(), self._leftovers()
        self._bench.begin_life()
        self._bench.do(press("Acc/Label3") + press("openp/Dir1", LAST) + press("openp/Dir1", LAST, pause=SHORT)
                       + press("openp/Command1") + press("mapeditor/Frame2"))
        if self._look() != {path: seen for path, seen in before.items() if path not in leftovers}:
            raise Missed(f"opening a project changes no file but sweeps {leftovers}, all of them")

    def _states(self, deeds):
        """The files before and after each deed of a life that nothing disturbs, from which they come back."""
        self._boot.unlink(missing_ok=True)
        self._open()
        shutil.rmtree(self._kept, ignore_errors=True)
        shutil.copytree(self._projects, self._kept)
        states = [self._files()]
        for deed in deeds:
            self._bench.do(deed)
            states.append(self._files())
        self._bench.end_life()
        return states

    def _bring_back(self):
        self._boot.unlink(missing_ok=True)
        shutil.rmtree(self._projects)
        shutil.copytree(self._kept, self._projects)

    def kill_at_work(self):
        deeds = [self._author.any_deed() for _ in range(self._rng.randrange(1, 7))]
        states = self._states(deeds)
        self._bring_back()
        self._open()
        how = "killed at a call" if self._rng.random() < 0.7 else "killed at a moment"
        self.counts[how] += 1
        if how == "killed at a call":
            self._bench.faults.strike(self._rng.randrange(1, 60))
        self._bench.begin(deeds)
        if how == "killed at a moment" or self._bench.finish():  # which may be after the work
            time.sleep(self._rng.random() ** 2 * 0.1)
        self._bench.faults.spare()
        self._bench.end_life()
        self._bench.finish()
        self.counts["killed within a write"] += len(self._leftovers())
        self._check(states, self._bench.done)

    def _check(self, states, finished):
        """The files must be those at or between two states, and so many deeds done at least."""
        pairs = zip(states[finished:], [*states[finished + 1:], states[-1]])
        torn = [_torn(old, new, self._files()) for old, new in pairs]
        if all(torn):
            raise Missed(f"{finished} deeds are done and all is whole (torn are {torn[0]})")

    def fail_at_every_call(self, kind):
        """A call of a click fails, or all from it on: nothing is torn or told, and the next click saves all."""
        click, next_click = self._author.name(), self._author.paint()
        before, clicked, saved = self._states([click, next_click])
        for call in itertools.count(1):
            self._bring_back()
            self._open()
            self._bench.faults.strike(call, kind)
            self._bench.do(click)
            struck = self._bench.faults.spare()
            torn, left = _torn(before, clicked, self._files()), self._leftovers()
            if torn or left:
                raise Missed(f"a failure at call {call} tears and leaves nothing (there are {torn} and {left})")
            self._bench.do(next_click)
            if self._files() != saved:
                raise Missed(f"the next click saves everything after a failure at call {call}")
            self._bench.end_life()
            if not struck:
                return
            self.counts["failing calls"] += 1

    def run(self, count):
        for i in range(count):
            if i % LIVES_OF_A_PROJECT == 0:
                self._start_project()
            self.kill_at_work()
        for kind in (FAIL_ONE, FAIL_ALL):
            self.fail_at_every_call(kind)


def main(app_dir, plugins, library, count="1000", seed="1"):
    started = time.monotonic()
    with Bench(app_dir, plugins, library) as bench:
        torture = Torture(bench, int(seed))
        try:
            torture.run(int(count))
        except (Missed, OSError) as failure:
            print(f"With seed {seed}, after {dict(torture.counts)}, this did not hold: {failure}", file=sys.stderr)
            print(bench.log(), end="", file=sys.stderr)
            return 1
    print(f"{count} lives ended in {time.monotonic() - started:.0f} s, and all was whole: {dict(torture.counts)}")
    return 0


if __name__ == "__main__":
    if not 4 <= len(sys.argv) <= 6:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
