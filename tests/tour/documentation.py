"""The pictures of the documentation page: those that the tour and the looks take for it, in few colours."""

import re

from PIL import Image

import looks
from waiting import require

_COLORS = 256


def _names(folder):
    return {path.relative_to(folder).as_posix() for path in folder.rglob("*.png")}


def check_names(taken, doc):
    """The page's pictures must be those that the tour takes and the looks, no more and no less."""
    odd = (_names(taken) | looks.names()) ^ _names(doc / "pictures")
    require(not odd, f"the documentation holds the tour's pictures (out/tour --documentation; {sorted(odd)})")


def renew(taken, doc):
    """Replaces the pictures of the page, and the sizes that it gives for them."""
    page = (doc / "index.html").read_text(encoding="utf-8")
    for old in _names(doc / "pictures"):
        (doc / "pictures" / old).unlink()
    for name in sorted(_names(taken)):
        with Image.open(taken / name) as picture:
            few = picture.convert("RGB").quantize(_COLORS, kmeans=1, dither=Image.Dither.NONE)
        target = doc / "pictures" / name
        target.parent.mkdir(exist_ok=True)
        few.save(target, optimize=True)
        page = re.sub(rf'(src="pictures/{re.escape(name)}") width="\d*" height="\d*"',
                      rf'\1 width="{few.width}" height="{few.height}"', page)
    (doc / "index.html").write_text(page, encoding="utf-8", newline="\n")
