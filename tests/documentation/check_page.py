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


class Page(HTMLParser):
    """What a page consists of: its elements with their attributes, and its text with one blank for many."""

    def __init__(self, markup):
        super().__init__()
        self.elements, self._texts = [], []
        self.feed(markup)
        self.text = re.sub(r"\s+", " ", "".join(self._texts))

    def handle_starttag(self, tag, attrs):
        self.elements.append((tag, {name: value or "" for name, value in attrs}))

    def handle_data(self, data):
        self._texts.append(data)

    def values(self, *names):
        return [value for _, attrs in self.elements for name, value in attrs.items() if name in names]

    def pictures(self):
        """The paths of all pictures: a choice names several, each with a scale or without."""
        choices = ",".join(self.values("srcset")).split(",")
        return {*self.values("src"), *(choice.split()[0] for choice in choices if choice.strip())}


def check_links(page, doc):
    """Links stay in the page or lead to files beside it; nothing is loaded from elsewhere."""
    ids = page.values("id")
    for target in [*page.values(*LOADING), *page.pictures()]:
        if target.startswith("#"):
            if ids.count(target[1:]) != 1:
                yield f"a link leads to {target}, which is not there once"
        elif not re.fullmatch(r"[\w./-]+", target) or not (doc / target).is_file():
            yield f"{target} is no file beside the page"


def check_headings(page):
    """What the reader may look for is in the table of contents."""
    for tag, attrs in page.elements:
        name = attrs.get("id")
        if tag in ("h2", "h3") and name != "ini" and f"#{name}" not in page.values("href"):
            yield f"no link leads to the heading {name}"


def check_pictures(page, doc):
    """Each has words and its size, and each file is shown."""
    for tag, attrs in page.elements:
        if tag == "img":
            name, told = attrs["src"], (attrs.get("width"), attrs.get("height"))
            if not attrs.get("alt"):
                yield f"{name} has no words for who does not see it"
            if (doc / name).is_file() and told != (size := tuple(map(str, Image.open(doc / name).size))):
                yield f"{name} has the size {size}, not {told}"
    kept = {path.relative_to(doc).as_posix() for path in (doc / "pictures").rglob("*") if path.is_file()}
    for name in sorted(kept - page.pictures()):
        yield f"{name} is shown nowhere"
    if sum((doc / name).stat().st_size for name in kept) > LARGEST_SUM:
        yield "the pictures are too large"


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
    faults = [*check_links(page, doc), *check_headings(page), *check_pictures(page, doc), *check_content(page, sources)]
    if re.search(r"url\(|@import|<script|<link|<iframe", markup):
        faults.append("the page loads something")
    print("\n".join(faults) or "The page is sound.")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
