# SPDX-License-Identifier: MIT
"""The tour's look at the help and the manual, which share a window."""

import re

from . import TourError
from .places import HELP, MAIN
from .printing import told_by

TITLE = "Help for Tessit Control"
WORD = "duplicates"
NO_WORD = "zzyzx"


class Documents:
    """The steps, from the main window and back to it."""

    def __init__(self, tour):
        self.tour = tour
        self.desktop = tour.desktop

    def run(self):
        """The help, a word in it, and the manual in its place."""
        self.open_help()
        self.find()
        self.display_manual()
        self.desktop.close(self.window)

    def open_help(self):
        """Help > Open Help File."""
        self.desktop.command(self.desktop.window(MAIN), "Help", "Open Help File")
        self.window = self.desktop.window(HELP)
        self.page = self.desktop.wait("the help's text", self.find_page)
        self.tour.picture("help", self.window)
        self.tour.diary.tell(f"The help shows {len(self.page.text)} characters")

    def find_page(self):
        """The control that shows the help, or None."""
        return next((part for part in self.window.below() if TITLE in part.text), None)

    def find(self):
        """Ctrl+F: a word that stands on the page is marked, any other is told to be missing."""
        self.desktop.focus(self.page)
        self.desktop.press_key("ctrl+f")
        field = self.desktop.control(self.window, "text", "Find")
        self.desktop.fill(field, WORD)
        self.desktop.wait("the word to be marked", lambda: self.page.selected_text.lower() == WORD)
        self.tour.picture("word found", self.window)
        self.desktop.fill(field, NO_WORD)
        self.desktop.wait('the words "Not found"', lambda: self.window.find("label", "Not found"))
        self.desktop.press_key("Escape")
        self.desktop.wait("the find bar to go", lambda: not field.shown)
        self.tour.diary.tell(f'Found "{WORD}" in the help, and no "{NO_WORD}"')

    def display_manual(self):
        """Help > Display Manual: the page count tells that the manual has taken the help's place."""
        pages = page_count(self.tour.files / "program" / "manual.pdf")
        self.desktop.command(self.window, "Help", "Display Manual")
        self.desktop.wait(f"page 1 of {pages}", lambda: self.window.find("label", f"Page 1 of {pages}"))
        windows = [window for window in self.desktop.windows() if window.name == HELP]
        if len(windows) != 1 or self.page.shown:
            raise TourError("The manual does not take the help's place")
        self.tour.picture("manual", self.window)
        self.tour.diary.tell(f"The manual's {pages} pages show in the help's window")


def page_count(pdf):
    """How many pages a PDF file has."""
    return int(re.search(r"^Pages:\s+(\d+)", told_by("pdfinfo", pdf), re.MULTILINE)[1])
