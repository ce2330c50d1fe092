"""The files of the project that the tour makes, and what they should hold. Cells are (row, column) from 1."""

from configparser import ConfigParser
from contextlib import contextmanager

from waiting import await_value, require

COLUMNS, ROWS = 17, 8
_BYTES = ROWS * (COLUMNS + 2)  # of the cells in a file, with the ends of the lines


def _at(cell):
    return (cell[0] - 1) * (COLUMNS + 2) + cell[1] - 1


def ansi(text):
    """A text as the project's files hold it."""
    return text.encode("cp1252")


def crlf(*lines):
    """Lines with their line ends, as bytes."""
    return ansi("".join(line + "\r\n" for line in lines))


@contextmanager
def untouched(folder, what):
    """Used with `with`: nothing below the folder may be written meanwhile, not even as it was."""
    def state():
        return {(path.relative_to(folder), path.stat().st_mtime_ns, path.is_file() and path.read_bytes())
                for path in folder.rglob("*")}

    before = state()
    yield
    written = {str(path) for path, *_ in before ^ state()}
    require(not written, f"{what} writes nothing (it wrote {sorted(written)})")


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
        await_value(path, lambda: self.bytes_of(path), content)

    def await_setting(self, section, key, value):
        """Waits until the descriptor holds a value."""
        def setting():
            descriptor = ConfigParser(interpolation=None)
            descriptor.read_string((self.bytes_of("projet.ini") or b"").decode("cp1252"))
            return descriptor.get(section, key, fallback=None)

        await_value(f"{key} in [{section}]", setting, value)


class Map:
    """What the files of a map should hold: a code and a block flag for each cell, and the hero's start."""

    def __init__(self, project, number):
        self._project, self.number = project, number
        head, codes = project.bytes_of(f"map{number}.map").split(b"\r\n", 1)
        self.start = (int(head[2:]), int(head[:2]))
        self._codes = bytearray(codes[:_BYTES])
        self._flags = bytearray(project.bytes_of(f"map{number}.ev")[:_BYTES])

    def code(self, cell):
        return self._codes[_at(cell)] - ord("0")

    def set_code(self, cell, code):
        self._codes[_at(cell)] = ord("0") + code

    def block(self, cell):
        self._flags[_at(cell)] = ord("1")

    def await_saved(self):
        """Waits until both files hold what they should, byte for byte."""
        row, column = self.start
        start, end = crlf(f"{column:02}{row:02}"), crlf("", "")
        self._project.await_bytes(f"map{self.number}.ev", self._flags + end)
        self._project.await_bytes(f"map{self.number}.map", start + self._codes + end)
