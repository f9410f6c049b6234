# SPDX-License-Identifier: MIT
"""The tour's prints: four windows' reports, each set up in its window and sent to a PDF file by the print dialog."""

import subprocess

from . import TourError
from .places import COMPOSER, CONSOLIDATOR, EDITOR, READER

PAGE_SETUP = "Page Setup"
QC = "Zephon Data"
PRINTER = "Print to File (PDF)"
FOOTER = "As seen on the tour"
BEHIND_NAME = ", as typed"  # added to the editor's heading, whose name is made bold
QC_FIELDS = {"Device": "Zephon Serial#: 0042", "Assigned to": "Assigned to: The tour", "Checked by": "Qc'd by: Nobody",
             "Date": "2001-02-03", "Protocol": "as read back"}  # a fixed date, for the page to be the same every day


class Printing:
    """Each method prints a window that shows its data already."""

    def __init__(self, tour):
        self.tour = tour
        self.desktop = tour.desktop
        self.folder = tour.diary.folder

    def print_list(self):
        """The consolidator's list; its footer stays for the windows to come."""
        window = self.desktop.window(CONSOLIDATOR)
        setup = self.set_up(window, "Print")
        self.desktop.fill(self.desktop.control(setup, "text", "Footer"), FOOTER)
        self.print("list", setup)
        first = self.desktop.control(window, "text", "Frequency List").text.split(", ")[:5]
        self.check("list", self.desktop.control(window, "text", "Protocol Name").text, ", ".join(first), FOOTER)

    def print_composer(self):
        """The composer's levels, under the footer of the print before.

        While the editor stands behind the composer, it would be the editor that is printed.
        """
        window = self.desktop.window(COMPOSER)
        self.print("composer", self.set_up(window, PAGE_SETUP))
        table = self.desktop.control(window, "table", "Protocol")
        self.check_levels("composer", table, self.totals(window, "Total Freqs.", "Total Bank Time"))
        self.check("composer", self.desktop.control(window, "text", "Protocol Name").text, FOOTER)

    def print_editor(self):
        """The editor's levels, with the protocol's name in bold."""
        window = self.desktop.window(EDITOR)
        setup = self.set_up(window, "Print")
        name = self.desktop.control(window, "text", "Editing File").text
        self.desktop.fill(self.desktop.control(setup, "text", "Footer"), FOOTER)
        self.write_heading(setup, name)
        self.tour.picture("page setup", setup)
        self.print("editor", setup, lambda dialog: self.tour.picture("print dialog", dialog))
        table = self.desktop.control(window, "table", "Protocol Listing")
        self.check_levels("editor", table, self.totals(window, "Total Freqs.", "Total Bank Time"))
        self.check("editor", name + BEHIND_NAME, FOOTER)
        if f"<b>{name}</b>{BEHIND_NAME}" not in told_by("pdftohtml", "-xml", "-stdout", self.folder / "editor.pdf"):
            raise TourError("The name is not in bold on the editor's page")

    def print_reading(self):
        """The bank read, with the line of quality control above it."""
        window = self.desktop.window(READER)
        setup = self.set_up(window, PAGE_SETUP, QC)
        for label, text in QC_FIELDS.items():
            self.desktop.fill(self.desktop.control(setup, "text", label), text)
        self.tour.picture("quality control", setup)
        self.print("reading", setup)
        table = self.desktop.control(window, "table", "Bank Listing")
        self.check_levels("reading", table, self.totals(window, "Total Frequencies", "Total Time"))
        self.check("reading", *QC_FIELDS.values(), self.desktop.control(window, "text", "Bank").text, FOOTER)

    # Printing

    def set_up(self, window, entry, title=PAGE_SETUP):
        """Chooses an entry of the File menu and gives the window in which the page is set up."""
        self.desktop.command(window, "File", entry)
        return self.desktop.window(title)

    def write_heading(self, setup, name):
        """Types behind the heading and makes what stood there bold."""
        heading = self.desktop.control(setup, "text", "Header")
        self.desktop.wait("the name as heading", lambda: heading.text == name)
        self.desktop.fill(heading, name + BEHIND_NAME)
        self.desktop.press_key("ctrl+Home", *["shift+Right"] * len(name))
        self.desktop.wait("the name to be selected", lambda: heading.selected_text == name)
        bold = self.desktop.control(setup, "push button", "Header Bold")
        self.desktop.click(bold, "the name in bold", lambda: heading.bold_at(0) and not heading.bold_at(len(name)))

    def print(self, name, setup, before=lambda dialog: None):
        """Presses "Print" and sends the page to a PDF file; "before" sees the print dialog filled in.

        A picture of the page comes beside it.
        """
        target = self.folder / f"{name}.pdf"
        dialog = self.desktop.click(self.desktop.control(setup, "push button", "Print"), "the print dialog",
                                    self.print_dialog)
        self.desktop.choose(self.desktop.control(dialog, "combo box", "Name"), PRINTER)
        self.desktop.fill(self.desktop.control(dialog, "text", "Output file"), str(target))
        before(dialog)
        self.desktop.click(self.desktop.control(dialog, "push button", "Print"), "the print dialog to close",
                           lambda: not dialog.shown)
        self.desktop.wait("the printed file", target.exists)
        self.desktop.wait(f'"{setup.name}" to go', lambda: not setup.shown)
        told_by("pdftoppm", "-png", "-r", "100", "-singlefile", target, self.folder / f"{name}-page")
        self.tour.diary.tell(f"Printed {target.name}, {target.stat().st_size} bytes")

    def print_dialog(self):
        """The system's print dialog, or None."""
        return next((window for window in self.desktop.windows() if window.find("text", "Output file")), None)

    # Looking at the page

    def totals(self, window, frequencies, time):
        """The line of totals as it has to stand on the page."""
        used = self.desktop.control(window, "text", frequencies).text
        return f"Total frequencies used: {used} Total time: {self.desktop.control(window, 'text', time).text}"

    def check_levels(self, name, table, totals):
        """Every level begins a line of its own, in order, and the totals come behind them."""
        firsts = [line.split()[0] for line in self.lines(name, "-layout")]
        numbers = [str(row) for row in range(1, table.row_count())]
        wanted = ["Level", *numbers, "Total"]
        begin = firsts.index("Level") if "Level" in firsts else 0
        if firsts[begin:begin + len(wanted)] != wanted:
            raise TourError(f"The lines of {name}.pdf begin with {' '.join(firsts)}")
        self.check(name, totals)

    def check(self, name, *texts):
        """All texts stand on the page, each for itself, whatever it runs into."""
        page = "\n".join(self.lines(name, "-raw"))
        for text in texts:
            if text not in page:
                raise TourError(f'"{text}" does not stand in {name}.pdf')

    def lines(self, name, order):
        """The lines of a page that are not blank, with single blanks between their words."""
        told = told_by("pdftotext", order, self.folder / f"{name}.pdf", "-")
        return [" ".join(line.split()) for line in told.splitlines() if line.strip()]


def told_by(*command):
    """What a program writes to its output; it must succeed."""
    done = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, capture_output=True, text=True,
                          timeout=60, check=False)
    if done.returncode != 0:
        raise TourError(f"{command[0]} fails: {done.stderr.strip()}")
    return done.stdout
