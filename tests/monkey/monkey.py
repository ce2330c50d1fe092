#!/usr/bin/python3
"""Lets a random user loose in the program and tells what came of it.

Usage: monkey.py APPDIR PLUGINS LOGS STEPS SEED [long]

APPDIR is the runnable folder: a copy of it is used, without an author's projects and with a player that ends
at once. PLUGINS is the folder that holds the random user and its witness. LOGS receives one line per step
and what the program said. The same seed repeats the same steps. The exit code is 0 when the program neither
crashed nor wrote where it should not, nor, in the long form, kept its user waiting or held on to memory.
"""

import hashlib
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

STUCK_AFTER = 60  # seconds without a step
ROUNDS, ROUND_STEPS = 7, 400  # the first round fills what the toolkit keeps for good
MEMORY_GROWTH = 1.05


def _contents(folder, left_out=()):
    """The files below a folder and what they hold."""
    return {str(path): hashlib.sha256(path.read_bytes()).hexdigest()
            for path in sorted(folder.rglob("*"))
            if path.is_file() and not any(path.is_relative_to(out) for out in left_out)}


class Stage:
    """A copy of the program, and beside it what must stay as it is."""

    def __init__(self, source, plugins, logs):
        self._plugins, self.logs = plugins, logs
        self.folder = Path(tempfile.mkdtemp(prefix="monkey-"))
        self._app_dir, self._whole = self.folder / "Questforge", self.folder / "whole"
        shutil.copytree(source, self._whole, ignore=shutil.ignore_patterns("projets", "index.lua"))
        shutil.copyfile("/bin/true", self._whole / "luaplayer.exe")
        shutil.copytree(self._whole, self._app_dir)
        for place in ("home", "outside"):
            (self.folder / place).mkdir(mode=0o700)
        (self.folder / "outside/projet.ini").write_bytes(b"[Jeu]\r\nnom=../../outside\r\ncartes=1\r\n")
        self.is_sanitized = b"__asan_init" in (self._app_dir / "questforge").read_bytes()
        self._before = self._untouchable()

    def _untouchable(self):
        # What the random user itself spoils is the open project's neighbour: data, the player and the projects.
        spoilt = [self._app_dir / name for name in ("projets", "index.lua", "data", "luaplayer.exe")]
        return _contents(self.folder, spoilt)

    def changed(self):
        """Files outside of the projects that are not what they were."""
        now = self._untouchable()
        return sorted(path for path in now.keys() | self._before.keys() if now.get(path) != self._before.get(path))

    def start(self, orders):
        keep = ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")
        environment = {name: os.environ[name] for name in keep if name in os.environ}
        asan = environment.get("ASAN_OPTIONS", "")
        environment |= {"HOME": str(self.folder / "home"), "XDG_RUNTIME_DIR": str(self.folder / "home"),
                        "LANG": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen", "QT_PLUGIN_PATH": str(self._plugins),
                        "LD_PRELOAD": str(self._plugins / "witness.so"),
                        "ASAN_OPTIONS": f"{asan}:verify_asan_link_order=0:intercept_tls_get_addr=0",
                        "QT_QPA_GENERIC_PLUGINS": f"monkey:{orders};{self.steps_log};{self._whole}"}
        with open(self.logs / "program.log", "a") as log:
            return subprocess.Popen([self._app_dir / "questforge"], env=environment, cwd="/", stdout=log, stderr=log)

    @property
    def steps_log(self):
        return self.logs / "steps.log"


class Campaign:
    """Starts the program again and again until all steps are done."""

    def __init__(self, stage, seed):
        self._stage, self._seed = stage, seed
        self.findings, self.starts = [], 0

    def _lines(self):
        log = self._stage.steps_log
        return log.read_text(errors="replace").splitlines() if log.exists() else []

    def _await_end(self, program):
        """The exit code; None for a program that made no step for long and was killed."""
        size = -1
        while True:
            try:
                return program.wait(STUCK_AFTER)
            except subprocess.TimeoutExpired:
                before, size = size, self._stage.steps_log.stat().st_size
                if before == size:
                    program.kill()
                    program.wait()
                    return None

    def run(self, first, last, rounds=0):
        """One life of the program. Answers the lines that it wrote."""
        seen = len(self._lines())
        self.starts += 1
        code = self._await_end(self._stage.start(f"{self._seed};{first};{last};{rounds}"))
        lines = self._lines()[seen:]
        self.findings += [line for line in lines if line.startswith("!")]
        if code != 0:
            what = "is stuck" if code is None else f"ended with {code}"
            self.findings.append("\n    ".join([f"the program {what} after", *lines[-8:]]))
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


def main(app_dir, plugins, logs, steps, seed, form=""):
    logs = Path(logs).resolve()
    shutil.rmtree(logs, ignore_errors=True)
    logs.mkdir(parents=True)
    stage = Stage(Path(app_dir), Path(plugins).resolve(), logs)
    try:
        campaign = Campaign(stage, int(seed))
        campaign.perform(int(steps))
        if form == "long" and not stage.is_sanitized:
            campaign.measure_memory()
        findings = campaign.findings + [f"changed: {path}" for path in stage.changed()]
    finally:
        shutil.rmtree(stage.folder, ignore_errors=True)
    if form != "long" or stage.is_sanitized:  # no place to judge speed
        findings = [finding for finding in findings if " hung for " not in finding]
    print(f"{steps} steps of seed {seed} in {campaign.starts} starts, {len(findings)} findings; log: {stage.steps_log}")
    print(*findings, sep="\n", end="\n" if findings else "")
    return 1 if findings else 0


if __name__ == "__main__":
    if len(sys.argv) not in (6, 7):
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
