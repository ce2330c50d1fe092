"""The pictures of the documentation page: those that the tour and the looks take for it, in few colours."""

import re

from PIL import Image

import looks
from game import HEIGHT, WIDTH
from waiting import Missed

SUBFOLDER = "documentation"
_COLORS = 256


def _names(folder):
    return {path.relative_to(folder).as_posix() for path in folder.rglob("*.png")}


def check_names(taken, doc):
    """The page's pictures must be those that the tour takes and the looks, no more and no less."""
    odd = (_names(taken) | looks.names()) ^ _names(doc / "pictures")
    if odd:
        raise Missed(f"the documentation holds the pictures of the tour (out/tour --documentation; {sorted(odd)})")


def _at_own_size(picture):
    """The game fills its window with each of its pixels several times; the page needs them once."""
    factor = picture.width // WIDTH
    if factor < 2 or picture.size != (WIDTH * factor, HEIGHT * factor):
        return picture
    return picture.resize((WIDTH, HEIGHT), Image.Resampling.NEAREST)


def _write(source, target):
    with Image.open(source) as picture:
        whole = _at_own_size(picture.convert("RGB"))
    few = whole.quantize(_COLORS, kmeans=1, dither=Image.Dither.NONE)
    target.parent.mkdir(exist_ok=True)
    few.save(target, optimize=True)
    return few.size


def renew(taken, doc):
    """Replaces the pictures of the page, and the sizes that it gives for them."""
    page = (doc / "index.html").read_text(encoding="utf-8")
    for old in _names(doc / "pictures"):
        (doc / "pictures" / old).unlink()
    for name in sorted(_names(taken)):
        width, height = _write(taken / name, doc / "pictures" / name)
        page = re.sub(rf'(src="pictures/{re.escape(name)}") width="\d*" height="\d*"',
                      rf'\1 width="{width}" height="{height}"', page)
    (doc / "index.html").write_text(page, encoding="utf-8", newline="\n")
