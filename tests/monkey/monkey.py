#!/usr/bin/python3
"""Lets a random user loose in the program and tells what came of it.

Usage: monkey.py APPDIR PLUGINS LIBRARY LOGS STEPS SEED [long]

APPDIR is the runnable folder: a copy of it is used, without an author's projects and with a player that ends
at once. PLUGINS is the folder that holds the user's hands, LIBRARY tells them of writes. LOGS receives one line per
step. The same seed repeats the same steps. The exit code is 0 when the program neither crashed nor wrote where
it should not, nor, in the long form, kept its user waiting or held on to memory.
"""

import os
import sys
from contextlib import suppress
from pathlib import Path
from random import Random

TESTS = Path(__file__).resolve().parent.parent
sys.path += [str(TESTS / "tour"), str(TESTS / "torture")]

from offscreen import LONGEST_DEED, Offscreen
from user import User
from vandal import Vandal

ROUNDS, ROUND_STEPS = 7, 400  # the first round fills what the toolkit keeps for good
MEMORY_GROWTH = 1.05
OPENING_SIZE = 1280, 720


class Campaign:
    """Starts the program again and again until all steps are done."""

    def __init__(self, room, data, log, seed):
        self._room, self._log, self._seed = room, log, seed
        self._vandal, self._user = Vandal(room.app_dir, data), User(room.tell)
        self.findings, self.starts, self.step, self._last_lines = [], 0, 0, []

    def _begin_life(self):
        self.starts += 1
        asan = os.environ.get("ASAN_OPTIONS", "")
        self._room.start(ASAN_OPTIONS=f"{asan}:verify_asan_link_order=0:intercept_tls_get_addr=0")

    def _ask(self, order):
        """The answer to an order; what was found before it came is noted."""
        self._room.tell(order)
        try:
            return self._room.answer()
        finally:
            self.findings += [f"{self._note(line)} after {self._last_lines[-3:-1]}"
                              for line in self._room.unasked if line.startswith("!")]
            self._room.unasked.clear()

    def _note(self, line):
        line = f"{self.step} {line}".replace("\n", " ").replace("\r", " ")
        print(line, file=self._log, flush=True)
        self._last_lines = [*self._last_lines[-7:], line]
        return line

    def _end_life(self):
        """Waits for the program's end, which has come or is asked for."""
        with suppress(ConnectionError):
            self._ask("end")
        code = self._room.program.wait(LONGEST_DEED)
        if code != 0:
            self.findings.append("\n    ".join([f"the program ended with {code} after", *self._last_lines,
                                                self._room.log()]))

    def perform(self, steps):
        """Lives on in the next start where a project without maps, or the user, ended the program."""
        self._begin_life()
        while self.step < steps:
            self.step += 1
            try:
                self._take_step(Random(f"{self._seed} {self.step}"))
            except ConnectionError:
                self._end_life()
                self._begin_life()
        self._end_life()

    def _take_step(self, rng, is_rough=True):
        scenes = self._ask("look")
        if is_rough and rng.random() < 0.03:
            self._note(f"vandal {self._vandal.spoil_something(rng, scenes['project'])}")
        elif is_rough and rng.random() < 0.0005:
            self._note("close the main window")
            self._room.tell("close", scenes["main"]["number"])
        else:
            self._note(self._user.act(rng, scenes))

    def measure_memory(self):
        """What is held once all views are closed must not grow from round to round of the same steps."""
        held = []
        self._begin_life()
        for _ in range(ROUNDS):
            self._vandal.start_over()
            self._room.tell("resize", *OPENING_SIZE)
            for self.step in range(1, ROUND_STEPS + 1):
                self._take_step(Random(f"{self._seed} {self.step}"), is_rough=False)
            quiet = 0
            while quiet < 100:  # what was put off until the event loop is idle is then done
                self._room.tell("tidy")
                scenes = self._ask("look")
                quiet = 0 if scenes["views"] or "box" in scenes or "popup" in scenes else quiet + 1
            held.append(self._ask("memory"))
        self._end_life()
        print("Held after each round of the same steps, in KB:", *held)
        if held[-1] > held[1] * MEMORY_GROWTH:
            self.findings.append(f"memory grows from round to round: {held} KB")


def main(app_dir, plugins, library, logs, steps, seed, form=""):
    path = Path(logs).resolve() / "steps.log"
    path.parent.mkdir(parents=True, exist_ok=True)
    is_sanitized = b"__asan_init" in Path(app_dir, "questforge").read_bytes()
    with Offscreen(app_dir, plugins, Path(library).resolve()) as room, open(path, "w", encoding="utf-8") as log:
        (room.folder / "outside").mkdir()  # where a name may lead that should not
        (room.folder / "outside/projet.ini").write_bytes(b"[Jeu]\r\nnom=../../outside\r\ncartes=1\r\n")
        campaign = Campaign(room, Path(app_dir, "data").resolve(), log, seed)
        try:
            campaign.perform(int(steps))
            if form == "long" and not is_sanitized:
                campaign.measure_memory()
        except Exception as failure:
            campaign.findings.append(f"the program was stuck or gone at step {campaign.step}: {failure!r}")
    findings = campaign.findings
    if form != "long" or is_sanitized:  # no place to judge speed
        findings = [finding for finding in findings if "! hung for " not in finding]
    print(f"{steps} steps of seed {seed} in {campaign.starts} starts, {len(findings)} findings; log: {path}")
    print(*findings, sep="\n", end="\n" if findings else "")
    return 1 if findings else 0


if __name__ == "__main__":
    if len(sys.argv) not in (7, 8):
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
