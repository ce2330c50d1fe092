"""The stations in the map editor: tiles, blocks, the hero's start, maps and tilesets."""

from types import SimpleNamespace

import picture
from mapview import CELL, GRID, middle_of
from project import Map
from waiting import Missed, wait_for

START_QUESTION = "Click the box to the starting position of the hero on this map"
MAP_NAME = "Glade of Zoé"
WHITE = (255, 255, 255)
_INNER = (4, 4, CELL[0] - 8, CELL[1] - 8)  # of a cell; at its edge may be marks


class Drawing:
    def __init__(self, tour):
        self._tour, self._program, self._project = tour, tour.program, tour.project
        self.maps = {}
        self.cells = None  # where what happens in the game happens

    def click_cell(self, cell):
        self._program.click(GRID, *middle_of(cell))

    def _seen(self, cell):
        row, column = cell
        left, top = self._program.look(GRID).place[:2]
        return picture.from_screen((left + (column - 1) * CELL[0], top + (row - 1) * CELL[1], *CELL)).part(*_INNER)

    def await_tile(self, cell, tileset, code):
        """Waits until the topmost grid shows a tile in a cell."""
        path = f"data/images/terrains/terrain{tileset}/terrain0{code + 1}.JPG"
        tile = picture.from_file(self._tour.stage.app_dir / path).part(*_INNER)
        # Two decoders of the same picture are a shade apart.
        wait_for(f"the grid shows tile {code} of tileset {tileset} on row {cell[0]}, column {cell[1]}",
                 lambda: self._seen(cell).difference(tile) < 3)

    def _await_grid(self, model, tileset):
        """Looks at some cells of a whole map; marks of blocks and of the start stand over the tile."""
        for cell in model.free_cells()[::20]:
            if cell != model.start:
                self.await_tile(cell, tileset, model.code(cell))

    def _choose_tile(self, code):
        path = "mapeditor/Frame2/Frame5/Choixtext"
        for value in range(2, code + 2):
            self._program.step_forward(path)
            wait_for(f"the tile chooser goes to {value}", lambda: self._program.look(path).value == value)

    def paint(self):
        first = self.maps["01"] = Map(self._project, "01")
        fence, start, talk, leap = first.free_run(4)
        door, landing, sign = first.dead_end()
        self.cells = SimpleNamespace(fence=fence, start=start, talk=talk, leap=leap, landing=landing, door=door,
                                     sign=sign)
        painted = [talk, door, first.free_cells()[-1]]
        code = first.other_code(painted)
        self._choose_tile(code)
        for cell in painted:
            self.click_cell(cell)
            first.set_code(cell, code)
            first.await_saved()
            self.await_tile(cell, "01", code)
        self._tour.take_picture("painted-map")
        self._tour.document("map-editor", "mapeditor")

    def block(self):
        fence = self.cells.fence
        before = self._seen(fence).count(WHITE)
        self._program.click("mapeditor/Frame2/=Blocks")
        self.click_cell(fence)
        self.maps["01"].block(fence)
        self.maps["01"].await_saved()
        wait_for("the blocked cell bears its mark", lambda: self._seen(fence).count(WHITE) > before + 4)
        self._tour.document("blocks", GRID)

    def place_hero(self):
        row, column = self.maps["01"].start = self.cells.start
        self._program.click("mapeditor/Frame2/Command9")
        self._program.dismiss(START_QUESTION, "OK")
        self.click_cell(self.cells.start)
        self._program.await_caption("mapeditor/Frame2/Label4", str(column))
        self._program.await_caption("mapeditor/Frame2/Label5", str(row))

    def name_map(self):
        """The name, and with it the hero's start, is kept by the next click, which opens an event."""
        self._program.type_into("mapeditor/Frame2/Text1", MAP_NAME)
        self._tour.take_picture("blocks-start-and-name")
        self._tour.document("configuration", "mapeditor/Frame2")
        self._program.click("mapeditor/Frame2/=Event")
        self.click_cell(self.cells.talk)
        self.maps["01"].await_saved()
        self._project.await_setting("Carte01", "nom", MAP_NAME)

    def add_map(self):
        self._program.click("mapeditor/=Main Menu")
        self._program.click("mapeditor/Frame3/=New Map")
        self._program.await_caption("mapeditor/Frame1/Label1", "02")
        self._project.await_setting("Jeu", "cartes", "02")
        second = self.maps["02"] = Map(self._project, "02")
        self._await_grid(second, "01")
        row, column = second.start
        self.cells.mistake = (row, column + 1)
        self._look_at_menus()

    def _look_at_menus(self):
        """The menu's frames come and go with their buttons."""
        program = self._program
        program.click("mapeditor/=Main Menu")
        program.click("mapeditor/Frame3/=Load map")
        program.await_usable("mapeditor/Frame1/Command1")
        self._tour.document("map-menus", "mapeditor/Frame3", "mapeditor/Frame1")
        program.click("mapeditor/Frame3/=Load map")
        program.click("mapeditor/Command4")
        program.await_gone("mapeditor/Frame1")
        program.await_gone("mapeditor/Frame3")

    def change_tileset(self):
        self._program.click("mapeditor/Frame2/Command11")
        self._program.await_usable("mapeditor/Frame4/Command14")
        self._program.step_forward("mapeditor/Frame4/HScroll2")
        self._tour.take_picture("tileset")
        self._tour.document("tileset", "mapeditor/Frame4")
        self._program.click("mapeditor/Frame4/Command14")
        self._program.await_gone("mapeditor/Frame4")
        self._project.await_setting("Carte02", "texture", "02")
        sheet = self._tour.stage.app_dir / "data/images/terrains/terrain02/terrain01.png"
        if self._project.bytes_of("images/map02/terrain.png") != sheet.read_bytes():
            raise Missed("the tileset's picture is copied for the game")
        self._await_grid(self.maps["02"], "02")
        self._tour.take_picture("second-map")
        self._tour.document("second-map", GRID)
