"""The program itself, as `vxscene` and `python -m vxscene`, where the package brought it along."""

import os
import sys

from .program import BUNDLED_PROGRAM


def main() -> None:
    """Becomes the program; never returns."""
    if not BUNDLED_PROGRAM.exists():  # never what $PATH has: it may be this script
        sys.exit("vxscene: this Python package came without its program")
    os.execv(BUNDLED_PROGRAM, ["vxscene", *sys.argv[1:]])


if __name__ == "__main__":
    main()
