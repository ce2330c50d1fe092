#!/usr/bin/python3
"""Lets a random user loose in the program and tells what came of it.

Usage: monkey.py APPDIR PLUGINS LIBRARY LOGS STEPS SEED [long]

APPDIR is the runnable folder: a copy of it is used, without an author's projects and with a player that ends
at once. PLUGINS is the folder that holds the random user, LIBRARY tells it of writes. LOGS receives one line
per step. The same seed repeats the same steps. The exit code is 0 when the program neither crashed nor wrote
where it should not, nor, in the long form, kept its user waiting or held on to memory.
"""

import os
import re
import signal
import sys
from pathlib import Path

TESTS = Path(__file__).resolve().parent.parent
sys.path += [str(TESTS / "tour"), str(TESTS / "torture")]

from offscreen import Offscreen

ROUNDS, ROUND_STEPS = 7, 400  # the first round fills what the toolkit keeps for good
MEMORY_GROWTH = 1.05


class Campaign:
    """Starts the program again and again until all steps are done."""

    def __init__(self, room, data, steps_log, seed):
        self._room, self._data, self._log, self._seed = room, data, steps_log, seed
        self.findings, self.starts = [], 0

    def _lines(self):
        return self._log.read_text(errors="replace").splitlines()

    def run(self, first, last, rounds=0):
        """One life of the program. Answers the lines that it wrote."""
        seen = len(self._lines())
        self.starts += 1
        asan = os.environ.get("ASAN_OPTIONS", "")
        self._room.start(f"monkey:{self._seed};{first};{last};{rounds};{self._log};{self._data}",
                         ASAN_OPTIONS=f"{asan}:verify_asan_link_order=0:intercept_tls_get_addr=0")
        code = self._room.program.wait()
        lines = self._lines()[seen:]
        self.findings += [line for line in lines if line.startswith("!")]
        if code != 0:
            what = "was stuck" if code == -signal.SIGALRM else f"ended with {code}"
            self.findings.append("\n    ".join([f"the program {what} after", *lines[-8:], self._room.log()]))
        return lines

    def perform(self, steps):
        done = 0
        while done < steps:
            numbers = [int(found[0]) for line in self.run(done + 1, steps)
                       if (found := re.findall(r"^(?:! )?(\d+) ", line))]
            if not numbers or max(numbers) <= done:
                self.findings.append(f"the program made no step after step {done}")
                return
            done = max(numbers)

    def measure_memory(self):
        """What is held once all views are closed must not grow from round to round of the same steps."""
        lines = self.run(1, ROUND_STEPS, ROUNDS)
        held = [int(line.split()[-2]) for line in lines if re.search(r"round \d+ ends with \d+ KB$", line)]
        print("Held after each round of the same steps, in KB:", *held)
        if len(held) < ROUNDS or held[-1] > held[1] * MEMORY_GROWTH:
            self.findings.append(f"memory grows from round to round: {held} KB")


def main(app_dir, plugins, library, logs, steps, seed, form=""):
    steps_log = Path(logs).resolve() / "steps.log"
    steps_log.parent.mkdir(parents=True, exist_ok=True)
    steps_log.write_text("")
    is_sanitized = b"__asan_init" in Path(app_dir, "questforge").read_bytes()
    with Offscreen(app_dir, plugins, Path(library).resolve()) as room:
        (room.folder / "outside").mkdir()  # where a name may lead that should not
        (room.folder / "outside/projet.ini").write_bytes(b"[Jeu]\r\nnom=../../outside\r\ncartes=1\r\n")
        campaign = Campaign(room, Path(app_dir, "data").resolve(), steps_log, int(seed))
        campaign.perform(int(steps))
        if form == "long" and not is_sanitized:
            campaign.measure_memory()
    findings = campaign.findings
    if form != "long" or is_sanitized:  # no place to judge speed
        findings = [finding for finding in findings if " hung for " not in finding]
    print(f"{steps} steps of seed {seed} in {campaign.starts} starts, {len(findings)} findings; log: {steps_log}")
    print(*findings, sep="\n", end="\n" if findings else "")
    return 1 if findings else 0


if __name__ == "__main__":
    if len(sys.argv) not in (7, 8):
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
