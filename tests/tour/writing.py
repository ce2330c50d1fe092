"""The stations that give cells their events, and the game a variable."""

from contextlib import contextmanager

from drawing import DOOR, LANDING, LEAP, SIGN, TALK, click_cell
from project import crlf

PANEL = "mapeditor/Frame6"
_FIRST_EVENT = ['affichertexte("Zoé: my coffee is hot!")', "screen.waitVblankStart(30)",
                "hero.vie = hero.vie - 10 -- Retrait de 10 de vie au héro"]
_CONDITION = ['if var[1] == "7" then', 'affichertexte("Zoé: you still have 7 coins.")', "end"]
_CHANGE_OF_MAP = ['if var[1] == "9" then', 'runmap("02")', "end"]
_MISTAKE = ["hero.vie = hero.vie - ten -- Retrait de ten de vie au héro"]
_SIGN = ['if var[1] == "8" then', 'affichertexte("Eight coins open the gate.")', "end",
         'if var[1] ~= "8" then', 'affichertexte("The gate is open.")', "end", 'var[1] = "9"']


def _command(tour, caption):
    tour.program.click(f"{PANEL}/={caption}")


@contextmanager
def _event(tour, cell, lines, before=(), number="01"):
    """Used with `with`: opens the event of a cell; in the end it must have the lines, and is saved."""
    program = tour.program
    if not program.shows(PANEL):
        program.click("mapeditor/Frame2/=Event")
        click_cell(tour, cell)
    program.await_caption(f"{PANEL}/ln", str(cell[0]))
    program.await_caption(f"{PANEL}/co", str(cell[1]))
    program.await_lines(f"{PANEL}/listev", list(before))
    yield
    program.await_lines(f"{PANEL}/listev", lines)
    _command(tour, "Save")
    program.await_gone(PANEL)
    tour.project.await_bytes(f"ev/map{number}/ev{cell[0]}{cell[1]}", crlf("", *lines))


def _display_text(tour, text):
    _command(tour, "Display Text")
    tour.program.answer("Type the text! :", text, lambda: tour.show("input-box", "QInputDialog"))


def _take_life(tour, amount):
    frame = f"{PANEL}/Frame10"
    _command(tour, "Change the hero's HP")
    tour.program.type_into(f"{frame}/Text2", amount)
    tour.show("map", "Mainform")
    tour.show("hp-frame", frame)
    tour.program.click(f"{frame}/Command22")
    tour.program.await_gone(frame)


@contextmanager
def _condition(tour, value, operator=0):
    """Used with `with`: what is written meanwhile happens only if the variable has a value, or has not."""
    program, frame = tour.program, f"{PANEL}/Frame7"
    _command(tour, "A condition")
    program.choose(f"{frame}/Combo1", 0, "Variable 1 de valeur initale : 7")
    program.choose(f"{frame}/Combo2", operator, "=!"[operator])
    program.type_into(f"{frame}/Text3", value)
    if operator == 1:
        tour.show("condition-frame", frame)
    program.click(f"{frame}/Command3")
    program.await_gone(frame)
    yield
    _command(tour, "Close Condition")


def _change_variable(tour, value):
    frame = f"{PANEL}/Frame8"
    _command(tour, "Change a variable")
    tour.show("variable-frame", frame)
    tour.program.click_line(f"{frame}/List1", 0)
    tour.program.answer("Taper la nouvelle valeur de la variable : ", value)
    tour.program.await_gone(frame)


def write_event(tour):
    """The cell is open already."""
    with _event(tour, TALK, _FIRST_EVENT):
        _display_text(tour, "Zoé: my coffee is hot!")
        _command(tour, "Pause")
        tour.program.answer("Type the time frame", "30")
        _take_life(tour, "10")


def add_variable(tour):
    program = tour.program
    program.click("Controlpanel/Label9_1")
    program.click("var/Command1")
    program.answer("Taper la valeur de départ de la variable", "7")
    program.await_lines("var/List1", ["1 | Valeur de départ : 7"])
    tour.project.await_setting("Variables", "nombre", "1")
    tour.project.await_setting("Variable1", "valeur", "7")
    tour.show("variables", "var")
    program.close("var")


def write_condition(tour):
    """Opens the first map again from the control panel's list, in an editor of its own."""
    program = tour.program
    program.click("Controlpanel/=Menu")
    program.await_caption("Controlpanel/Label7", "02")
    program.await_lines("Controlpanel/List1", ["1Glade of Zoé", "2Carte 1"])
    tour.show("control-panel", "Controlpanel")
    program.click_line("Controlpanel/List1", 0, 2)
    program.await_caption("mapeditor/Frame1/Label1", "01")
    with _event(tour, TALK, _FIRST_EVENT + _CONDITION, before=_FIRST_EVENT):
        with _condition(tour, "7"):
            _display_text(tour, "Zoé: you still have 7 coins.")


def write_leap(tour):
    """Changes the variable and takes the hero to another cell."""
    with _event(tour, LEAP, ['var[1] = "8"', "hero.x = 5 -- Déplacement du héro(vertical)",
                             "hero.y = 3 -- Déplacelement du héro(horizontal)"]):
        _change_variable(tour, "8")
        _command(tour, "Change the position of hero")
        tour.program.dismiss("Click the new position of hero", "OK")
        click_cell(tour, LANDING)


def write_sign(tour):
    """What is read depends on the variable, which the reading changes. "!" needs the quotes typed."""
    with _event(tour, SIGN, _SIGN):
        with _condition(tour, "8"):
            _display_text(tour, "Eight coins open the gate.")
        with _condition(tour, '"8"', operator=1):
            _display_text(tour, "The gate is open.")
        _change_variable(tour, "9")
        tour.program.await_lines(f"{PANEL}/listev", _SIGN)
        tour.show("event-panel", *(f"{PANEL}/{part}" for part in ("=Lines", "listev", "=Cancel", "Command16")))


def write_mistake(tour):
    """An amount that is no number, on the second map: only the game finds it."""
    row, column = tour.maps["02"].start
    with _event(tour, (row, column + 1), _MISTAKE, number="02"):
        _take_life(tour, "ten")


def write_change_of_map(tour):
    """The door opens once the variable has been changed."""
    frame = f"{PANEL}/Frame9"
    with _event(tour, DOOR, _CHANGE_OF_MAP), _condition(tour, "9"):
        _command(tour, "Change map")
        tour.program.step_forward(f"{frame}/HScroll3")
        tour.program.await_caption(f"{frame}/Label12", "02")
        tour.program.await_caption(f"{frame}/Label14", "Carte 1")
        tour.show("map-frame", frame)
        tour.program.click(f"{frame}/Command21")
