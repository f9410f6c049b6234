# SPDX-License-Identifier: MIT
"""Tries the program in a Wayland session: a headless compositor with no X server beside it.

Such a compositor has no keyboard and no mouse, so the controls are acted on over AT-SPI, as assistive programs do.

Usage: python3 -m tour.wayland FOLDER PROGRAM EMULATOR
"""

import os
import sys
import tempfile
import time
from pathlib import Path

from . import TourError, children, display
from .diary import Diary
from .emulator import Emulator
from .places import EDITOR, MAIN

SETTINGS = "serial port,0;rate,1;\n"  # the first port is the emulator's
LEVEL = bytes.fromhex("001e9608000315070000" "0124")
LOAD = "Load Direct"
ID = "example.tessit.Control"  # by which the compositor finds the desktop entry
PATIENCE = 30.0  # seconds


def main(target, program, emulator):
    """The exit code is 0 only when everything was as it should be."""
    diary = Diary(Path(target))
    children.adopt_orphans()
    with tempfile.TemporaryDirectory(prefix="tour-") as folder:
        try:
            start_session(Path(folder))
            Session(Path(folder), diary, Path(program), Path(emulator)).run()
        except TourError as failure:
            diary.tell(f"FAILED: {failure}")
            return 1
        finally:
            children.end_all()
    return 0


def start_session(folder):
    """Compositor and bus, with a home and a runtime folder of their own."""
    display.use_homes(folder)
    os.environ.pop("DISPLAY", None)
    os.environ.update({"QT_QPA_PLATFORM": "wayland", "WAYLAND_DISPLAY": "tour", "WAYLAND_DEBUG": "client"})
    with open(folder / "display.log", "ab") as log:
        children.start(["weston", "--backend=headless-backend.so", "--socket=tour", "--no-config", "--width=1280",
                        "--height=1024"], stdout=log, stderr=log)
        display.start_bus(log)
    deadline = time.monotonic() + PATIENCE
    while not Path(os.environ["XDG_RUNTIME_DIR"], "tour").exists():
        if time.monotonic() > deadline:
            raise TourError("The Wayland compositor did not start")
        time.sleep(0.05)


class Session:
    """The steps."""

    def __init__(self, folder, diary, program, emulator):
        from .desktop import Desktop  # needs the session's environment
        self.folder = folder
        self.diary = diary
        self.emulator = Emulator(emulator, folder / "emulator.log")
        place = folder / "home/.local/share/tessit-control"
        place.mkdir(parents=True)
        (place / "ZP2Settings.fig").write_text(SETTINGS)
        with open(folder / "program.log", "ab") as log:
            self.desktop = Desktop(children.start([program], cwd=folder, stdout=log, stderr=log))

    def run(self):
        """Start, a level in the editor, the protocol saved, loaded into the emulated generator, the end."""
        from .steps import loaded  # needs the session's environment
        self.command(MAIN, "File", "Create New File")
        editor = self.desktop.window(EDITOR)
        self.desktop.control(editor, "text", "Base Frequency").put("7.83")
        self.desktop.control(editor, "push button", "Enter").act()
        self.desktop.wait("the level", lambda: "7.83" in editor.find("table").row(1))
        self.diary.tell("A level is in the editor")
        self.command(EDITOR, "File", "Save")
        dialog = self.desktop.wait("a file dialog", self.desktop.file_dialog)
        saved = self.folder / "saved.zp2"
        dialog.find("text", "File name").put(str(saved))
        dialog.find("push button", "Save").act()
        self.desktop.wait("the saved file", lambda: saved.is_file() and saved.read_bytes() == LEVEL)
        self.diary.tell(f"Saved {LEVEL.hex(' ')}")
        self.command(EDITOR, "Zephon", LOAD)
        load = self.desktop.window(LOAD)
        self.desktop.control(load, "combo box", "Bank, units digit").find("text").put("7")
        self.desktop.control(load, "push button", "Load").act()
        ready = self.desktop.wait("the question", lambda: self.desktop.find_message("Ready to load"), dialogs_welcome=True)
        self.emulator.ask("5 3")
        ready.find("push button", "OK").act()
        told = self.desktop.wait("the load", lambda: loaded(load), dialogs_welcome=True)
        first = self.emulator.ask("dump 7")[0]
        if bytes.fromhex(first)[:len(LEVEL)] != LEVEL:
            raise TourError(f"The first level in the generator is {first}")
        self.diary.tell(f"The window says \"{told}\", and the generator has the level")
        self.command(EDITOR, "File", "Exit Program")
        self.desktop.wait_for_end()
        if f'set_app_id("{ID}")' not in (self.folder / "program.log").read_text():
            raise TourError("The windows do not say whose icon they bear")
        self.diary.tell(f"The windows bore the icon of {ID}; the program has ended by itself with 0")

    def command(self, title, menu, entry):
        """Chooses an entry of a window's menu bar."""
        bar = self.desktop.control(self.desktop.window(title), "menu bar", None)
        items = (part for heading in bar.children() for part in heading.below() if part.role == "menu item")
        next(item for item in items if item.name == entry).act()


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
