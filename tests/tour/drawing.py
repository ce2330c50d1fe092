"""The stations in the map editor: tiles, blocks, the hero's start, maps and tilesets."""

from PIL import ImageChops, ImageStat

import picture
from project import Map
from waiting import await_value, require, wait_for

START_QUESTION = "Click the box to the starting position of the hero on this map"
MAP_NAME = "Glade of Zoé"
GRID = "mapeditor/CarteImg"
_CELL = (28, 29)
_INNER = (4, 4, _CELL[0] - 8, _CELL[1] - 8)  # of a cell; at its edge may be marks
_PLAIN_CELLS = ((3, 8), (5, 1), (6, 12), (7, 4))  # a new map has no mark there
# Where what happens in the game happens. In a new map only the sign is a block; there the way from the landing ends.
FENCE, START, TALK, LEAP = (2, 2), (2, 3), (2, 4), (2, 5)
DOOR, LANDING, SIGN = (3, 4), (3, 5), (3, 6)


def middle_of(cell):
    """The middle of a cell, in pixels from the corner of the grid."""
    row, column = cell
    return (column - 1) * _CELL[0] + _CELL[0] // 2, (row - 1) * _CELL[1] + _CELL[1] // 2


def cell_at(x, y):
    return y // _CELL[1] + 1, x // _CELL[0] + 1


def click_cell(tour, cell):
    tour.program.click(GRID, *middle_of(cell))


def _await_tile(tour, cell, tileset, code):
    """Waits until the topmost grid shows a tile in a cell."""
    path = f"data/images/terrains/terrain{tileset}/terrain0{code + 1}.JPG"
    tile = picture.part(picture.from_file(tour.stage.app_dir / path), _INNER)
    grid, (x, y) = tour.program.look(GRID).place, middle_of(cell)
    place = (grid.left + x - tile.width // 2, grid.top + y - tile.height // 2, *tile.size)

    def is_shown():
        difference = ImageChops.difference(picture.from_screen(place), tile)
        return max(ImageStat.Stat(difference).mean) < 3  # two decoders of the same picture are a shade apart

    wait_for(f"the grid shows tile {code} of tileset {tileset} on row {cell[0]}, column {cell[1]}", is_shown)


def paint_cell(tour, cell, code):
    first = tour.maps["01"]
    click_cell(tour, cell)
    first.set_code(cell, code)
    first.await_saved()
    _await_tile(tour, cell, "01", code)


def paint(tour):
    tour.maps["01"] = Map(tour.project, "01")
    chooser = "mapeditor/Frame2/Frame5/Choixtext"
    for value in (2, 3):
        tour.program.step_forward(chooser)
        await_value("the tile chooser", lambda: tour.program.look(chooser).value, value)
    for cell in (TALK, DOOR, (8, 12)):
        paint_cell(tour, cell, 2)
    tour.show("map-editor", "mapeditor")


def block(tour):
    tour.program.click("mapeditor/Frame2/=Blocks")
    click_cell(tour, FENCE)
    tour.maps["01"].block(FENCE)
    tour.maps["01"].await_saved()
    tour.show("blocks", GRID)


def place_hero(tour):
    row, column = tour.maps["01"].start = START
    tour.program.click("mapeditor/Frame2/Command9")
    tour.program.dismiss(START_QUESTION, "OK")
    click_cell(tour, START)
    tour.program.await_caption("mapeditor/Frame2/Label4", str(column))
    tour.program.await_caption("mapeditor/Frame2/Label5", str(row))


def name_map(tour):
    """The name, and with it the hero's start, is kept by the next click, which opens an event."""
    tour.program.type_into("mapeditor/Frame2/Text1", MAP_NAME)
    tour.show("configuration", "mapeditor/Frame2")
    tour.program.click("mapeditor/Frame2/=Event")
    click_cell(tour, TALK)
    tour.maps["01"].await_saved()
    tour.project.await_setting("Carte01", "nom", MAP_NAME)


def _await_second_map(tour, tileset):
    for cell in _PLAIN_CELLS:
        _await_tile(tour, cell, tileset, tour.maps["02"].code(cell))


def add_map(tour):
    program = tour.program
    program.click("mapeditor/=Main Menu")
    program.click("mapeditor/Frame3/=New Map")
    program.await_caption("mapeditor/Frame1/Label1", "02")
    tour.project.await_setting("Jeu", "cartes", "02")
    tour.maps["02"] = Map(tour.project, "02")
    _await_second_map(tour, "01")
    program.click("mapeditor/=Main Menu")
    program.click("mapeditor/Frame3/=Load map")
    program.await_usable("mapeditor/Frame1/Command1")
    tour.show("map-menus", "mapeditor/Frame3", "mapeditor/Frame1")
    program.click("mapeditor/Frame3/=Load map")
    program.click("mapeditor/Command4")
    program.await_gone("mapeditor/Frame3")


def change_tileset(tour):
    program = tour.program
    program.click("mapeditor/Frame2/Command11")
    program.await_usable("mapeditor/Frame4/Command14")
    program.step_forward("mapeditor/Frame4/HScroll2")
    tour.show("tileset", "mapeditor/Frame4")
    program.click("mapeditor/Frame4/Command14")
    program.await_gone("mapeditor/Frame4")
    tour.project.await_setting("Carte02", "texture", "02")
    sheet = (tour.stage.app_dir / "data/images/terrains/terrain02/terrain01.png").read_bytes()
    require(tour.project.bytes_of("images/map02/terrain.png") == sheet, "the tileset's picture is copied for the game")
    _await_second_map(tour, "02")
    tour.show("second-map", GRID)
