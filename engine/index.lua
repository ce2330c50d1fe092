-- Entry of the game: loads the other scripts, then goes from the title to the game and back
-- until the player of the game quits.
--
-- The scripts keep to what Lua 5.0 and 5.1 have in common, so that a game runs on either.
-- Everything of the engine hangs on one table: the lines of an event live among the same
-- globals, and may call theirs what they like.

jeu = {}

dofile("ram.lua")
dofile("map.lua")
dofile("menustart.lua")

jeu.run()
