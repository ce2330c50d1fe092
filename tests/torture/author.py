"""An author at random: each deed is a list of lines that tell the hand what to do."""

GRID, FRAME, PANEL = "mapeditor/CarteImg", "mapeditor/Frame2", "mapeditor/Frame6"


def line(deed, path, *words):
    return "\t".join([deed, path, *map(str, words)])


def answer(text):
    return [line("set", "QInputDialog/QLineEdit", text), line("press", "QInputDialog/=OK")]


class Author:
    def __init__(self, rng):
        self._rng = rng

    def _text(self, letters, longest):
        return "".join(self._rng.choices(letters, k=self._rng.randrange(longest)))

    def _click_cell(self, mode):
        column, row = self._rng.randrange(17), self._rng.randrange(8)
        return [line("press", f"{FRAME}/={mode}"), line("press", GRID, column * 28 + 14, row * 29 + 14)]

    def paint(self):
        return [line("move", f"{FRAME}/Frame5/Choixtext", self._rng.randrange(1, 5)), *self._click_cell("Picture")]

    def block(self):
        return self._click_cell("Blocks")

    def name(self):
        return [line("set", f"{FRAME}/Text1", self._text("abcéîœ €'[]=;", 30)), *self.block()]

    def event(self):
        lines = self._click_cell("Event")
        for _ in range(self._rng.randrange(1, 4)):
            lines.append(line("press", f"{PANEL}/=Display Text"))
            lines += answer(self._text("abé\"\\ 1", self._rng.choice((2, 20, 2000))))
        return [*lines, line("press", f"{PANEL}/=Save")]

    def add_map(self):
        return [line("press", "mapeditor/=Main Menu"), line("press", "mapeditor/Frame3/=New Map")]

    def change_tileset(self):
        return [line("press", f"{FRAME}/=Change Texture"),
                line("move", "mapeditor/Frame4/HScroll2", self._rng.randrange(1, 4)),
                line("press", "mapeditor/Frame4/=OK")]

    def empty_map(self):
        return [line("press", f"{FRAME}/=Reset the map to zero"), line("press", "QMessageBox/=Yes")]

    def add_variable(self):
        return [line("press", "Controlpanel/Label9_1"), line("press", "var/Command1"), *answer(self._text("aé0", 40))]

    def change_variable(self):
        return [line("press", "Controlpanel/Label9_1"), line("pick", "var/List1"), *answer(self._text("bç1", 40))]

    def test_game(self):
        return [line("press", "Controlpanel/Label9_3")]

    def any_deed(self):
        often = (self.paint, self.block, self.event, self.name, self.add_variable, self.change_variable)
        seldom = (self.add_map, self.change_tileset, self.test_game, self.empty_map)
        return self._rng.choice(often * 2 + seldom)()
