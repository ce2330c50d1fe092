"""The colours that every picture of the game and of the editor shares.

A ramp runs from dark to light, so that shading is an index into it.
"""


def ramp(text):
    """Turns "203040 ff0000" into a list of (red, green, blue)."""
    return [tuple(bytes.fromhex(word)) for word in text.split()]


INK = (27, 22, 38)
GRASS = ramp("35703d 458645 569a4b 69ab52 86c05c a9d46c")
LEAF = ramp("16352f 1f4d38 2f6b3f 478848 6ba650 9cc75e")
FIR = ramp("122c30 1a4239 265a44 39764d 589458 86b565")
BARK = ramp("2c1d22 4a2f2a 6d4733 926542 b78a58")
EARTH = ramp("8a6446 a67e56 bd9667 cfab79 dfc190 ecd6a8")
SAND = ramp("a08458 b99c69 c9ae79 d4bb87 dec894 ebdab0")
STONE = ramp("353545 4e5060 6d7080 8f939d b3b6ba d5d7d4")
WATER = ramp("1f3f78 2a5a97 3474b2 4a90c8 78b6de c4e6f2")
ROOF = ramp("5a2230 7f2f36 a5423d c65a45 de7d56 f0a673")
WOOD = ramp("40271f 5f3b2a 805237 9f6d46 bb8a5a d3a973")
PLASTER = ramp("8b7762 b39c7c d2bd98 e6d6b3 f3e9cf fdf8e6")
CAVE = ramp("17161f 24232f 34333f 47454f 5c5960 76716f 969087")
GLOW = ramp("17505c 22808a 3fb3ad 84e0c6 d8fbe6")
CRYSTAL = ramp("3b2a6b 5b3f9b 8560c8 b48ee6 e2cdfa")
GOLD = ramp("7a4a1f b0752a dca23c f4cb5d fdeaa0")
RED = ramp("5e1430 8e1f38 c0333c e2574a f58a6a")
BLUE = ramp("1c2550 2a3c7c 3d5aa8 5c82cc 92b4e6")
PLUM = ramp("3a2148 5a3268 82488a ac6cac d49ccb")
SKIN = ramp("a05a48 d08a66 f0b98c fbd9b0")
HAIR = ramp("3c1f22 5f3128 8a4b30 b87242 dca266")
WHITE = (255, 252, 240)
NIGHT = ramp("0d1128 141a3a 1d2750 2a386c 40528c 6b80b4 aabcdd e6eef8")
