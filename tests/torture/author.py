"""An author at random: each deed is a list of orders to the hands in the program."""

GRID, FRAME, PANEL = "mapeditor/CarteImg", "mapeditor/Frame2", "mapeditor/Frame6"
LEFT, LONG, SHORT = 1, 1000, 50  # the button, and pauses in ms
LAST = -2  # row of a list
COLUMNS, ROWS = 17, 8
MODES = ("Picture", "Blocks", "Event")


def press(path, row=-1, x=0.5, y=0.5, pause=LONG):
    """row: of a list, if any. x, y: from 0 to 1, of it or the whole control."""
    return [("reach", path), ("push", path, row, x, y, LEFT, pause), ("release", LEFT)]


def write(path, text):
    return [("set", path, "text", text)]


def slide(path, value):
    return [("set", path, "value", value)]


def answer(text):
    return write("box/QLineEdit", text) + press("box/QPushButton")


class Author:
    def __init__(self, rng):
        self._rng = rng

    def _text(self, letters, longest):
        return "".join(self._rng.choices(letters, k=self._rng.randrange(longest)))

    def _click_cell(self, mode):
        x, y = (self._rng.randrange(count) for count in (COLUMNS, ROWS))
        return press(f"{FRAME}/Option1_{MODES.index(mode)}") + press(GRID, -1, (x + 0.5) / COLUMNS, (y + 0.5) / ROWS)

    def paint(self):
        return slide(f"{FRAME}/Frame5/Choixtext", self._rng.randrange(1, 5)) + self._click_cell("Picture")

    def block(self):
        return self._click_cell("Blocks")

    def name(self):
        return write(f"{FRAME}/Text1", self._text("abcéîœ €'[]=;", 30)) + self.block()

    def event(self):
        orders = self._click_cell("Event")
        for _ in range(self._rng.randrange(1, 4)):
            orders += press(f"{PANEL}/Command8") + answer(self._text("abé\"\\ 1", self._rng.choice((2, 20, 2000))))
        return orders + press(f"{PANEL}/Command2")

    def add_map(self):
        return press("mapeditor/Command4") + press("mapeditor/Frame3/Command5")

    def change_tileset(self):
        return (press(f"{FRAME}/Command11") + slide("mapeditor/Frame4/HScroll2", self._rng.randrange(1, 4))
                + press("mapeditor/Frame4/Command14"))

    def empty_map(self):
        return press(f"{FRAME}/Command10") + press("box/QPushButton")

    def add_variable(self):
        return press("Controlpanel/Label9_1") + press("var/Command1") + answer(self._text("aé0", 40))

    def change_variable(self):
        return press("Controlpanel/Label9_1") + press("var/List1", LAST) + answer(self._text("bç1", 40))

    def test_game(self):
        return press("Controlpanel/Label9_3")

    def any_deed(self):
        often = (self.paint, self.block, self.event, self.name, self.add_variable, self.change_variable)
        seldom = (self.add_map, self.change_tileset, self.test_game, self.empty_map)
        return self._rng.choice(often * 2 + seldom)()
