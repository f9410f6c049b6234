# SPDX-License-Identifier: MIT
"""The list file: the frequencies that the tour opens in the consolidator. Run as a program it checks the file named."""

import re
import sys
from pathlib import Path

from . import TourError


MOST = 999999  # hertz that a level can have


def check_list(path):
    """Refuses a file that holds no list, or a frequency that no level could have; all else is for the program to read."""
    try:
        text = Path(path).read_text(encoding="utf-8-sig")
    except (OSError, UnicodeError) as error:
        raise TourError(f"The list file can't be read: {error}") from error
    if not re.search("[0-9]", text):
        raise TourError(f"{path}: there is no frequency in it")
    for number, line in enumerate(text.splitlines(), 1):
        for entry in re.split("[,\t]", line):
            if value(entry) > MOST:
                raise TourError(f'{path}:{number}: the frequency "{entry.strip()}" is above {MOST}')


def value(entry):
    """An entry as the program reads it: digits alone count, and the last point."""
    whole, point, decimals = entry.rpartition(".") if "." in entry else (entry, "", "")
    return float(re.sub("[^0-9]", "", "0" + whole) + point + re.sub("[^0-9]", "0", decimals))


if __name__ == "__main__":
    try:
        check_list(sys.argv[1])
    except TourError as wrong:
        sys.exit(str(wrong))
