"""What is handed on: that it is sound, that it starts, and that the starter never costs an author a game."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tour"))

from stage import open_display
from waiting import wait_for

SOURCES, APP, MAKE_SAMPLE = (Path(argument).resolve() for argument in sys.argv[1:4])
WORK = Path(tempfile.mkdtemp(prefix="package-"))
PACKAGED, ARCHIVED, DEB = WORK / "out", WORK / "archive", WORK / "deb"
SAMPLE = "projets/A Letter for the Moon/projet.ini"


def said(*command, **settings):
    """Runs a command; answers how it ended and all that it said."""
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, **settings)
    return done.returncode, done.stdout


def write(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text)


def setUpModule():
    """Packages the build as an author left it, with work that must not be handed on."""
    app = WORK / "app"
    shutil.copytree(APP, app)
    for name in ("projets/Mine/projet.ini", "index.lua", "data/images/mine.png"):
        write(app / name, "mine")
    result, words = said(SOURCES / "packaging/make", app, MAKE_SAMPLE, PACKAGED)
    if result != 0:
        raise RuntimeError(words)
    ARCHIVED.mkdir()
    archive = next(PACKAGED.glob("*.tar.xz"))
    subprocess.run(["tar", "-xf", archive, "-C", ARCHIVED, "--strip-components=1"], check=True)
    subprocess.run(["dpkg-deb", "-x", next(PACKAGED.glob("*.deb")), DEB], check=True)


def tearDownModule():
    shutil.rmtree(WORK)


def files_of(folder):
    """Names and contents of the files below a folder, but for what the starter remembers."""
    return {str(path.relative_to(folder)): path.read_bytes() for path in folder.rglob("*")
            if path.is_file() and ".package" not in path.parts}


class Handed(unittest.TestCase):
    def test_TheCheckersFindNothing(self):
        share = DEB / "usr/share"
        for command in (("lintian", "--fail-on", "error,warning", next(PACKAGED.glob("*.deb"))),
                        ("desktop-file-validate", *share.glob("applications/*")),
                        ("appstreamcli", "validate", "--no-net", *share.glob("metainfo/*")),
                        ("man", "--warnings", "-l", *share.glob("man/man1/*"))):
            result, words = said(*command, env={**os.environ, "MANPAGER": "cat", "MAN_KEEP_STDERR": "1"})
            self.assertEqual(result, 0, words)
            self.assertNotRegex(words, "(?m)^(W:|E:|<standard input>:)")

    def test_BothHoldAllThatIsShippedAndNothingOfTheAuthor(self):
        shipped = {str(path.relative_to(SOURCES)) for kind in ("data", "Doc")
                   for path in (SOURCES / kind).rglob("*") if path.is_file()}
        shipped |= {f"data/ftg{name}.dat" for name in ("i", "ms", "r", "m", "ev", "mma", "mev")}
        for folder in (ARCHIVED, DEB / "usr/share/questforge"):
            held = files_of(folder)
            inside = {name for name in held if name.startswith(("data/", "Doc/"))}
            self.assertEqual(inside, shipped)
            self.assertIn(SAMPLE, held)
            self.assertNotIn(b"mine", held.values())

    def test_EveryNeededPackageIsNamedWithItsLicence(self):
        named = next(line for line in (ARCHIVED / "README.txt").read_text().splitlines() if "apt install" in line)
        for name in ("libqt6widgets6", "libsdl2-2.0-0", "liblua5.1-0", "fonts-liberation2"):
            self.assertIn(f" {name}", named)
            self.assertIn(b"opyright", (ARCHIVED / "licences" / f"{name}.txt").read_bytes())


class Started(unittest.TestCase):
    def check_window(self, command, home, **settings):
        """Starts a command, which must show the program's window, and ends it."""
        environment = {"PATH": os.environ["PATH"], "LANG": "C.UTF-8", "DISPLAY": os.environ["DISPLAY"],
                       "HOME": str(home), "XDG_RUNTIME_DIR": str(home), "QT_QPA_PLATFORM": "xcb"}
        program = subprocess.Popen([command], env=environment | settings, cwd="/", stderr=subprocess.DEVNULL)
        search = ("xdotool", "search", "--onlyvisible", "--all", "--pid", program.pid, "--name", "^Questforge 3$")
        try:
            wait_for(f"{command} shows its window", lambda: said(*search)[0] == 0)
        finally:
            program.kill()
            program.wait()

    def test_BothShowTheirWindowAndThePackageLaysOutTheFolder(self):
        server = open_display()
        self.addCleanup(server.wait)
        self.addCleanup(server.kill)
        home = WORK / "home"
        home.mkdir()
        self.check_window(ARCHIVED / "questforge", WORK)
        self.check_window(DEB / "usr/bin/questforge", home, QUESTFORGE_PREFIX=str(DEB / "usr"))
        self.assertIn(SAMPLE, files_of(home / "Questforge"))


# Stands before a tool of the system: at its call of the given number it kills the starter and all its children.
FATAL = """#!/bin/sh
echo >>"$0.calls"
[ "$(wc -l <"$0.calls")" != {call} ] || {{ {before}; kill -KILL 0; }}
exec /bin/{tool} "$@"
"""
# A copy that is broken off: what came with it, wherever it lies, is cut short.
CUT = '/bin/cp "$@"; grep -rlZ new "$HOME/Questforge" | xargs -0 truncate -s 1'


def kills(first):
    """Tool, number of its call, what happens before the kill. The last two renamed are the program and the stamp."""
    last = 8 if first else 7
    moves = [("mv", call, "true") for call in (1, 2, last - 2, last - 1, last)]
    return [("cp", 1, "true"), ("cp", 1, CUT), ("sync", 1, "true"), *moves]


class Starter(unittest.TestCase):
    """With small files in place of the real ones, and a program that only tells that it was started."""

    def setUp(self):
        self.place = Path(tempfile.mkdtemp(dir=WORK))
        self.prefix, self.home = self.place / "usr", self.place / "home"
        self.folder = self.home / "Questforge"
        self.home.mkdir()
        self.release("old")

    def release(self, version):
        """Puts a version of the package where the starter looks; every file of it tells the version."""
        for name in ("lib/questforge/questforge", "lib/questforge/luaplayer.exe"):
            write(self.prefix / name, f"#!/bin/sh\necho {version} runs\n")
            (self.prefix / name).chmod(0o755)
        for name in ("data/one.dat", "data/images/two.png", "data/images/a b.png", "Doc/index.html",
                     "projets/Sample/projet.ini"):
            write(self.prefix / "share/questforge" / name, version)
        write(self.prefix / "lib/questforge/version", version)

    def start(self, tools=None):
        path = f"{tools}:/usr/bin:/bin" if tools else "/usr/bin:/bin"
        environment = {"PATH": path, "HOME": str(self.home), "QUESTFORGE_PREFIX": str(self.prefix)}
        return said(DEB / "usr/bin/questforge", env=environment, start_new_session=True)

    def shadow(self, tool, script):
        """A folder whose tool of that name is the script."""
        folder = Path(tempfile.mkdtemp(dir=self.place))
        write(folder / tool, script)
        (folder / tool).chmod(0o755)
        return folder

    def work(self):
        """What an author does: a game, a change and a removal below projets, a picture beside the shipped ones."""
        write(self.folder / "projets/Mine/projet.ini", "mine")
        write(self.folder / "projets/Sample/added.map", "mine")
        (self.folder / "projets/Sample/projet.ini").unlink()
        write(self.folder / "data/images/mine.png", "mine")

    def files(self):
        """The files of the package as they lie in an author's folder, the games left out."""
        return {name: held for name, held in files_of(self.folder).items()
                if not name.startswith("projets/") and held.decode() != "mine"}

    def check_renewed(self, games):
        self.assertEqual(self.start(), (0, "new runs\n"))
        self.assertTrue(all(b"new" in held for held in self.files().values()))
        self.assertEqual(files_of(self.folder / "projets"), games)

    def test_AnUpgradeRenewsAllButTheGames(self):
        self.assertEqual(self.start(), (0, "old runs\n"))
        self.assertEqual(files_of(self.folder)["projets/Sample/projet.ini"], b"old")
        self.work()
        write(self.folder / "data/one.dat", "changed")
        games = files_of(self.folder / "projets")
        self.assertEqual(self.start(), (0, "old runs\n"))
        self.assertEqual((self.folder / "data/one.dat").read_text(), "changed", "no upgrade, no renewal")
        self.release("new")
        self.check_renewed(games)
        self.assertEqual((self.folder / "data/images/mine.png").read_text(), "mine")

    def test_WhatIsMissingFromTheFolderComesBackButNotTheSample(self):
        self.start()
        shutil.rmtree(self.folder / "projets")
        (self.folder / "luaplayer.exe").unlink()
        self.start()
        self.assertTrue((self.folder / "luaplayer.exe").exists())
        self.assertFalse((self.folder / "projets").exists())

    def test_AKillLeavesWholeFilesAndTheNextStartFinishes(self):
        for first in (True, False):
            for tool, call, before in kills(first):
                with self.subTest(first=first, tool=tool, call=call, before=before):
                    shutil.rmtree(self.folder, ignore_errors=True)
                    self.release("old")
                    if not first:
                        self.start()
                        self.work()
                    games = files_of(self.folder / "projets")
                    self.release("new")
                    script = FATAL.format(call=call, before=before, tool=tool)
                    self.assertEqual(self.start(self.shadow(tool, script))[0], -9)
                    self.check_whole(first)
                    self.check_renewed({"Sample/projet.ini": b"new"} if first else games)
                    self.assertFalse((self.folder / ".package/fresh").exists())

    def check_whole(self, first):
        programs = [f"#!/bin/sh\necho {version} runs\n".encode() for version in ("old", "new")]
        for name, held in self.files().items():
            self.assertIn(held, [b"old", b"new", *programs], name)
        if not first:
            self.assertIn(said(self.folder / "questforge")[1], ("old runs\n", "new runs\n"))

    def test_AFailureIsSaidAndAnOlderProgramStarts(self):
        failing = self.shadow("cp", "#!/bin/sh\nexit 1\n")
        result, words = self.start(failing)
        self.assertEqual((result, "could not be made" in words), (1, True), words)
        self.start()
        self.release("new")
        result, words = self.start(failing)
        self.assertEqual((result, "could not be renewed" in words, "old runs" in words), (0, True, True), words)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
