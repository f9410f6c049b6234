# SPDX-License-Identifier: MIT
"""Tries the installed program as a user who has just got it: start, help, a protocol opened and saved, the end.

Usage: python3 -m tour.installed FOLDER [PROGRAM]; settings, files and pictures are left in FOLDER.
"""

import sys
import tempfile
from pathlib import Path

from . import TourError, children, display
from .diary import Diary
from .places import EDITOR, HELP, MAIN

LEVEL = bytes.fromhex("001e9608000315070000" "0124")
SETTINGS = "home/.local/share/tessit-control/ZP2Settings.fig"


def main(target, program="/usr/bin/tessit-control"):
    """The exit code is 0 only when everything was as it should be."""
    diary = Diary(Path(target))
    children.adopt_orphans()
    with tempfile.TemporaryDirectory(prefix="tour-") as folder:
        try:
            display.start_display(Path(folder))
            first_start(program, Path(folder), diary)
            later_start(program, Path(folder), diary)
        except TourError as failure:
            diary.tell(f"FAILED: {failure}")
            return 1
        finally:
            children.end_all()
    return 0


def started(program, folder, *arguments):
    """The program on the screen."""
    from .desktop import Desktop  # needs the display's environment
    with open(folder / "program.log", "ab") as log:
        return Desktop(children.start([program, *arguments], cwd=folder, stdout=log, stderr=log))


def first_start(program, folder, diary):
    """No settings yet: that is told, and they are in the user's folder from then on. The help and the manual are there."""
    desktop = started(program, folder)
    desktop.dismiss(desktop.message("No configuration file found"))
    window = desktop.window(MAIN)
    display.screenshot(diary.next_picture("main window"))
    desktop.command(window, "Help", "Open Help File")
    shown = desktop.window(HELP)
    desktop.wait("the help's text", lambda: any("Help for Tessit Control" in part.text for part in shown.below()))
    display.screenshot(diary.next_picture("help"))
    desktop.command(shown, "Help", "Display Manual")
    desktop.wait("the manual's first page",
                 lambda: any(part.name.startswith("Page 1 of ") for part in shown.below()))
    desktop.close(shown)
    desktop.command(desktop.window(MAIN), "File", "Exit Program")
    desktop.wait_for_end()
    if not (folder / SETTINGS).is_file():
        raise TourError("The settings are not in the user's folder")
    diary.tell("First start: main window, help and manual; the settings are in the user's folder")


def later_start(program, folder, diary):
    """A protocol from the file manager, with a program that has its settings."""
    protocol = folder / "one level.zp2"
    protocol.write_bytes(LEVEL)
    desktop = started(program, folder, str(protocol))
    desktop.dismiss(desktop.message("No Serial Port Selected"))
    editor = desktop.window(EDITOR)
    desktop.wait("the file's level", lambda: "007.830" in editor.find("table").row(1))
    display.screenshot(diary.next_picture("protocol opened"))
    desktop.command(editor, "File", "Save")
    desktop.choose_file(folder / "saved")
    saved = folder / "saved.zp2"
    desktop.wait("the saved file", lambda: saved.is_file() and saved.read_bytes() == LEVEL)
    desktop.command(editor, "File", "Exit Program")
    desktop.wait_for_end()
    diary.tell("Later start: a protocol given on the command line, saved byte for byte")


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
