#!/usr/bin/python3
"""Kills the program at work, again and again, and looks at what it leaves of an author's files.

Usage: torture.py APPDIR PLUGINS FAULTS [COUNT [SEED]]

APPDIR is the runnable folder, of which a copy is used. PLUGINS is the folder of toolkit plugins that holds the
hand, FAULTS the library that strikes at calls. COUNT lives are killed: at a call that writes, or at any moment.
After each, the files must be what the first so many writes of the author's deeds make of them, and no write of
a deed that was finished may be missing. Then the project is opened again, which may change no file and must
sweep away what the killed program left. In more lives each call of some clicks fails. The exit code is 0 when
all held, else 1 and a line that names what did not.
"""

import os
import random
import re
import shutil
import signal
import sys
import time
from collections import Counter

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "tour"))

from author import Author
from bench import FAIL_ALL, FAIL_ONE, Bench
from project import ansi
from waiting import Missed

LEFTOVER = re.compile(r"(.*/)?\.questforge-[1-9][0-9]*-[1-9][0-9]*\.tmp")
LIVES_OF_A_PROJECT = 30  # then there is another, lest there be ever more to write


def _short(content):
    return content if content is None or len(content) < 200 else content[:100] + b"..." + content[-100:]


class Torture:
    def __init__(self, bench, seed):
        self._bench, self._rng = bench, random.Random(seed)
        self._data = bench.app_dir / "data"
        self._project = None
        self.counts = Counter()

    def _paths(self):
        root = self._bench.app_dir
        for folder, _, names in os.walk(root / "projets"):
            yield from (os.path.relpath(os.path.join(folder, name), root) for name in names)
        yield from (name for name in os.listdir(root) if name == "index.lua" or LEFTOVER.fullmatch(name))

    def _files(self):
        return {path: (self._bench.app_dir / path).read_bytes() for path in self._paths()
                if not LEFTOVER.fullmatch(path)}

    def _stamps(self):
        return {path: (self._bench.app_dir / path).stat().st_mtime_ns for path in self._paths()
                if not LEFTOVER.fullmatch(path)}

    def _leftovers(self):
        return [path for path in self._paths() if LEFTOVER.fullmatch(path)]

    def _begin(self):
        return self._bench.begin_life(cold=self._rng.random() < 0.02)

    def _open(self):
        """Begins a life with the project open; answers it and an author who works there."""
        before, stamps = self._files(), self._stamps()
        self.counts["leftovers swept"] += len(self._leftovers())
        life = self._begin()
        life.do("press", "Acc/Label3")
        rows = [line["text"].strip() for line in life.program.look("openp/Dir1").lines]
        life.do("twice", "openp/Dir1", rows.index(self._project))
        life.do("press", "openp/Command1")
        caption = life.program.look("Controlpanel/Label5").caption
        if caption != self._project or life.program.shows("QMessageBox"):
            raise Missed(f"{self._project} opens (the control panel shows {caption})")
        if (self._files(), self._stamps()) != (before, stamps):
            raise Missed("opening a project changes no file")
        if self._leftovers():
            raise Missed(f"nothing is left once a project is open (there are {self._leftovers()})")
        return life, Author(life, self._rng, self._project, before, self._data)

    def _create(self, name, call=None):
        """Makes a project, undisturbed or killed at a call."""
        life = self._begin()
        life.do("press", "Acc/Label2")
        life.do("set", "nouvprojet/Text1", name)
        if call:
            self._bench.faults.strike(call)
        life.tell("press", "nouvprojet/=Create!")
        life.finish()
        self._bench.faults.spare()
        self._bench.end_life()

    def _start_project(self):
        if self._project:
            shutil.rmtree(self._folder(self._project))
        self.counts["projects"] += 1
        self._project = f"Vallée {self.counts['projects']}"
        self._create(self._project)
        self._new = {path: content for path, content in self._files().items() if path != "index.lua"}

    def _folder(self, project):
        return self._bench.app_dir / "projets" / project

    def _check(self, before, author, done):
        """The files must be the old ones after the first so many writes: those of finished deeds at least."""
        seen, state = self._files(), dict(before)
        finished = max((i for i, (_, _, deed) in enumerate(author.writes, start=1) if deed in done), default=0)
        nearest = None
        for i in range(len(author.writes) + 1):
            if i > 0:
                state[author.writes[i - 1][0]] = author.writes[i - 1][1]
            wrong = {path for path in seen.keys() | state.keys() if seen.get(path) != state.get(path)}
            if i >= finished and not wrong:
                return
            if i >= finished and (nearest is None or len(wrong) < len(nearest[1])):
                nearest = i, {path: (_short(seen.get(path)), _short(state.get(path))) for path in wrong}
        raise Missed(f"the files are those after {finished} or more of {len(author.writes)} writes (nearest are those "
                     f"after {nearest[0]}, but for these, which should hold the second: {nearest[1]})")

    def kill_at_work(self):
        life, author = self._open()
        before = self._files()
        for _ in range(self._rng.randrange(1, 7)):
            author.do_something()
        if self._rng.random() < 0.7:
            self._bench.faults.strike(self._rng.randrange(1, 60))
            survived = life.finish()
            self.counts["killed after the work" if survived else "killed at a call"] += 1
        else:
            life.go()
            time.sleep(self._rng.random() ** 2 * 0.1)
            self.counts["killed at a moment"] += 1
        self._bench.faults.spare()
        self._bench.end_life()
        life.finish()
        self.counts["killed within a write"] += len(self._leftovers())
        self._check(before, author, life.done)

    def kill_at_creation(self):
        """What there is of the new project must be whole."""
        before = self._files()
        name = "Désert"
        self._create(name, self._rng.randrange(1, 200))
        self.counts["killed at creation"] += 1
        seen = self._files()
        made = {path: seen.pop(path) for path in list(seen) if path.startswith(f"projets/{name}/")}
        if seen != before:
            raise Missed("making a project changes no other")
        for path, content in made.items():
            first = self._new[path.replace(name, self._project)].replace(ansi(self._project), ansi(name))
            if content != first and not (path.endswith("projet.ini") and first.startswith(content)):
                raise Missed(f"{path} is whole when the program is killed at the creation (it holds {_short(content)})")
        self.counts["killed within a write"] += len(self._leftovers())
        shutil.rmtree(self._folder(name), ignore_errors=True)

    def fail_at(self, call, kind):
        """A call of a click fails, or all from it on: nothing is torn or told, and the next click saves all."""
        life, author = self._open()
        before = self._files()
        self._bench.faults.strike(call, kind)
        author.name()
        if not life.finish():
            raise Missed("a failing call leaves the program alive")
        self.counts["failing calls"] += self._bench.faults.struck()
        self._bench.faults.spare()
        seen = self._files()
        for path, content in seen.items():
            if content not in [before.get(path), *(new for written, new, _ in author.writes if written == path)]:
                raise Missed(f"{path} is whole after a failure at call {call} (it holds {_short(content)})")
        if self._leftovers() or life.program.shows("QMessageBox"):
            raise Missed(f"a failure at call {call} leaves and shows nothing (there are {self._leftovers()})")
        author.paint()
        life.finish()
        state = before | {path: content for path, content, _ in author.writes}
        if self._files() != state:
            raise Missed(f"the next click saves everything after a failure at call {call}")
        self._bench.end_life()

    def run(self, count):
        for i in range(count):
            if i % LIVES_OF_A_PROJECT == 0:
                self._start_project()
            if self._rng.random() < 0.05:
                self.kill_at_creation()
            else:
                self.kill_at_work()
        for kind in (FAIL_ONE, FAIL_ALL):
            for call in range(1, 16):
                self.fail_at(call, kind)


def main(app_dir, plugins, faults, count="1000", seed="1"):
    started = time.monotonic()
    with Bench(app_dir, plugins, faults) as bench:
        torture = Torture(bench, int(seed))
        try:
            torture.run(int(count))
        except (Missed, OSError) as failure:
            print(f"With seed {seed}, after {dict(torture.counts)}, this did not hold: {failure}", file=sys.stderr)
            print(bench.log(), end="", file=sys.stderr)
            return 1
    killed = sum(torture.counts[how] for how in torture.counts if how.startswith("killed a"))
    print(f"{killed} lives ended in {time.monotonic() - started:.0f} s, and every file was whole: {dict(torture.counts)}")
    return 0


def stop(number, _frame):
    raise Missed(f"the torture comes to its end (signal {number})")


if __name__ == "__main__":
    for reason in (signal.SIGTERM, signal.SIGINT):
        signal.signal(reason, stop)
    if not 4 <= len(sys.argv) <= 6:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
