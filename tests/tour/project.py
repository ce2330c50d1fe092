"""The files of the project that the tour makes, and what they should hold."""

from contextlib import contextmanager

from waiting import Missed, wait_for

COLUMNS, ROWS = 17, 8


def ansi(text):
    """A text as the project's files hold it."""
    return text.encode("cp1252")


def crlf(*lines):
    """Lines with their line ends, as bytes."""
    return ansi("".join(line + "\r\n" for line in lines))


def _state_of(folder):
    """What is below a folder, when it was written and what it holds."""
    return {str(path.relative_to(folder)): (path.stat().st_mtime_ns, path.is_file() and path.read_bytes())
            for path in folder.rglob("*")}


@contextmanager
def untouched(folder, what):
    """Used with `with`: nothing below the folder may be written meanwhile, not even as it was."""
    before = _state_of(folder)
    yield
    after = _state_of(folder)
    written = sorted(path for path in before.keys() | after.keys() if before.get(path) != after.get(path))
    if written:
        raise Missed(f"{what} writes nothing (it wrote {written})")


class Project:
    def __init__(self, app_dir, name):
        self.folder = app_dir / "projets" / name

    def bytes_of(self, path):
        """The content of a file of the project; None when it is missing."""
        try:
            return (self.folder / path).read_bytes()
        except OSError:
            return None

    def await_bytes(self, path, content):
        """Waits until a file of the project holds exactly these bytes."""
        try:
            wait_for("", lambda: self.bytes_of(path) == content)
        except Missed:
            raise Missed(f"{path} holds {content!r} (it holds {self.bytes_of(path)!r})") from None

    def setting(self, section, key):
        """A value of the project's descriptor; None when it is missing."""
        here, value = False, None
        for line in (self.bytes_of("projet.ini") or b"").decode("cp1252").splitlines():
            if line.startswith("["):
                here = line == f"[{section}]"
            elif here and line.startswith(key + "="):
                value = line[len(key) + 1:]
        return value

    def await_setting(self, section, key, value):
        """Waits until the descriptor holds a value."""
        try:
            wait_for("", lambda: self.setting(section, key) == value)
        except Missed:
            seen = self.setting(section, key)
            raise Missed(f"projet.ini has {key}={value} in [{section}] (it has {seen})") from None


class Map:
    """What the files of a map should hold: its rows of tile codes and of block flags, and the hero's start.

    Cells are (row, column), counted from 1.
    """

    def __init__(self, project, number):
        self._project, self.number = project, number
        head, *rows = project.bytes_of(f"map{number}.map").decode("ascii").splitlines()
        self.start = (int(head[2:4]), int(head[:2]))
        self._codes = [list(row) for row in rows[:ROWS]]
        flags = project.bytes_of(f"map{number}.ev").decode("ascii").splitlines()
        self._flags = [list(row) for row in flags[:ROWS]]

    def code(self, cell):
        return int(self._codes[cell[0] - 1][cell[1] - 1])

    def set_code(self, cell, code):
        self._codes[cell[0] - 1][cell[1] - 1] = str(code)

    def block(self, cell):
        self._flags[cell[0] - 1][cell[1] - 1] = "1"

    def other_code(self, cells):
        """The first code above 0 that none of the cells has."""
        used = {self.code(cell) for cell in cells}
        return next(code for code in range(1, 10) if code not in used)

    def free_cells(self):
        """The cells without a block, row by row."""
        return [(row, column) for row in range(1, ROWS + 1) for column in range(1, COLUMNS + 1)
                if self._flags[row - 1][column - 1] == "0"]

    def free_run(self, length):
        """Neighbouring cells of a row, from left to right, on which the hero may walk."""
        for row, flags in enumerate(self._flags[1:], start=2):
            at = "".join(flags).find("0" * length)
            if at >= 0:
                return [(row, at + 1 + step) for step in range(length)]
        raise Missed(f"the new map has {length} free cells in a row")

    def dead_end(self):
        """Two neighbouring free cells below row 2, and the blocked one at their right."""
        for row, flags in enumerate(self._flags[2:], start=3):
            at = "".join(flags).find("001")
            if at >= 0:
                return [(row, at + 1), (row, at + 2), (row, at + 3)]
        raise Missed("the new map has a way that ends at a block")

    def await_saved(self):
        """Waits until both files hold what they should, byte for byte."""
        row, column = self.start
        codes = ["".join(row) for row in self._codes]
        flags = ["".join(row) for row in self._flags]
        self._project.await_bytes(f"map{self.number}.ev", crlf(*flags, "", ""))
        self._project.await_bytes(f"map{self.number}.map", crlf(f"{column:02}{row:02}", *codes, "", ""))
