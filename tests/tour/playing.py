"""The station where the game runs in its player, and does what was drawn and written."""

import os

from drawing import LANDING, START, TALK
from game import Game
from waiting import require, wait_for


def start_game(tour):
    """Runs the game from the control panel and answers it as it begins."""
    tour.program.click("Controlpanel/Label9_3")
    game = Game(wait_for("the player starts", tour.stage.players)[0], tour.project)
    game.await_title()
    tour.show("game-title", look=game.frame)
    game.press("x")
    return game


def play_game(tour):
    game = start_game(tour)
    for part in (_walk_to_talk, _leap, _read_sign, _walk_through_door, _make_mistake, _save):
        part(tour, game)
    game.ask_to_close()
    require(os.waitpid(game.process, 0)[1] == 0, "the player ends with 0")


def _read(tour, game, name, other_than=None):
    """Awaits a text, shows it and leaves it."""
    text = game.await_text(other_than)
    tour.show(name, look=game.frame)
    game.press("x")
    return text


def _walk_to_talk(tour, game):
    """The fence holds; the next cell speaks, and knows the variable."""
    game.await_map(tour.maps["01"])
    game.await_hero("face", START)
    game.walk_against("Left", START, "gauche")
    tour.show("game-map", look=game.frame)
    with game.holding("Right"):
        game.await_text()
    first = _read(tour, game, "game")
    game.await_text(other_than=first)
    _read(tour, game, "game-condition")
    game.await_no_text()
    game.await_hero("droite", TALK)
    tour.show("game-life", look=game.frame)


def _leap(tour, game):
    """The next cell takes the hero to another one, where a block ends the way of the held key."""
    with game.holding("Right"):
        game.await_hero("droite", LANDING)
    tour.show("game-leap", look=game.frame)


def _read_sign(tour, game):
    """The hero looks at the sign already. It says another thing once it has been read."""
    game.press("x")
    first = _read(tour, game, "game-sign")
    game.await_no_text()
    game.press("x")
    _read(tour, game, "game-sign-again", other_than=first)
    game.await_no_text()


def _walk_through_door(tour, game):
    """The hero comes to the second map's start."""
    game.press("Left")
    game.await_map(tour.maps["02"])
    game.await_hero("gauche", tour.maps["02"].start)
    tour.show("game-second-map", look=game.frame)


def _make_mistake(tour, game):
    """A mistake in an event is told, and the game goes on."""
    with game.holding("Right"):
        game.await_text()
    _read(tour, game, "game-mistake")
    game.await_no_text()


def _save(tour, game):
    """A saved game makes the title offer to go on with it."""
    game.press("Escape")
    game.await_menu()
    tour.show("game-menu", look=game.frame)
    game.press("Down")
    game.press("x")
    game.await_text()
    game.press("x")
    game.await_no_text()
    require(tour.project.bytes_of("sauve.txt"), "the game is saved")
    game.press("Escape")
    game.await_menu()
    game.press("Up")
    game.press("x")
    game.await_title()
    tour.show("game-continue", look=game.frame)
