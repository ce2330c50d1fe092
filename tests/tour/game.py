"""The running game as its player sees it: the window of 480 x 272 pixels, whatever its enlargement."""

import subprocess
import time

import picture
from closing import ask_to_close
from program import Place, focus, xdotool
from project import COLUMNS, ROWS
from waiting import Missed, wait_for

WIDTH, HEIGHT = 480, 272
TILE = (28, 29)
MAP_LEFT, MAP_TOP = 2, 36
LIFE_RED = (186, 48, 56)
TALK_BOX = (8, 180)
MENU = (120, 56)
LETTERS = (255, 255, 255)


def _corner(cell):
    row, column = cell
    return MAP_LEFT + (column - 1) * TILE[0], MAP_TOP + (row - 1) * TILE[1]


class Game:
    def __init__(self, player, project):
        self._images = project.folder / "images"
        found = wait_for("the player opens its window", lambda: self._windows_of(player))
        self._window = int(found[-1])
        focus(self._window)
        self.place = self._find_place()

    @staticmethod
    def _windows_of(player):
        try:
            return xdotool("search", "--onlyvisible", "--pid", player).split()
        except subprocess.CalledProcessError:
            return []  # none yet

    def _find_place(self):
        lines = xdotool("getwindowgeometry", "--shell", self._window).splitlines()
        values = dict(line.split("=") for line in lines)
        return Place(*(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT")))

    def frame(self):
        """The picture of the game at this moment, at its own size."""
        return picture.from_screen(self.place).reduced(self.place.width // WIDTH)

    def _await_frame(self, what, shown):
        wait_for(f"the game shows {what}", lambda: shown(self.frame()))

    def hold(self, key):
        xdotool("keydown", key)

    def let_go(self, key):
        xdotool("keyup", key)

    def press(self, key):
        """Presses a key as long as a person does: for some frames of the game."""
        self.hold(key)
        time.sleep(0.1)
        self.let_go(key)

    def ask_to_close(self):
        ask_to_close(self._window)

    def await_title(self):
        """Waits for the title picture, over which the name and the entries of the menu stand."""
        title = picture.from_file(self._images / "System" / "menuprinc.png")

        def shown(frame):
            return 0.9 < frame.share_of(title) < 1

        self._await_frame("its title with a menu", shown)

    def await_menu(self):
        """Waits for the panel of the menu in the game, over which its entries stand."""
        panel = picture.from_file(self._images / "System" / "menuingame.png")

        def shown(frame):
            return 0.8 < frame.part(*MENU, panel.width, panel.height).share_of(panel) < 1

        self._await_frame("its menu", shown)

    def await_map(self, model):
        """Waits until all cells of a map show their tiles; the hero may stand on two of them."""
        sheet = picture.from_file(self._images / f"map{model.number}" / "terrain.png")
        tiles = [sheet.part(code * TILE[0], 0, *TILE) for code in range(10)]
        cells = [(row, column) for row in range(1, ROWS + 1) for column in range(1, COLUMNS + 1)]

        def shown(frame):
            wrong = [cell for cell in cells
                     if frame.part(*_corner(cell), *TILE).data != tiles[model.code(cell)].data]
            return len(wrong) <= 2

        self._await_frame(f"map {model.number}", shown)

    def _hero_stands(self, frame, cell, side):
        hero = picture.from_file(self._images / "personnages" / "hero" / f"{side}1.png")
        return frame.part(*_corner(cell), *TILE).share_of(hero) == 1

    def await_hero(self, side, cell):
        """Waits until the hero stands on a cell, turned to a side."""
        wait_for(f"the hero stands, seen as {side}1, on row {cell[0]}, column {cell[1]}",
                 lambda: self._hero_stands(self.frame(), cell, side))

    def walk_against(self, key, cell, side):
        """Holds a key for longer than a step takes; the hero must turn and stay on the cell."""
        self.hold(key)
        self.await_hero(side, cell)
        time.sleep(0.6)
        stayed = self._hero_stands(self.frame(), cell, side)
        self.let_go(key)
        if not stayed:
            raise Missed(f"a blocked cell stops the hero on row {cell[0]}, column {cell[1]}")

    def _text(self, frame):
        """The talk box as it is shown, without what is drawn at its foot; None while there is none."""
        box = picture.from_file(self._images / "System" / "parler.png")
        seen = frame.part(*TALK_BOX, box.width, box.height)
        if seen.share_of(box) < 0.8:
            return None
        inner = (10, 10, box.width - 20, 60)
        letters = seen.part(*inner)
        return letters if letters.count(LETTERS) > box.part(*inner).count(LETTERS) + 50 else None

    def await_text(self, other_than=None):
        """Waits for a talk box with letters in it, and answers them as a picture."""
        def shown():
            text = self._text(self.frame())
            return text and (other_than is None or text.data != other_than.data) and text

        return wait_for("the game shows a text", shown)

    def await_no_text(self):
        self._await_frame("no text any more", lambda frame: self._text(frame) is None)

    def life(self):
        """How many pixels long the bar of life is."""
        frame = self.frame()
        return max(frame.part(0, y, WIDTH, 1).count(LIFE_RED) for y in range(MAP_TOP))

    def await_life(self, share, whole):
        """Waits until the bar shows a share, 0 to 1, of a bar so many pixels long."""
        wait_for(f"the bar of life shows {share} of {whole} pixels",
                 lambda: abs(self.life() - share * whole) <= 1)
