# SPDX-License-Identifier: MIT
"""Entry of the tour: reads the arguments, sets the stage, runs the steps and clears everything away."""

import argparse
import contextlib
import shutil
import signal
import sys
import tempfile
import traceback
from pathlib import Path

from . import TourError, children, display
from .diary import Diary
from .emulator import Emulator
from .frequencies import check_list
from .levels import read_levels

EXAMPLE_LEVELS = Path(__file__).with_name("levels.tsv")
EXAMPLE_LIST = Path(__file__).with_name("frequencies.csv")
# The documents and modules of the program.
BESIDE = ("HELP.html", "manual.pdf", "tessit-control-pdf.so", "tessit-control-mail.so")
PICTURES = "pictures"  # of the help
HELP_ON_FILES = """\
The levels file has a header and the columns wave, width, base, time, pulse, rate, duty, shape, output, set apart by
tabs: 1 to 50 levels, times in MM:SS form, every value as the entry field takes it. An empty time, rate or base
empties its field, an empty duty chooses the list's empty entry, and any other empty value leaves its list as it is.
The width of a Single Frequency is not looked at: its list is disabled.

The list file holds frequencies with decimal points up to 999999, set apart by commas, tabs or line ends.
"""


def main():
    """Runs the tour; the exit code is 0 only when every step did what it should, 2 for wrong arguments."""
    arguments = parse(sys.argv[1:])
    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, stop)
    try:
        levels = read_levels(arguments.levels)
        check_list(arguments.list)
        diary = Diary(arguments.folder)
    except (TourError, OSError) as wrong:
        print(f"tour: {wrong}", file=sys.stderr)
        return 2
    children.adopt_orphans()
    with tempfile.TemporaryDirectory(prefix="tour-") as folder:
        try:
            return run(arguments, levels, diary, Path(folder))
        finally:
            children.end_all()


def parse(words):
    """The arguments."""
    parser = argparse.ArgumentParser("tour", description=__doc__, epilog=HELP_ON_FILES,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", type=Path, help="where the tour leaves its files")
    parser.add_argument("--program", type=Path, required=True, help="tessit-control")
    parser.add_argument("--emulator", type=Path, required=True, help="zephon-emulator")
    parser.add_argument("--loopback", type=Path,
                        help="tessit-control-loopback; otherwise the one beside the program")
    parser.add_argument("--levels", type=Path, default=EXAMPLE_LEVELS, help="what to type")
    parser.add_argument("--list", type=Path, default=EXAMPLE_LIST, help="which list of frequencies to open")
    arguments = parser.parse_args(words)
    arguments.loopback = arguments.loopback or arguments.program.with_name("tessit-control-loopback")
    for needed in (arguments.program, arguments.emulator):
        if not needed.is_file():
            parser.error(f"{needed} is not there; build it first")
    return arguments


def stop(number, _):
    """Asked to end from outside: as an exception, so that all is cleared away."""
    sys.exit(128 + number)


def run(arguments, levels, diary, folder):
    """Sets the stage in "folder" and runs the steps; failures are told and pictured."""
    try:
        display.start_display(folder)
        return take_tour(arguments, levels, diary, folder)
    except TourError as failure:
        diary.tell(f"FAILED: {failure}")
    except Exception:  # Whatever it is, it is told like any failure.
        diary.tell(f"FAILED by a fault of the tour itself:\n{traceback.format_exc()}")
    keep_logs(folder, diary.folder)
    return 1


def take_tour(arguments, levels, diary, folder):
    """Starts emulator and program and runs the steps; a failure is pictured before the display ends."""
    from .desktop import Desktop  # Needs the display's environment.
    from .steps import Tour

    emulator = Emulator(arguments.emulator, folder / "emulator.log")
    diary.tell("The emulator tells:\n" + "\n".join(emulator.greeting))
    try:
        def starter(program):
            return lambda: Desktop(start_program(program, folder))
        tour = Tour(starter(arguments.program), starter(arguments.loopback), emulator, diary, folder)
        tour.run(levels, arguments.list)
    except Exception:
        with contextlib.suppress(TourError):
            display.screenshot(diary.next_picture("failure"))
        raise
    diary.tell("The tour is complete")
    return 0


def start_program(program, folder):
    """Starts a copy of the program in a folder of its own: the user's settings are neither used nor touched.

    What stands beside it goes with it. A second start is in the same folder, with the settings that the first left there.
    """
    if not program.is_file():
        raise TourError(f"{program} is not there; build it first")
    place = folder / "program"
    place.mkdir(exist_ok=True)
    for name in BESIDE:
        if (program.parent / name).is_file():
            shutil.copy2(program.parent / name, place)
    if (program.parent / PICTURES).is_dir():
        shutil.copytree(program.parent / PICTURES, place / PICTURES, dirs_exist_ok=True)
    copy = shutil.copy2(program, place)
    with open(folder / "program.log", "ab") as log:
        return children.start([copy], cwd=folder, stdout=log, stderr=log)


def keep_logs(folder, target):
    """After a failure, what the processes told stays beside the tour's log."""
    for log in folder.glob("*.log"):
        if log.stat().st_size:
            shutil.copy(log, target / log.name)


if __name__ == "__main__":
    sys.exit(main())
