# SPDX-License-Identifier: MIT
"""The list file: the frequencies that the tour opens in the consolidator. Run as a program it checks the file named."""

import re
import sys
from pathlib import Path

from . import TourError


def check_list(path):
    """Refuses a file that holds no list; what the numbers are is for the program to read."""
    try:
        text = Path(path).read_text(encoding="utf-8-sig")
    except (OSError, UnicodeError) as error:
        raise TourError(f"The list file can't be read: {error}") from error
    if not re.search("[0-9]", text):
        raise TourError(f"{path}: there is no frequency in it")


if __name__ == "__main__":
    try:
        check_list(sys.argv[1])
    except TourError as wrong:
        sys.exit(str(wrong))
