# SPDX-License-Identifier: MIT
"""The levels file: what the tour types, a level a line. Run as a program it checks the file named."""

import sys
from dataclasses import dataclass, fields
from pathlib import Path

from . import TourError

MOST_LEVELS = 50
WAVES = ("Single Frequency", "Spread Contracting", "Spread Expanding", "Sweep Increasing", "Sweep Decreasing")
CHOICES = {
    "wave": WAVES,
    "width": tuple("0123456789"),
    "pulse": ("ON", "OFF"),
    "duty": ("10", "20", "30", "40", "50", "60", "70", "80", "90"),
    "shape": ("Square", "Sine", "Triangle"),
    "output": ("Positive", "Negative", "Offset"),
}


@dataclass(frozen=True)
class Level:
    """One level as the entry fields take it; the fields stand in the file's order of columns."""

    wave: str
    width: str
    base: str
    time: str
    pulse: str
    rate: str
    duty: str
    shape: str
    output: str


COLUMNS = tuple(field.name for field in fields(Level))


def read_levels(path):
    """The levels of a file; TourError says which line is wrong and how."""
    try:
        lines = Path(path).read_text(encoding="utf-8-sig").splitlines()
    except (OSError, UnicodeError) as error:
        raise TourError(f"The levels file can't be read: {error}") from error
    if not lines or tuple(lines[0].strip().split("\t")) != COLUMNS:
        raise TourError(f"{path}:1: the first line must name the columns, set apart by tabs: {' '.join(COLUMNS)}")
    levels = [read_level(f"{path}:{number}", line) for number, line in enumerate(lines[1:], 2) if line.strip()]
    if not 1 <= len(levels) <= MOST_LEVELS:
        raise TourError(f"{path}: {len(levels)} levels; a protocol has 1 to {MOST_LEVELS}")
    return levels


def read_level(place, line):
    """The level of one line; place is named in what is raised."""
    cells = [cell.strip() for cell in line.split("\t")]
    if len(cells) != len(COLUMNS):
        raise TourError(f"{place}: {len(cells)} columns instead of {len(COLUMNS)}")
    level = Level(*cells)
    for column, entries in CHOICES.items():
        value = getattr(level, column)
        if value and value not in entries:
            raise TourError(f'{place}: "{value}" is no entry of {column}, which has: {", ".join(entries)}')
    return level


if __name__ == "__main__":
    try:
        read_levels(sys.argv[1])
    except TourError as wrong:
        sys.exit(str(wrong))
