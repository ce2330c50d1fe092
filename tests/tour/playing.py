"""The station where the game runs in its player, and does what was drawn and written."""

from game import Game
from project import ansi, crlf
from waiting import Missed, wait_for
from writing import CHANGE_OF_MAP, CONDITION, FIRST_EVENT, SIGN, leap_lines


def play_game(tour, drawing):
    tour.program.click("Controlpanel/Label9_3")
    player = wait_for("the player starts", tour.stage.players)[0]
    check_scripts(tour, drawing.cells)
    game = Game(player, tour.project)
    game.await_title()
    tour.document_game(game, "game-title")
    game.press("x")
    walk_to_talk(tour, game, drawing)
    leap(tour, game, drawing.cells.landing)
    read_sign(tour, game)
    walk_through_door(tour, game, drawing)
    make_mistake(tour, game)
    save(tour, game)
    game.ask_to_close()
    code = tour.stage.exit_code_of(player)
    if code != 0:
        raise Missed(f"the player ends with 0 (it ended with {code})")


def check_scripts(tour, cells):
    """The scripts that the test run writes before it starts the player."""
    project = tour.project
    boot = crlf(f'System.currentDirectory("projets/{project.folder.name}")', 'dofile("index.lua")')
    if (tour.stage.app_dir / "index.lua").read_bytes() != boot:
        raise Missed("the boot script leads to the project")
    project.await_bytes("variables.lua", crlf("--Variables du jeu", "var = {}", 'var[1] = "7"', ""))
    script = project.bytes_of("ev.lua")
    events = {cells.talk: FIRST_EVENT + CONDITION, cells.leap: leap_lines(cells.landing),
              cells.sign: SIGN, cells.door: CHANGE_OF_MAP}
    for cell, lines in events.items():
        head = ansi(f"    if ligne == {cell[0]} and colonne == {cell[1]} then\r\n    \r\n")
        if head + crlf(*lines) not in script:
            raise Missed(f"ev.lua holds the event of row {cell[0]}, column {cell[1]}")


def walk_to_talk(tour, game, drawing):
    """The fence holds; the next cell speaks, takes life, and knows the variable."""
    game.await_map(drawing.maps["01"])
    game.await_hero("face", drawing.cells.start)
    game.walk_against("Left", drawing.cells.start, "gauche")
    whole_life = game.life()
    tour.document_game(game, "game-map")
    game.hold("Right")
    first = game.await_text()
    game.let_go("Right")
    tour.document_game(game, "game")
    game.press("x")
    game.await_text(other_than=first)
    game.await_life(0.9, whole_life)
    tour.document_game(game, "game-condition")
    game.press("x")
    game.await_no_text()
    game.await_hero("droite", drawing.cells.talk)
    tour.document_game(game, "game-life")


def leap(tour, game, landing):
    """The next cell takes the hero to another one, where a block ends the way of the held key."""
    game.hold("Right")
    game.await_hero("droite", landing)
    game.let_go("Right")
    tour.document_game(game, "game-leap")


def read_sign(tour, game):
    """The hero looks at the sign already. It says another thing once it has been read."""
    game.press("x")
    first = game.await_text()
    tour.document_game(game, "game-sign")
    game.press("x")
    game.await_no_text()
    game.press("x")
    game.await_text(other_than=first)
    tour.document_game(game, "game-sign-again")
    game.press("x")
    game.await_no_text()


def walk_through_door(tour, game, drawing):
    """The hero comes to the second map's start."""
    second = drawing.maps["02"]
    game.press("Left")
    game.await_map(second)
    game.await_hero("gauche", second.start)
    tour.document_game(game, "game-second-map")


def make_mistake(tour, game):
    """A mistake in an event is told, and the game goes on."""
    game.hold("Right")
    game.await_text()
    game.let_go("Right")
    tour.document_game(game, "game-mistake")
    game.press("x")
    game.await_no_text()


def save(tour, game):
    """A saved game makes the title offer to go on with it."""
    game.press("Escape")
    game.await_menu()
    tour.document_game(game, "game-menu")
    game.press("Down")
    game.press("x")
    game.await_text()
    game.press("x")
    game.await_no_text()
    if not tour.project.bytes_of("sauve.txt"):
        raise Missed("the game is saved")
    game.press("Escape")
    game.await_menu()
    game.press("Up")
    game.press("x")
    game.await_title()
    tour.document_game(game, "game-continue")
