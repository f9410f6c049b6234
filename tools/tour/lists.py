# SPDX-License-Identifier: MIT
"""The tour's first part: a frequency list opened, put in order and handed to the composer, which makes levels of it.

It comes before anything is typed into the editor, so the levels have the settings of a first start.
"""

import shutil
import time

from . import TourError, display
from .desktop import State, selected
from .places import COMPOSER, CONSOLIDATOR, EDITOR, MAIN
from .printing import Printing

NAME = "frequencies"  # of the opened file, and so of the protocol
LIST_BANK = 8
MOST_LEVELS = 50
PRIME, WIDTH, CENTER = range(3)  # columns of the frequencies
LISTS = {"wave": "Wavetype", "width": "Width", "pulse": "Pulsing", "duty": "Duty Cycle", "shape": "Wave Shape",
         "output": "Output"}
FIELDS = {"base": "Base Frequency", "time": "Time", "rate": "Pulse Rate"}
SINGLE = "Single Frequency"
DEFAULT_PACKET = "Spread Contracting"
STEPS = {SINGLE: 0, "Spread Contracting": 2, "Spread Expanding": 2, "Sweep Decreasing": 1, "Sweep Increasing": 1}
USED, UNUSED = "#C0C0C0", "#FFFFFF"
FINE = "too many decimals entered"
UNSAVED = "Your composed protocol has not been saved to file"
SETTLED = 0.6  # seconds after which no window comes to the front any more


class Lists:
    """The steps on one list file; the program shows its main window before and after them."""

    def __init__(self, tour, list_file):
        self.tour = tour
        self.desktop = tour.desktop
        self.diary = tour.diary
        self.warned = False
        self.list_file = shutil.copyfile(list_file, tour.files / f"{NAME}.csv")

    def run(self):
        """Twice from the file to the composer: once with clicks on its frequencies, once with all primes."""
        self.open_list()
        self.put_in_order(self.leave_lists)
        self.hand_over()
        self.enter_by_clicks()
        self.discard()
        self.open_list()
        self.put_in_order()
        self.hand_over()
        self.enter_all()
        Printing(self.tour).print_composer()
        self.save()
        if self.warned:
            self.diary.tell("The generator would not accept half a level: nothing is loaded")
        else:
            self.load()
        self.close_composer()

    # The consolidator

    def open_list(self):
        """Consolidator > Open."""
        self.desktop.command(self.desktop.window(MAIN), "Consolidator", "Open")
        self.desktop.choose_file(self.list_file)
        window = self.desktop.window(CONSOLIDATOR)
        name = self.desktop.control(window, "text", "Protocol Name")
        self.desktop.wait(f'the name "{NAME}"', lambda: name.text == NAME)
        listed = self.desktop.control(window, "text", "Frequency List")
        self.desktop.wait("the list", lambda: listed.text)
        self.diary.tell(f"Opened a list of {len(listed.text)} characters")

    def put_in_order(self, leave=lambda window: None):
        """Sorts the list downwards and removes what is repeated; "leave" sees the window with the outcome."""
        window = self.desktop.window(CONSOLIDATOR)
        self.tour.picture("list opened", window)
        for caption in ("Sort  Decreasing", "Remove Duplicates"):
            self.press_and_see_list_change(window, caption)
        self.tour.picture("duplicates removed", window)
        leave(window)

    def press_and_see_list_change(self, window, caption):
        """Presses a button; each of them writes the list anew with one more 0 behind it."""
        listed = self.desktop.control(window, "text", "Frequency List")
        before = listed.text
        self.desktop.click(self.desktop.control(window, "push button", caption), "another list",
                           lambda: listed.text != before)

    def leave_lists(self, window):
        """Leaves the list and the report of what was removed, as the fields show them, and the list printed."""
        for name, label in (("list.txt", "Frequency List"), ("duplicates.txt", "Duplicates")):
            text = self.desktop.control(window, "text", label).text
            (self.diary.folder / name).write_bytes(text.encode())
            self.diary.tell(f"{label}: {text or '(nothing)'}")
        Printing(self.tour).print_list()

    def hand_over(self):
        """Presses "Compose Protocol": the composer comes up in the consolidator's place."""
        consolidator = self.desktop.window(CONSOLIDATOR)
        self.desktop.click(self.desktop.control(consolidator, "push button", "Compose Protocol"), "the composer",
                           lambda: self.desktop.find_window(COMPOSER))
        self.window = self.desktop.window(COMPOSER)
        self.desktop.wait("the consolidator to go", lambda: not consolidator.shown)
        self.desktop.wait("the composer in front", lambda: self.window.has(State.ACTIVE))
        self.primes = self.desktop.control(self.window, "table", "Frequencies")
        self.levels = self.desktop.control(self.window, "table", "Protocol")
        self.tour.picture("composer", self.window)

    # The composer

    def enter_by_clicks(self):
        """Takes the first centre and two primes, each by a click and the button; the last one twice."""
        self.fields = {key: self.desktop.control(self.window, "combo box", label) for key, label in LISTS.items()}
        self.fields |= {key: self.desktop.control(self.window, "text", label) for key, label in FIELDS.items()}
        self.button = self.desktop.control(self.window, "push button", "ENTER")
        self.tour.leave_table("primes.tsv", self.primes, first=0)
        self.rows = [self.primes.row(number) for number in range(self.primes.row_count())]
        self.diary.tell(f"The composer shows {len(self.rows)} primes; primes.tsv holds them as shown")
        cells = self.cells_to_take()
        for cell in cells:
            self.take(*cell)
            self.enter()
        if cells:
            self.tour.picture("levels entered", self.window)
            self.check_used(cells)
            self.save_in_front()
            self.enter()

    def cells_to_take(self):
        """Row and column of the first run's centre, of the first prime and of the last."""
        centers = [(number, CENTER) for number, row in enumerate(self.rows) if row[CENTER]]
        if not centers:
            self.diary.tell("No frequencies lie close together: there is no centre to take")
        primes = sorted({(number, PRIME) for number in (0, len(self.rows) - 1) if self.rows})
        return centers[:1] + primes

    def take(self, row, column):
        """Clicks a cell; the entry fields show what it stands for."""
        text, width = self.rows[row][column], self.rows[row][WIDTH]
        wave = DEFAULT_PACKET if column == CENTER else SINGLE
        cell = self.desktop.scroll_to(self.primes, row, column)
        base, waves = self.fields["base"], self.fields["wave"]
        self.desktop.click(cell, f'"{text}" in the entry fields', lambda: base.text == text and selected(waves) == wave)
        if int(width or 0) <= 9:  # The list has no entry for a greater one.
            self.desktop.wait(f'the width "{width}"', lambda: selected(self.fields["width"]) == (width or "0"))
        if self.fields["width"].enabled != (column == CENTER):
            raise TourError(f"The list of widths is wrongly enabled or disabled for {wave}")
        told = " | ".join(f"{key} {value}" for key, value in self.values().items())
        self.diary.tell(f'Clicked "{text}" in row {row + 1}: {told}')

    def values(self):
        """What the entry fields show."""
        return {key: selected(self.fields[key]) if key in LISTS else self.fields[key].text
                for key in (*LISTS, *FIELDS)}

    def enter(self):
        """Presses ENTER: one more level, made of the entry fields; the editor comes up behind the composer."""
        count = self.levels.row_count()
        values = self.values()
        self.desktop.click(self.button, "one more level", lambda: self.levels.row_count() == count + 1)
        expected = level_row(count, values)
        self.desktop.wait(f"level {count} in the table", lambda: self.levels.row(count) == expected)
        self.diary.tell(f"Entered level {count}: {' | '.join(expected)}")
        if count == 1:
            self.check_front()

    def check_front(self):
        """The editor is there, and behind the composer."""
        self.desktop.window(EDITOR)
        time.sleep(SETTLED)
        if not self.window.has(State.ACTIVE):
            raise TourError("The composer is not in front after the first level")
        self.diary.tell("The editor has come up behind the composer")

    def check_used(self, cells):
        """Cells that were entered are grey, others are not; a click on a width moves the selection off most of them."""
        taken = {row for row, _ in cells}
        row = next((row for row in range(len(self.rows)) if row not in taken), 0)
        self.desktop.click(self.desktop.scroll_to(self.primes, row, WIDTH), "another row to be selected",
                           lambda: self.primes.cell(row, WIDTH).has(State.SELECTED))
        for used in cells:
            self.check_color(*used, USED)
        self.check_color(cells[0][0], WIDTH, UNUSED)
        self.diary.tell(f"Cells that were entered are {USED}, the others {UNUSED}")

    def check_color(self, row, column, color):
        """Looks at a corner of a cell, where no text stands; a selected row is marked and not looked at."""
        cell = self.desktop.scroll_to(self.primes, row, column)
        if cell.has(State.SELECTED):
            return
        left, top, _, _ = cell.place
        seen = display.color_at(left + 1, top + 1)
        if seen != color:
            raise TourError(f"Row {row + 1} of the frequencies has in column {column + 1} {seen} instead of {color}")

    # Saving, loading, closing

    def save_in_front(self):
        """File > Save is about the composer's levels, though the editor has come up meanwhile."""
        target = self.tour.files / "entered.zp2"
        self.save_as(target)
        self.diary.tell(f"File > Save leaves the {self.levels.row_count() - 1} levels in {target.stat().st_size} bytes")

    def save_as(self, target):
        """File > Save; the dialog proposes the composer's protocol name."""
        self.desktop.command(self.window, "File", "Save")
        dialog = self.desktop.wait("a file dialog", self.warning_or_dialog, dialogs_welcome=True)
        proposed = dialog.find("text", "File name").text
        if not proposed.endswith(f"{NAME}.zp2"):
            raise TourError(f'The file dialog proposes "{proposed}"')
        self.desktop.choose_file(target)
        self.desktop.wait("the saved file", target.exists)
        self.close_notice()

    def close_notice(self):
        """After a warning the progress notice stays up, and in the way."""
        notice = self.desktop.find_window("Please wait")
        if notice:
            self.desktop.close(notice)

    def warning_or_dialog(self):
        """The file dialog; before it the program may warn of a fraction that no level can hold."""
        if self.desktop.find_message(FINE):
            self.desktop.dismiss(self.desktop.message(FINE))
            self.warned = True
            self.diary.tell(f'The program says "{FINE}" and goes on with the levels in front of that one')
        return self.desktop.file_dialog()

    def discard(self):
        """Closes the composer with a level that is in no file, and the editor that came up behind it."""
        self.desktop.press_key("alt+F4")
        message = self.desktop.message(UNSAVED)
        self.tour.picture("unsaved composition", message)
        self.desktop.dismiss(message, "Don't Save")
        self.desktop.wait("the composer to close", lambda: not self.window.shown)
        self.quit_editor()
        self.check_main()

    def quit_editor(self):
        """Closes the editor, which nothing was typed into."""
        self.desktop.close(self.desktop.window(EDITOR))

    def check_main(self):
        """The main window is back, and the consolidator gone."""
        self.desktop.window(MAIN)
        if self.desktop.find_window(CONSOLIDATOR):
            raise TourError("The consolidator is still there")

    def enter_all(self):
        """Presses "Default all": every prime becomes a level, up to the fiftieth."""
        count = min(len(self.rows), MOST_LEVELS)
        self.desktop.click(self.desktop.control(self.window, "push button", "Default all"), "the levels",
                           lambda: self.levels.row_count() == count + 1, dialogs_welcome=True)
        if len(self.rows) > MOST_LEVELS:
            message = self.desktop.message("maximum 50 levels has been exceeded")
            self.tour.picture("too many primes", message)
            self.desktop.dismiss(message)
        self.tour.picture("all entered", self.window)
        for number in range(1, count + 1):
            row, prime = self.levels.row(number), self.rows[number - 1][PRIME]
            if row[:4] != [str(number), SINGLE, prime, "1"]:
                raise TourError(f'Level {number} is {" | ".join(row)} instead of a {SINGLE} of "{prime}"')
        self.diary.tell(f"{count} of {len(self.rows)} primes became levels")

    def save(self):
        """File > Save to composed.zp2."""
        target = self.tour.files / "composed.zp2"
        self.save_as(target)
        shutil.copyfile(target, self.diary.folder / target.name)
        self.diary.tell(f"Saved {target.stat().st_size} bytes")

    def load(self):
        """Zephon > Load Direct into the list's bank."""
        self.desktop.command(self.window, "Zephon", "Load Direct")
        window = self.desktop.window("Load Direct")
        self.tour.connected(window)
        self.tour.load_into(LIST_BANK, window, "Load")
        self.desktop.close(window)
        self.quit_editor()
        self.tour.read_bank(LIST_BANK, "bank8.hex")

    def close_composer(self):
        """What was saved is closed without a question."""
        self.desktop.close(self.window)
        self.check_main()


def level_row(number, values):
    """The row of the levels' table that ENTER makes of the entry fields' values, in minutes and seconds."""
    single = values["wave"] == SINGLE
    frequencies = int(values["width"]) * STEPS[values["wave"]] + 1
    return [str(number), values["wave"], values["base"], "1" if single else values["width"], str(frequencies),
            values["time"], total_time(values["time"], frequencies), values["pulse"], values["rate"], values["shape"],
            values["duty"], values["output"]]


def total_time(each, frequencies):
    """So many times a time; its seconds, where they are carried, go below 0 by sixty times all the minutes."""
    minutes, seconds = (int(part or 0) * frequencies for part in each.split(":"))
    if minutes > 59:
        minutes -= minutes // 60 * 60
    if seconds > 59:
        minutes += seconds // 60
        seconds -= minutes * 60
    return f"{minutes}:{'0' if seconds < 10 else ''}{seconds}"
