"""Pictures from files and from the screen. Places are (left, top, width, height); pixels have an opacity."""

from PIL import Image, ImageGrab

from waiting import wait_for


def from_file(path):
    with Image.open(path) as picture:
        return picture.convert("RGBA")


def part(picture, place):
    left, top, width, height = place
    return picture.crop((left, top, left + width, top + height))


def from_screen(place):
    return part(ImageGrab.grab(xdisplay=""), place).convert("RGBA")


def still(look):
    """The picture that look() answers, once nothing moves in it any more."""
    seen = look()

    def is_still():
        nonlocal seen
        before, seen = seen, look()
        return seen == before

    wait_for("the picture stands still", is_still)
    return seen


def share_of(wanted, seen):
    """Which part, 0 to 1, of the opaque pixels of a picture is seen in one of the same size."""
    pairs = [(pixel, other) for pixel, other in zip(wanted.getdata(), seen.getdata()) if pixel[3] == 255]
    return sum(pixel == other for pixel, other in pairs) / len(pairs)
