"""An author at random, and what each of the deeds must write: which files, what, and in which order."""

from project import COLUMNS, ROWS, ansi, crlf

GRID, FRAME, PANEL = "mapeditor/CarteImg", "mapeditor/Frame2", "mapeditor/Frame6"


def with_key(text, section, key, value):
    """A descriptor's text with a key set in it."""
    lines = text.split(b"\r\n")[:-1]
    line, at = ansi(f"{key}={value}"), None
    for i, seen in enumerate(lines):
        if seen == ansi(f"[{section}]"):
            at = i + 1
        elif at is not None and seen.startswith(b"["):
            break
        elif at is not None and seen.startswith(ansi(key + "=")):
            return b"\r\n".join([*lines[:i], line, *lines[i + 1:], b""])
        elif at is not None:
            at = i + 1
    if at is None:
        return b"\r\n".join([*lines, ansi(f"[{section}]"), line, b""])
    return b"\r\n".join([*lines[:at], line, *lines[at:], b""])


def value_of(text, section, key):
    inside = False
    for line in text.decode("cp1252").split("\r\n"):
        if line.startswith("["):
            inside = line == f"[{section}]"
        elif inside and line.startswith(key + "="):
            return line[len(key) + 1:]
    return ""


class Author:
    """Works at one project in one life. `files` is what lies below AppDir and belongs to projects, by path;
    `writes` is what follows: (path, bytes, number of the deed after which it is done)."""

    def __init__(self, life, rng, project, files, data):
        self._life, self._rng, self._data = life, rng, data
        self._project, self._folder = project, f"projets/{project}/"
        self._files = dict(files)
        self.writes = []
        self._last_row = ""  # of the view: it is written, but never read
        self._open_map("01")

    def _open_map(self, number):
        self._map = number
        head, *rows = self._read(f"map{number}.map").decode("cp1252").split("\r\n")
        flags = self._read(f"map{number}.ev").decode("cp1252").split("\r\n")
        self._head = head
        self._codes = [list(row) for row in rows[:ROWS]]
        self._flags = [list(row) for row in flags[:ROWS]]
        self._name = value_of(self._read("projet.ini"), f"Carte{number}", "nom")

    def _read(self, path):
        return self._files.get(self._folder + path, b"")

    def _write(self, deed, path, content, folder=None):
        path = (self._folder if folder is None else folder) + path
        if self._files.get(path) != content or not path.endswith(".ini"):
            self._files[path] = content
            self.writes.append((path, content, deed))

    def _set_key(self, deed, section, key, value):
        self._write(deed, "projet.ini", with_key(self._read("projet.ini"), section, key, value))

    def _save_map(self, deed):
        self._set_key(deed, f"Carte{self._map}", "nom", self._name)
        self._write(deed, f"map{self._map}.ev", crlf(*map("".join, self._flags), self._last_row, ""))
        self._write(deed, f"map{self._map}.map", crlf(self._head, *map("".join, self._codes), self._last_row, ""))

    def _click_cell(self):
        row, column = self._rng.randrange(ROWS), self._rng.randrange(COLUMNS)
        deed = self._life.tell("press", GRID, column * 28 + 14, row * 29 + 14)
        return deed, row, column

    def paint(self):
        code = self._rng.randrange(4)
        self._life.tell("move", f"{FRAME}/Frame5/Choixtext", code + 1)
        self._life.tell("press", f"{FRAME}/=Picture")
        deed, row, column = self._click_cell()
        self._codes[row][column] = str(code)
        self._save_map(deed)

    def block(self):
        self._life.tell("press", f"{FRAME}/=Blocks")
        deed, row, column = self._click_cell()
        self._flags[row][column] = "0" if self._flags[row][column] == "1" else "1"
        self._save_map(deed)

    def name(self):
        self._name = "".join(self._rng.choices("abcéîœ €'[]=;", k=self._rng.randrange(1, 30))).strip(" '") or "x"
        self._life.tell("set", f"{FRAME}/Text1", self._name)
        self.block()

    def event(self):
        self._life.tell("press", f"{FRAME}/=Event")
        deed, row, column = self._click_cell()
        self._save_map(deed)
        path = f"ev/map{self._map}/ev{row + 1}{column + 1}"
        lines = self._read(path).split(b"\r\n")[1:-1]
        for _ in range(self._rng.randrange(1, 4)):
            text = "".join(self._rng.choices("abé\"\\ 1", k=self._rng.choice((1, 10, 2000))))
            self._life.tell("open", f"{PANEL}/=Display Text")
            self._answer(text)
            lines.append(ansi(f'affichertexte("{text}")'))
        deed = self._life.tell("press", f"{PANEL}/=Save")
        self._write(deed, path, b"".join(b"\r\n" + line for line in lines) + b"\r\n")

    def _answer(self, text):
        self._life.tell("set", "QInputDialog/QLineEdit", text)
        self._life.tell("press", "QInputDialog/=OK")

    def add_map(self):
        number = f"{int(value_of(self._read('projet.ini'), 'Jeu', 'cartes')) + 1:02}"
        self._life.tell("press", "mapeditor/=Main Menu")
        deed = self._life.tell("press", "mapeditor/Frame3/=New Map")
        sheet = (self._data / "images/terrains/terrain01/terrain01.png").read_bytes()
        self._write(deed, f"images/map{number}/terrain.png", sheet)
        self._write(deed, f"map{number}.ev", (self._data / "ftgmev.dat").read_bytes() + b"\r\n")
        self._write(deed, f"map{number}.map", (self._data / "ftgmma.dat").read_bytes() + b"\r\n")
        self._set_key(deed, f"Carte{number}", "texture", "01")
        self._set_key(deed, f"Carte{number}", "nom", "Carte 1")
        self._set_key(deed, "Jeu", "cartes", number)
        self._open_map(number)

    def change_tileset(self):
        number = self._rng.randrange(1, 4)
        self._life.tell("press", f"{FRAME}/=Change Texture")
        self._life.tell("move", "mapeditor/Frame4/HScroll2", number)
        deed = self._life.tell("press", "mapeditor/Frame4/=OK")
        sheet = (self._data / f"images/terrains/terrain{number:02}/terrain01.png").read_bytes()
        self._set_key(deed, f"Carte{self._map}", "texture", f"{number:02}")
        self._write(deed, f"images/map{self._map}/terrain.png", sheet)

    def empty_map(self):
        deed = self._life.tell("open", f"{FRAME}/=Reset the map to zero")
        self._life.tell("press", "QMessageBox/=Yes")
        self._codes = [["0"] * COLUMNS for _ in range(ROWS)]
        self._flags = [["0"] * COLUMNS for _ in range(ROWS)]
        for row in range(ROWS):
            for column in range(COLUMNS):
                self._write(deed, f"ev/map{self._map}/ev{row + 1}{column + 1}", b"\r\n")
        self._last_row = "0" * COLUMNS

    def add_variable(self):
        self._life.tell("press", "Controlpanel/Label9_1")
        number = int(value_of(self._read("projet.ini"), "Variables", "nombre")) + 1
        value = "".join(self._rng.choices("aé0", k=self._rng.randrange(40)))
        deed = self._life.tell("open", "var/Command1")
        self._answer(value)
        self._set_key(deed, f"Variable{number}", "numero", number)
        self._set_key(deed, f"Variable{number}", "valeur", value)
        self._set_key(deed, "Variables", "nombre", number)

    def change_variable(self):
        count = int(value_of(self._read("projet.ini"), "Variables", "nombre"))
        if count == 0:
            return self.add_variable()
        number = self._rng.randrange(1, count + 1)
        value = "".join(self._rng.choices("bç1", k=self._rng.randrange(40)))
        self._life.tell("press", "Controlpanel/Label9_1")
        deed = self._life.tell("pick", "var/List1", number - 1)
        self._answer(value)
        self._set_key(deed, f"Variable{number}", "valeur", value)

    def test_game(self):
        deed = self._life.tell("press", "Controlpanel/Label9_3")
        text = self._read("projet.ini")
        values = [value_of(text, f"Variable{number}", "valeur")
                  for number in range(1, int(value_of(text, "Variables", "nombre")) + 1)]
        lines = [f'var[{number}] = "{value}"' for number, value in enumerate(values, start=1)]
        self._write(deed, "variables.lua", crlf("--Variables du jeu", "var = {}", *lines, ""))
        self._write(deed, "ev.lua", self._event_script(int(value_of(text, "Jeu", "cartes"))))
        boot = crlf(f'System.currentDirectory("projets/{self._project}")', 'dofile("index.lua")')
        self._write(deed, "index.lua", boot, "")

    def _event_script(self, maps):
        script = b"function runev(colonne,ligne,map)\r\n"
        for number in range(1, maps + 1):
            script += b'if map == "%02d" then\r\n' % number
            for row in range(1, ROWS + 2):
                for column in range(1, COLUMNS + 1):
                    event = self._read(f"ev/map{number:02}/ev{row}{column}")
                    script += b"\r\n    if ligne == %d and colonne == %d then\r\n    " % (row, column)
                    script += event + b"\r\n    end\r\n\r\n"
            script += b"end\r\n"
        return script + b"\r\nend\r\n"

    def do_something(self):
        often = (self.paint, self.block, self.event, self.name, self.add_variable, self.change_variable)
        seldom = (self.add_map, self.change_tileset, self.test_game, self.empty_map)
        self._rng.choice(often * 2 + seldom)()
