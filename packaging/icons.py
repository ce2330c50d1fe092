"""Draws the program's sign in the sizes that desktops ask for."""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tools" / "pictures"))
import icons  # noqa: E402

SIZES = (16, 22, 24, 32, 48, 64, 96, 128, 256)


def main():
    """Writes the icons below the theme's folder that is given."""
    sign = icons.sign()
    for size in SIZES:
        folder = Path(sys.argv[1], f"{size}x{size}", "apps")
        folder.mkdir(parents=True)
        sign.picture(size).save(folder / "questforge.png", optimize=True)


if __name__ == "__main__":
    main()
