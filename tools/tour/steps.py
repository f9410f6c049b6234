# SPDX-License-Identifier: MIT
"""The tour's steps, each as a user does it; every step looks whether it did what it should."""

import re
import shutil
import time

from . import TourError, display, xwindows
from .documents import Documents
from .lists import Lists
from .places import BANK, EDITOR, MAIN, PORT
from .printing import Printing
from .reading import Reading
from .support import Support
from .transfers import carry_out, given_up, take_failure

NAME = "Tour"
LISTS = {"wave": "Wave Type", "width": "Width", "pulse": "Pulsing", "duty": "Duty Cycle", "shape": "Wave Shape",
         "output": "Output"}  # in the order chosen: a new wave type sets the time anew
FIELDS = {"time": "Time", "rate": "Pulse Rate", "base": "Base Frequency"}
FILE_BANK = 9  # takes the file
LOADING_PATIENCE = 120.0  # seconds; a load takes about six
NOTICE_PATIENCE = 3.0  # seconds for its notice to be up


class Tour:
    """Everything that a step needs: the program on its desktop, the emulator, the diary and the files' folder.

    "start_program" gives the desktop of a new run of the program in the folder of the run before, "start_loopback"
    that of the program whose mails stay on this machine.
    """

    def __init__(self, start_program, start_loopback, emulator, diary, files):
        self.start_program = start_program
        self.start_loopback = start_loopback
        self.desktop = start_program()
        self.emulator = emulator
        self.diary = diary
        self.files = files
        self.saved = files / "protocol.zp2"

    def run(self, levels, list_file):
        """All steps in order."""
        self.start()
        self.choose_port()
        Lists(self, list_file).run()
        self.create()
        self.enter(levels)
        Printing(self).print_editor()
        self.save()
        self.quit_editor()
        self.open()
        self.read_table(levels)
        self.load()
        self.read_bank(BANK, "bank.hex")
        self.discard_and_quit_editor()
        reading = Reading(self)
        reading.run()
        self.discard_and_quit_editor()
        self.exit()
        self.desktop = self.start_program()
        reading.check_kept(self.desktop)
        self.load_from_file()
        Documents(self).run()
        self.exit()
        self.desktop = self.start_loopback()
        Support(self).run()
        self.exit()

    def picture(self, name, window=None):
        """Takes a picture for the diary."""
        display.screenshot(self.diary.next_picture(name), display.framed(window.place) if window else None)

    def start(self):
        """The first start on a clean folder tells that there are no settings yet."""
        message = self.desktop.message("No configuration file found")
        self.diary.tell('Started; the program says "No configuration file found"')
        self.picture("no configuration", message)
        self.desktop.dismiss(message)
        self.picture("main window", self.desktop.window(MAIN))

    def choose_port(self):
        """Settings > Set Serial Port: the emulator's port stands in the list; choosing it connects."""
        self.desktop.command(self.desktop.window(MAIN), "Settings", "Set Serial Port")
        window = self.desktop.window("Serial Port")
        self.picture("serial settings", window)
        self.desktop.choose(self.desktop.control(window, "combo box", "Use Serial Port"), PORT)
        told = self.connected(window)
        self.picture("port chosen", window)
        self.diary.tell(f'Chose the port; the window says "{told}"')
        self.desktop.close(window)

    def connected(self, window):
        """Waits until a window tells that the port is connected, and gives its words."""
        def telling():
            return next((part.text for part in window.below()
                         if part.role == "text" and part.text == f"Serial Port:  {PORT}  Connected"), None)
        return self.desktop.wait(f'"{window.name}" to tell that the port is connected', telling)

    def create(self):
        """File > Create New File: an empty editor."""
        self.desktop.command(self.desktop.window(MAIN), "File", "Create New File")
        window = self.desktop.window(EDITOR)
        table = self.desktop.control(window, "table", "Protocol Listing")
        self.desktop.wait("an empty table", lambda: table.row_count() == 1)
        name = self.desktop.control(window, "text", "Editing File")
        self.desktop.wait('the name "Untitled"', lambda: name.text == "Untitled")
        self.picture("editor empty", window)
        self.desktop.fill(name, NAME)
        self.diary.tell(f'Created a protocol and named it "{NAME}"')

    def enter(self, levels):
        """Types every level; the table shows it as typed."""
        window = self.desktop.window(EDITOR)
        table = self.desktop.control(window, "table", "Protocol Listing")
        self.desktop.choose(self.desktop.control(window, "combo box", "Format"), "MM:SS")
        fields = self.entry_fields(window)
        for number, level in enumerate(levels, 1):
            self.enter_level(fields, level)
            self.desktop.press_key("Return")
            self.desktop.wait(f"level {number} to stand in the table", lambda n=number: table.row_count() == n + 1)
            row = table.row(number)
            check_row(number, level, row)
            self.diary.tell(f"Entered level {number}: {' | '.join(row)}")
        self.picture("editor full", window)

    def entry_fields(self, window):
        """The editor's entry fields by the levels file's columns."""
        found = {column: self.desktop.control(window, "combo box", label) for column, label in LISTS.items()}
        found |= {column: self.desktop.control(window, "text", label) for column, label in FIELDS.items()}
        return found

    def enter_level(self, fields, level):
        """Sets the entry fields; those that show the value already are left alone, as a user does."""
        for column in LISTS:
            value = getattr(level, column)
            if column == "width" and level.wave == "Single Frequency":
                continue  # The list is disabled then.
            if value or column == "duty":
                self.desktop.choose(fields[column], value)
        for column in FIELDS:
            self.desktop.fill(fields[column], getattr(level, column))
        self.desktop.focus(fields["base"])

    def save(self):
        """File > Save: the dialog proposes the protocol's name; another path is typed."""
        self.desktop.command(self.desktop.window(EDITOR), "File", "Save")
        self.desktop.choose_file(self.saved, lambda dialog: self.picture("save dialog", dialog))
        self.desktop.wait("the saved file", lambda: self.saved.exists())
        shutil.copyfile(self.saved, self.diary.folder / "protocol.zp2")
        self.diary.tell(f"Saved {self.saved.stat().st_size} bytes")

    def quit_editor(self):
        """File > Quit Editor: nothing is unsaved, so nothing is asked, and the main window is back."""
        window = self.desktop.window(EDITOR)
        self.desktop.command(window, "File", "Quit Editor")
        self.desktop.wait("the editor to close", lambda: not window.shown)
        self.desktop.window(MAIN)
        self.diary.tell("Closed the editor")

    def open(self):
        """File > Open from the main window brings up a fresh editor."""
        self.desktop.command(self.desktop.window(MAIN), "File", "Open")
        self.desktop.choose_file(self.saved, lambda dialog: self.picture("open dialog", dialog))
        name = self.desktop.control(self.desktop.window(EDITOR), "text", "Editing File")
        self.desktop.wait('the name "protocol"', lambda: name.text == "protocol")
        self.diary.tell("Opened the saved file in a fresh editor")

    def read_table(self, levels):
        """Reads the reopened table as shown into table.tsv."""
        window = self.desktop.window(EDITOR)
        table = self.desktop.control(window, "table", "Protocol Listing")
        self.desktop.wait(f"{len(levels)} levels in the table", lambda: table.row_count() == len(levels) + 1)
        text = self.leave_table("table.tsv", table)
        self.picture("editor reopened", window)
        self.diary.tell("The reopened table shows:\n" + text.rstrip("\n"))

    def leave_table(self, name, table, first=1):
        """Leaves a table as shown, from a row on (row 0 of levels is empty), and gives its text."""
        rows = [[head.name for head in table.headings()],
                *(table.row(number) for number in range(first, table.row_count()))]
        text = "".join("\t".join(row) + "\n" for row in rows)
        (self.diary.folder / name).write_text(text, encoding="utf-8")
        return text

    def load(self):
        """Zephon > Load Direct into the bank."""
        self.desktop.command(self.desktop.window(EDITOR), "Zephon", "Load Direct")
        window = self.desktop.window("Load Direct")
        self.connected(window)
        self.load_into(BANK, window, "Load")
        self.desktop.close(window)

    def load_from_file(self):
        """Zephon > Load From File: the saved protocol goes to another bank as it stands in the file."""
        self.desktop.command(self.desktop.window(MAIN), "Zephon", "Load From File")
        window = self.desktop.window("Load From File")
        self.connected(window)
        self.picture("load from file", window)
        self.desktop.click(self.desktop.control(window, "push button", "Choose File"), "a file dialog",
                           self.desktop.file_dialog)
        self.desktop.choose_file(self.saved)
        self.load_into(FILE_BANK, window, "Click Here to Commence Loading")
        self.desktop.close(window)
        held = [line.split() for line in self.emulator.ask(f"dump {FILE_BANK}")]
        record = self.saved.read_bytes()
        for level in range(len(record) // 12):
            if bytes.fromhex("".join(held[level][:12])) != record[12 * level:12 * level + 12]:
                raise TourError(f"Bank {FILE_BANK} does not hold level {level + 1} of the file")
        self.diary.tell(f"Bank {FILE_BANK} holds the file's levels byte for byte")

    def load_into(self, bank, window, button):
        """Loads a bank from a load window."""
        self.desktop.choose(self.desktop.control(window, "combo box", "Bank, tens digit"), str(bank // 10))
        self.desktop.choose(self.desktop.control(window, "combo box", "Bank, units digit"), str(bank % 10))
        self.picture("bank chosen", window)

        def load_once():
            return self.load_once(window, button)
        carry_out(self, f"Loading bank {bank:02}", load_once, load_once)
        self.picture("load completed", window)
        self.diary.tell(f'Loaded bank {bank:02}; the window says "{loaded(window)}"')

    def load_once(self, window, button):
        """Makes one load, for which the emulator is keyed when the program asks for it; empty, or what went wrong."""
        self.desktop.click(self.desktop.control(window, "push button", button), "the message before loading",
                           lambda: self.desktop.find_message("Ready to load: "))
        message = self.desktop.message("Ready to load: ")
        self.picture("ready to load", message)
        self.emulator.ask("5 3")
        self.desktop.dismiss(message)
        self.watch_progress()
        self.desktop.wait("the load to end", lambda: given_up(self.desktop) or loaded(window),
                          patience=LOADING_PATIENCE, dialogs_welcome=True)
        failed = given_up(self.desktop)
        return take_failure(self.desktop, failed) if failed else ""

    def watch_progress(self):
        """The progress notice is up while the program is busy; only the X server can be asked then.

        A load that fails at once may take it away before it was seen.
        """
        patient_until = time.monotonic() + NOTICE_PATIENCE

        def notice_or_failure():
            return xwindows.place_of("Please wait") or (time.monotonic() > patient_until and given_up(self.desktop))
        self.desktop.wait("the progress notice", notice_or_failure, dialogs_welcome=True)
        place = xwindows.place_of("Please wait")
        if place:
            display.screenshot(self.diary.next_picture("loading"), display.framed(place))
            self.diary.tell("The progress notice shows while the bank is loaded")

    def read_bank(self, bank, name):
        """What the emulator holds of a bank goes to a file; it has nothing to complain of."""
        lines = self.emulator.ask(f"dump {bank}")
        (self.diary.folder / name).write_text("".join(line + "\n" for line in lines), encoding="ascii")
        self.diary.tell(f"The emulator holds in bank {bank}:\n" + "\n".join(lines))
        violations = self.emulator.ask("violations")
        self.diary.tell("Violations of the dialogue that the emulator counts: " + "\n".join(violations))
        if violations != ["0"]:
            raise TourError("The emulator found the dialogue violated")

    def discard_and_quit_editor(self):
        """File > Quit Editor: what was opened or taken over counts as unsaved, so the editor asks."""
        window = self.desktop.window(EDITOR)
        self.desktop.command(window, "File", "Quit Editor")
        message = self.desktop.message("Data in the Edit window has not been saved to file")
        self.picture("unsaved", message)
        self.desktop.dismiss(message, "Don't Save")
        self.desktop.wait("the editor to close", lambda: not window.shown)

    def exit(self):
        """File > Exit Program ends without an error."""
        self.desktop.command(self.desktop.window(MAIN), "File", "Exit Program")
        self.desktop.wait_for_end()
        self.diary.tell("The program has ended by itself with 0")


def check_row(number, level, row):
    """Compares a row of the table with the level typed; lists left alone are not compared."""
    shown = dict(zip(("wave", "base", "width", "time", "pulse", "rate", "shape", "duty", "output"),
                     (row[i] for i in (1, 2, 3, 5, 7, 8, 9, 10, 11))))
    typed = {**vars(level), "duty": level.duty + "%"}
    if level.wave == "Single Frequency":
        typed["width"] = shown["width"]
    for column, value in typed.items():
        if value != shown[column] and (value or column in FIELDS):
            raise TourError(f'Level {number} shows {column} "{shown[column]}" instead of "{value}"')


def loaded(window):
    """The words with which the load window tells of its success, or None."""
    labels = (part.name for part in window.below() if part.role == "label" and part.shown)
    return next((name for name in labels if re.fullmatch(r"Zephon loaded in \d+ seconds", name)), None)
