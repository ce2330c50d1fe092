"""The hero's thirteen pictures and the people that stand on tiles."""

from PIL import Image

from palette import BARK, BLUE, GOLD, HAIR, INK, PLUM, RED, SKIN, STONE, WHITE
from people_rows import (BACK_HEAD, BACK_TORSO, BACK_TORSO_STEP, FRONT_HEAD, FRONT_LEGS,
                         FRONT_LEGS_STEP, FRONT_TORSO, FRONT_TORSO_STEP, SIDE_HEAD,
                         SIDE_LEGS, SIDE_LEGS_FAR, SIDE_LEGS_NEAR, SIDE_TORSO,
                         SIDE_TORSO_BACK, SIDE_TORSO_FORTH)
from pixels import TILE, blank, mirror, stamp

HERO = {
    "o": INK, "d": HAIR[1], "h": HAIR[2], "H": HAIR[3], "s": SKIN[2], "S": SKIN[1],
    "e": INK, "w": WHITE, "m": SKIN[0], "q": RED[1], "r": RED[2], "R": RED[3],
    "c": GOLD[3], "C": GOLD[2], "y": GOLD[2], "b": BLUE[2], "B": BLUE[1],
    "k": BARK[1], "K": BARK[3],
}
LIGHT_SIDE = str.maketrans("RqbB", "qRBb")


def figure(head, torso, legs, lift=0, colours=None):
    """Puts three blocks of rows together on one transparent tile."""
    image = blank()
    stamp(image, head + torso + legs, colours or HERO, 5, 2 - lift)
    return image


def other_step(rows):
    """The mirrored step, with the light still falling from the left."""
    return [row.translate(LIGHT_SIDE) for row in mirror(rows)]


def hero():
    """The hero's pictures by file name without its ending."""
    pictures = {}
    for name, head, torso, step in (
            ("face", FRONT_HEAD, FRONT_TORSO, FRONT_TORSO_STEP),
            ("dos", BACK_HEAD, BACK_TORSO, BACK_TORSO_STEP)):
        pictures[name + "1"] = figure(head, torso, FRONT_LEGS)
        pictures[name + "2"] = figure(head, step, FRONT_LEGS_STEP, 1)
        pictures[name + "3"] = figure(
            head, other_step(step), other_step(FRONT_LEGS_STEP), 1)
    pictures["droite1"] = figure(SIDE_HEAD, SIDE_TORSO, SIDE_LEGS)
    pictures["droite2"] = figure(SIDE_HEAD, SIDE_TORSO_FORTH, SIDE_LEGS_NEAR, 1)
    pictures["droite3"] = figure(SIDE_HEAD, SIDE_TORSO_BACK, SIDE_LEGS_FAR, 1)
    for step in "123":
        right = pictures["droite" + step]
        pictures["gauche" + step] = right.transpose(Image.FLIP_LEFT_RIGHT)
    pictures["mort"] = fallen()
    return pictures


def fallen():
    """The hero on the ground, eyes shut: the standing figure turned over."""
    shut = str.maketrans("we", "ss")
    head = [row.translate(shut) for row in FRONT_HEAD]
    head[10] = FRONT_HEAD[10].replace("e", "d")
    standing = figure(head, FRONT_TORSO, FRONT_LEGS)
    turned = standing.transpose(Image.ROTATE_90).crop((1, 0, 29, 28))
    image = Image.new("RGBA", TILE, (0, 0, 0, 0))
    image.paste(turned, (0, 4))
    return image


def villager():
    """A woman of the village in a blue dress and a white apron."""
    colours = dict(HERO, d=GOLD[0], h=GOLD[1], H=GOLD[2], q=BLUE[1], r=BLUE[2],
                   R=BLUE[3], c=WHITE, C=STONE[4], y=WHITE, a=WHITE, A=STONE[5])
    dress = [
        "....oRaaaaaaqo....",
        "...oRraaaaaarqo...",
        "...oRrAaaaaArqo...",
        "..oRrrAaaaaArrqo..",
        "..oRrrrAAAArrrqo..",
        "..oqqqqqqqqqqqqo..",
        "...oooooooooooo...",
    ]
    head = FRONT_HEAD[:11] + [
        ".ohdSsssmmsssSdho.",
        ".ohdoSssssssSodho.",
    ]
    torso = [".ohoocCccccCcooho."] + FRONT_TORSO[1:5]
    return figure(head, torso, ["..oooRaaaaaaqooo.."] + dress, 0, colours)


def shopkeeper():
    """A stout man with a moustache, whose lower half a counter hides."""
    colours = dict(HERO, d=STONE[1], h=STONE[2], H=STONE[3], q=PLUM[1], r=PLUM[2],
                   R=PLUM[3], c=WHITE, C=STONE[4], y=WHITE, a=WHITE)
    head = list(FRONT_HEAD)
    head[0:6] = [
        "......oooooo......",
        "....oossssssoo....",
        "...osswwsssssso...",
        "..osswwssssssSso..",
        "..ossssssssssSSo..",
        ".odssssssssssssdo.",
    ]
    head[6] = ".ohsdddssssdddsho."
    head[7] = ".ohssssssssssssho."
    head[8] = ".ohssessssssessho."
    head[11] = "..osshhHHHHhhsso.."
    head[12] = "...ohhdmmmmdhho..."
    return figure(head, FRONT_TORSO, [], 0, colours)


def hermit():
    """An old hermit of the caves, hooded."""
    colours = dict(HERO, d=PLUM[0], h=PLUM[1], H=PLUM[2], q=PLUM[0], r=PLUM[1],
                   R=PLUM[2], c=STONE[5], C=STONE[4], y=GOLD[2], b=PLUM[1])
    head = list(FRONT_HEAD)
    head[4:13] = [
        ".ohhhhdddddddhhho.",
        ".ohhdddooooodddho.",
        ".ohhdooSSSSoooddo.",
        ".ohdoSSSSSSSSodho.",
        ".ohdoccSSSSccodho.",
        ".ohdoweSSSSweodho.",
        ".ohdoeeSssSeeodho.",
        "..ohdoccccccodho..",
        "..oohdcccccCdhoo..",
    ]
    torso = [
        "..oRhoccccccoqqo..",
        ".oRrrdoccccodrqqo.",
        ".oRrordoccodrqqqo.",
        ".oRrorrdoCdrqoqqo.",
        ".ossoyyyyyyyyosso.",
    ]
    robe = ["..oooRrrrrrrqooo..", "...oRrrrqrrrrqo...", "...oRrrrqrrrrqo...",
            "..oRrrrrqrrrrrqo..", "..oRrrrqqqrrrrqo..", "..oqqqqqqqqqqqqo..",
            "...oooooooooooo..."]
    return figure(head, torso, robe, 0, colours)
