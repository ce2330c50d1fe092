#!/usr/bin/python3
"""Checks the documentation page: its links, its pictures, and that it tells all that the sources offer.

Usage: check_page.py SOURCES. Prints what is wrong; the exit code is 0 when nothing is.
"""

import re
import sys
from html.parser import HTMLParser
from pathlib import Path

from PIL import Image

LARGEST_SUM = 1_500_000  # bytes of all pictures
LOADING = {"src", "href", "poster", "data", "action", "background"}


def candidates(srcset):
    """The pictures of a choice, each with the scale that it is meant for."""
    words = [candidate.split() for candidate in srcset.split(",") if candidate.strip()]
    return [(path, int(scale[0].removesuffix("x")) if scale else 1) for path, *scale in words]


class Page(HTMLParser):
    """What a page consists of."""

    def __init__(self, markup):
        super().__init__()
        self.ids, self.targets, self.images, self.headings, self.texts = [], [], [], [], []
        self._headed = False
        self._choice = []
        self.feed(markup)

    @property
    def text(self):
        """What is read, with one blank wherever the markup has any."""
        return re.sub(r"\s+", " ", "".join(self.texts))

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        self.ids += [attrs["id"]] if "id" in attrs else []
        self.targets += [value for name, value in attrs.items() if name in LOADING]
        self._choice += candidates(attrs.get("srcset") or "")
        if tag == "img":
            self.images.append(attrs | {"choice": self._choice})
            self.targets += [path for path, _ in self._choice]
            self._choice = []
        self._headed = re.fullmatch("h[1-6]", tag)
        if self._headed:
            self.headings.append((int(tag[1]), attrs.get("id"), []))

    def handle_endtag(self, tag):
        self._headed = self._headed and not re.fullmatch("h[1-6]", tag)

    def handle_data(self, data):
        self.texts.append(data)
        if self._headed:
            self.headings[-1][2].append(data)


def check_links(page, doc):
    """Links stay in the page or lead to files beside it; nothing is loaded from elsewhere."""
    for name in sorted({name for name in page.ids if page.ids.count(name) > 1}):
        yield f"the id {name} is there twice"
    for target in page.targets:
        if target.startswith("#"):
            if target[1:] not in page.ids:
                yield f"a link leads to {target}, which is not there"
        elif not re.fullmatch(r"[\w./-]+", target) or not (doc / target).is_file():
            yield f"{target} is no file beside the page"


def check_style(markup):
    if re.search(r"url\(|@import|<script|<link|<iframe", markup):
        yield "the page loads something"


def check_headings(page):
    """No level is left out; what the reader may look for is in the table of contents."""
    before = 0
    for level, name, pieces in page.headings:
        title = "".join(pieces)
        if level > before + 1:
            yield f"the heading {title} is too low"
        if level in (2, 3) and title != "projet.ini" and f"#{name}" not in page.targets:
            yield f"no link leads to the heading {title}"
        before = level


def size_of(path):
    with Image.open(path) as picture:
        return picture.size


def check_sizes(image, doc):
    """A picture has the size that the page tells, each that may stand for it the same at its scale."""
    for name, scale in [(image.get("src", ""), 1), *image["choice"]]:
        told = [int(image.get(side) or 0) * scale for side in ("width", "height")]
        if (doc / name).is_file() and told != list(size_of(doc / name)):
            yield f"{name} has the size {size_of(doc / name)}, not {told}"


def check_pictures(page, doc):
    shown = {name for image in page.images for name in (image.get("src", ""), *dict(image["choice"]))}
    kept = {path.relative_to(doc).as_posix() for path in (doc / "pictures").rglob("*") if path.is_file()}
    for name in sorted(kept - shown):
        yield f"{name} is shown nowhere"
    if sum((doc / name).stat().st_size for name in kept) > LARGEST_SUM:
        yield "the pictures are too large"
    for image in page.images:
        if not image.get("alt"):
            yield f"{image.get('src')} has no words for who does not see it"
        yield from check_sizes(image, doc)


def unescaped(literal):
    return literal.replace('\\"', '"').replace("\\\\", "\\")


def pieces_of(sources, file, pattern):
    """Pieces of a source file that the page must hold."""
    found = re.findall(pattern, (sources / file).read_text(encoding="utf-8"))
    return [unescaped(piece) for piece in found] or [f"(anything of {file})"]


def check_content(page, sources):
    """The page names each command, each piece of the lines that they write, and each call of the player."""
    text = page.text
    for caption in pieces_of(sources, "src/events/eventpanel_layout.cpp", r'command\("\w+"_L1, u"([^"]+)"'):
        if caption not in text:
            yield f"the command {caption} is not told"
    for piece in pieces_of(sources, "src/events/eventlines.cpp", r'[{ ]"((?:[^"\\]|\\.)+)"(?=[,}_;])'):
        if piece not in text:
            yield f"no line of an event with {piece!r} is shown"
    for file in ("images", "screen", "controls", "colors", "timers", "system"):
        for call in pieces_of(sources, f"player/lua_{file}.cpp", r'\{"(\w+)", guarded<'):
            if not re.search(rf"\b{call}\b", text):
                yield f"the call {call} of lua_{file}.cpp is not told"
    for script in pieces_of(sources, "src/project/creation.cpp", r'"(\w+\.lua)"'):
        if script not in text:
            yield f"the file {script} is not told"


def main(sources):
    doc = sources / "Doc"
    markup = (doc / "index.html").read_text(encoding="utf-8")
    page = Page(markup)
    faults = [*check_links(page, doc), *check_style(markup), *check_headings(page), *check_pictures(page, doc),
              *check_content(page, sources)]
    print("\n".join(faults) or "The page is sound.")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
