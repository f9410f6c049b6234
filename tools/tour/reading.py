# SPDX-License-Identifier: MIT
"""The tour's second half: a bank read back, taken into the editor, changed by rows, exported; a preference kept."""

import shutil

from . import TourError
from .places import BANK, EDITOR, MAIN, READER
from .printing import Printing
from .transfers import carry_out, given_up, take_failure

INSERTED = "15.5"  # the base frequency of the level that goes between the first two
PREFERRED_WIDTH = "4"
FULL = 51  # rows of a full table, the empty row 0 among them
UNSAVED = "Data just read from the Zephon has not been saved to file"
READING_PATIENCE = 60.0  # seconds; a reading takes about two


class Reading:
    """Continues a tour whose bank is loaded and whose editor is closed."""

    def __init__(self, tour):
        self.tour = tour
        self.desktop = tour.desktop
        self.diary = tour.diary

    def run(self):
        """All steps in order, up to the end of the program's first run."""
        self.read_back()
        Printing(self.tour).print_reading()
        self.take_over()
        self.change_rows()
        self.export()
        self.set_preference()

    def read_back(self):
        """Zephon > Read Zephon; the emulator is keyed to send the bank."""
        self.desktop.command(self.desktop.window(MAIN), "Zephon", "Read Zephon")
        window = self.desktop.window(READER)
        self.tour.connected(window)
        self.tour.picture("read window", window)
        carry_out(self.tour, f"Reading bank {BANK}", self.read, self.read_again)
        window = self.desktop.window(READER)
        table = self.desktop.control(window, "table", "Bank Listing")
        self.tour.picture("bank read", window)
        self.tour.leave_table("readback.tsv", table)
        self.diary.tell(f"Read bank {BANK} back; readback.tsv holds the table as shown")

    def read(self):
        """One reading; empty when the bank is there, else what is there instead."""
        self.tour.emulator.ask(f"5 2 {BANK} #")
        self.desktop.click(self.read_button(), "the bank to be read", self.reading_is_over, patience=READING_PATIENCE,
                           dialogs_welcome=True)
        return self.reading_failure()

    def read_again(self):
        """One more: what the failed one left counts as read and not saved, so the program asks."""
        self.tour.emulator.ask(f"5 2 {BANK} #")
        self.desktop.click(self.read_button(), "the question about what was read",
                           lambda: self.desktop.find_message(UNSAVED), dialogs_welcome=True)
        self.desktop.dismiss(self.desktop.message(UNSAVED), "Don't Save")
        self.desktop.wait("the bank to be read", self.reading_is_over, patience=READING_PATIENCE, dialogs_welcome=True)
        return self.reading_failure()

    def read_button(self):
        """The button that begins a reading."""
        return self.desktop.control(self.desktop.window(READER), "push button", "Read")

    def reading_is_over(self):
        """Whether the program gave the reading up or shows fifty levels."""
        return given_up(self.desktop) or self.name_read()

    def reading_failure(self):
        """The words of a reading that was given up, or the wrong name where bytes were lost; empty when all is well."""
        failed = given_up(self.desktop)
        if failed:
            return take_failure(self.desktop, failed)
        name = self.name_read()
        return "" if name == f"Bank_{BANK}" else f"what was read is called {name}"

    def name_read(self):
        """The bank's name in the reading window once its table is full; it is set before the levels."""
        window = self.desktop.find_window(READER)
        table = window.find("table", "Bank Listing") if window else None
        name = window.find("text", "Bank") if window else None
        return name.text if name and table and table.row_count() == FULL else ""

    def take_over(self):
        """Edit > Edit Protocol: the reading window asks about its unsaved data and goes, the editor has the levels."""
        self.desktop.command(self.desktop.window(READER), "Edit", "Edit Protocol")
        message = self.desktop.message(UNSAVED)
        self.tour.picture("unsaved reading", message)
        self.desktop.dismiss(message, "Don't Save")
        window, table = self.editor()
        self.desktop.wait("the levels in the editor", lambda: table.row_count() > 1)
        name = self.desktop.control(window, "text", "Editing File")
        self.desktop.wait("the bank's name", lambda: name.text == f"Bank_{BANK}")
        self.tour.picture("bank in editor", window)
        self.diary.tell(f"Took {table.row_count() - 1} levels into the editor")

    def editor(self):
        """The editor and its table."""
        window = self.desktop.window(EDITOR)
        return window, self.desktop.control(window, "table", "Protocol Listing")

    def change_rows(self):
        """One row comes and one goes; a full table loses two first, for an inserted fiftieth level would be refused."""
        _, table = self.editor()
        if table.row_count() < 3:
            self.diary.tell("One level alone: its row is left as it is")
            return
        deleted = 0
        while table.row_count() >= FULL - 1:
            self.delete_row()
            deleted += 1
        self.insert_row()
        if not deleted:
            self.delete_row()

    def insert_row(self):
        """Edit > Insert Row above level 2; the next level typed fills it."""
        window, table = self.editor()
        count = table.row_count()
        self.desktop.select_row(table, 2)
        self.desktop.command(window, "Edit", "Insert Row")
        self.desktop.wait("the empty row", lambda: table.row_count() == count + 1 and table.row(2)[2] == "")
        self.desktop.fill(self.desktop.control(window, "text", "Base Frequency"), INSERTED)
        self.desktop.press_key("Return")
        self.desktop.wait("the level in the inserted row", lambda: table.row(2)[2] == INSERTED)
        self.check_numbers(table)
        self.tour.picture("row inserted", window)
        self.diary.tell(f"Inserted a level: {' | '.join(table.row(2))}")

    def delete_row(self):
        """Edit > Delete Row on level 1."""
        window, table = self.editor()
        count, second = table.row_count(), table.row(2)
        self.desktop.select_row(table, 1)
        self.desktop.command(window, "Edit", "Delete Row")
        self.desktop.wait("the row to go", lambda: table.row_count() == count - 1 and table.row(1)[1:] == second[1:])
        self.check_numbers(table)
        self.tour.picture("row deleted", window)
        self.diary.tell("Deleted level 1")

    @staticmethod
    def check_numbers(table):
        """Levels are numbered from 1 on without a gap."""
        numbers = [table.row(row)[0] for row in range(1, table.row_count())]
        if numbers != [str(row) for row in range(1, table.row_count())]:
            raise TourError(f"The levels are numbered {', '.join(numbers)}")

    def export(self):
        """File > Export to protocol.tab."""
        target = self.tour.files / "protocol.tab"
        self.desktop.command(self.desktop.window(EDITOR), "File", "Export")
        self.desktop.choose_file(target, lambda dialog: self.tour.picture("export dialog", dialog))
        self.desktop.wait("the exported file", target.exists)
        shutil.copyfile(target, self.diary.folder / target.name)
        self.diary.tell(f"Exported {target.stat().st_size} bytes")

    def set_preference(self):
        """Settings > Set Preferences: another default width."""
        window = self.preferences()
        self.tour.picture("preferences", window)
        self.desktop.choose(self.width_list(window), PREFERRED_WIDTH)
        self.tour.picture("preference changed", window)
        self.desktop.click(self.desktop.control(window, "push button", "Set Defaults"), "the preferences to close",
                           lambda: not window.shown)
        self.diary.tell(f"Set the default width to {PREFERRED_WIDTH}")

    def preferences(self):
        """The preferences, from whichever window is there."""
        front = self.desktop.find_window(EDITOR) or self.desktop.window(MAIN)
        self.desktop.command(front, "Settings", "Set Preferences")
        return self.desktop.window("Preferences")

    def width_list(self, window):
        """The list of default widths."""
        return self.desktop.control(window, "combo box", "Default Packet Width")

    def check_kept(self, desktop):
        """In the program's second run, port and preference are as they were set."""
        self.desktop = desktop
        window = self.preferences()
        self.desktop.wait("the kept preference", lambda: self.desktop.shows(self.width_list(window), PREFERRED_WIDTH))
        self.tour.picture("preference kept", window)
        self.desktop.close(window)
        self.desktop.command(self.desktop.window(MAIN), "Settings", "Set Serial Port")
        window = self.desktop.window("Serial Port")
        told = self.tour.connected(window)
        self.tour.picture("port kept", window)
        self.diary.tell(f'After a restart the default width is {PREFERRED_WIDTH}, and the port window says "{told}"')
        self.desktop.close(window)
