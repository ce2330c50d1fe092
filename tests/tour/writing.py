"""The stations that give cells their events, and the game a variable."""

from mapview import GRID, middle_of
from project import crlf, untouched
from waiting import Missed, wait_for

PANEL = "mapeditor/Frame6"
FIRST_EVENT = ['affichertexte("Zoé: my coffee is hot!")', "screen.waitVblankStart(30)",
               "hero.vie = hero.vie - 10 -- Retrait de 10 de vie au héro"]
CONDITION = ['if var[1] == "7" then', 'affichertexte("Zoé: you still have 7 coins.")', "end"]
CHANGE_OF_MAP = ['if var[1] == "9" then', 'runmap("02")', "end"]
MISTAKE = ["hero.vie = hero.vie - ten -- Retrait de ten de vie au héro"]
SIGN = ['if var[1] == "8" then', 'affichertexte("Eight coins open the gate.")', "end",
        'if var[1] ~= "8" then', 'affichertexte("The gate is open.")', "end", 'var[1] = "9"']


def leap_lines(landing):
    """The event that changes the variable and takes the hero to another cell."""
    row, column = landing
    return ['var[1] = "8"', f"hero.x = {column} -- Déplacement du héro(vertical)",
            f"hero.y = {row} -- Déplacelement du héro(horizontal)"]


class Writing:
    def __init__(self, tour):
        self._tour, self._program, self._project = tour, tour.program, tour.project

    def _command(self, caption):
        self._program.click(f"{PANEL}/={caption}")

    def _display_text(self, text, before_ok=lambda: None):
        self._command("Display Text")
        self._program.answer("Type the text! :", text, before_ok)

    def _save(self, cell, lines, number="01"):
        self._program.await_lines(f"{PANEL}/listev", lines)
        self._command("Save")
        self._program.await_gone(PANEL)
        self._project.await_bytes(f"ev/map{number}/ev{cell[0]}{cell[1]}", crlf("", *lines))

    def _await_grid_off(self):
        wait_for("the map takes no clicks meanwhile", lambda: not self._program.look(GRID).enabled)

    def _await_open(self, cell, lines):
        self._program.await_caption(f"{PANEL}/ln", str(cell[0]))
        self._program.await_caption(f"{PANEL}/co", str(cell[1]))
        self._program.await_lines(f"{PANEL}/listev", lines)
        self._await_grid_off()

    def _open(self, cell, lines):
        self._program.click("mapeditor/Frame2/=Event")
        self._program.click(GRID, *middle_of(cell))
        self._await_open(cell, lines)

    def write_event(self, cell):
        """The cell is open already."""
        self._await_open(cell, [])
        self._display_text("Zoé: my coffee is hot!", lambda: self._tour.document("input-box", "QInputDialog"))
        self._command("Pause")
        self._program.answer("Type the time frame", "30")
        self._command("Change the hero's HP")
        self._program.type_into(f"{PANEL}/Frame10/Text2", "10")
        self._tour.take_picture("event")
        self._tour.document("map", "Mainform")
        self._tour.document("hp-frame", f"{PANEL}/Frame10")
        self._program.click(f"{PANEL}/Frame10/Command22")
        self._program.await_gone(f"{PANEL}/Frame10")
        self._save(cell, FIRST_EVENT)

    def add_variable(self):
        program = self._program
        entry = program.await_usable("Controlpanel/Label9_1").place
        program.click("Controlpanel/Label9_1")
        program.click("var/Command1")
        program.answer("Taper la valeur de départ de la variable", "7")
        program.await_lines("var/List1", ["1 | Valeur de départ : 7"])
        self._project.await_setting("Variables", "nombre", "1")
        self._project.await_setting("Variable1", "valeur", "7")
        self._tour.take_picture("variables")
        self._tour.document("variables", "var")
        if program.look("Controlpanel/Label9_1").place != entry:
            raise Missed("a pressed entry of the control panel goes back to its place")
        program.press_close_button("var")
        program.await_gone("var")

    def _begin_condition(self, value, operator=0):
        program, frame = self._program, f"{PANEL}/Frame7"
        self._command("A condition")
        program.choose(f"{frame}/Combo1", 0, "Variable 1 de valeur initale : 7")
        program.choose(f"{frame}/Combo2", operator, "=!"[operator])
        program.type_into(f"{frame}/Text3", value)
        self._tour.take_picture("condition")
        if operator == 1:
            self._tour.document("condition-frame", frame)
        program.click(f"{frame}/Command3")
        program.await_gone(frame)

    def write_condition(self, cell):
        """Opens the first map again from the control panel's list, in an editor of its own."""
        program = self._program
        program.click("Controlpanel/=Menu")
        program.await_caption("Controlpanel/Label7", "02")
        program.await_lines("Controlpanel/List1", ["1Glade of Zoé", "2Carte 1"])
        self._tour.document("control-panel", "Controlpanel")
        program.click_line("Controlpanel/List1", 0, 2)
        program.await_caption("mapeditor/Frame1/Label1", "01")
        self._open(cell, FIRST_EVENT)
        self._begin_condition("7")
        self._display_text("Zoé: you still have 7 coins.")
        self._command("Close Condition")
        self._save(cell, FIRST_EVENT + CONDITION)

    def write_leap(self, cells):
        program, lines = self._program, leap_lines(cells.landing)
        self._open(cells.leap, [])
        self._command("Change a variable")
        program.await_lines(f"{PANEL}/Frame8/List1", ["Variable1"])
        self._tour.take_picture("change-of-variable")
        self._tour.document("variable-frame", f"{PANEL}/Frame8")
        self._choose_variable("8")
        program.await_lines(f"{PANEL}/listev", lines[:1])
        self._command("Change the position of hero")
        program.dismiss("Click the new position of hero", "OK", "Event")
        with untouched(self._project.folder, "the click on the hero's new position"):
            program.click(GRID, *middle_of(cells.landing))
            program.await_lines(f"{PANEL}/listev", lines)
        self._await_grid_off()
        self._tour.take_picture("new-position-of-hero")
        self._save(cells.leap, lines)

    def _choose_variable(self, value):
        self._program.click_line(f"{PANEL}/Frame8/List1", 0)
        self._program.answer("Taper la nouvelle valeur de la variable : ", value)
        self._program.await_gone(f"{PANEL}/Frame8")

    def write_sign(self, cell):
        """What is read depends on the variable, which the reading changes. "!" needs the quotes typed."""
        self._open(cell, [])
        self._begin_condition("8")
        self._display_text("Eight coins open the gate.")
        self._command("Close Condition")
        self._begin_condition('"8"', 1)
        self._display_text("The gate is open.")
        self._command("Close Condition")
        self._command("Change a variable")
        self._choose_variable("9")
        self._program.await_lines(f"{PANEL}/listev", SIGN)
        parts = ("=Lines", "listev", "=Cancel", "Command16")
        self._tour.document("event-panel", *(f"{PANEL}/{part}" for part in parts))
        self._save(cell, SIGN)

    def write_mistake(self, cell):
        """An amount that is no number, on the second map: only the game finds it."""
        self._open(cell, [])
        self._command("Change the hero's HP")
        self._program.type_into(f"{PANEL}/Frame10/Text2", "ten")
        self._program.click(f"{PANEL}/Frame10/Command22")
        self._save(cell, MISTAKE, "02")

    def write_change_of_map(self, cell):
        """The door opens once the variable has been changed."""
        self._open(cell, [])
        self._begin_condition("9")
        self._command("Change map")
        self._program.step_forward(f"{PANEL}/Frame9/HScroll3")
        self._program.await_caption(f"{PANEL}/Frame9/Label12", "02")
        self._program.await_caption(f"{PANEL}/Frame9/Label14", "Carte 1")
        self._tour.take_picture("change-of-map")
        self._tour.document("map-frame", f"{PANEL}/Frame9")
        self._program.click(f"{PANEL}/Frame9/Command21")
        self._command("Close Condition")
        self._save(cell, CHANGE_OF_MAP)
