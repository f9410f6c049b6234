# SPDX-License-Identifier: MIT
"""What a tour leaves behind: its folder, the log of its steps and the pictures, numbered in the order taken."""

import re
import time


LEFT = ("protocol.zp2", "table.tsv", "bank.hex", "readback.tsv", "protocol.tab", "list.txt", "duplicates.txt",
        "primes.tsv", "composed.zp2", "bank8.hex", "editor.pdf", "composer.pdf", "list.pdf", "reading.pdf",
        "editor-page.png", "composer-page.png", "list-page.png", "reading-page.png", "feedback.eml", "contact.eml",
        "online-help.eml", "tour.log", "display.log", "emulator.log", "program.log", "mail-server.log")


class Diary:
    """Writes tour.log in "folder" and on the terminal."""

    def __init__(self, folder):
        folder.mkdir(parents=True, exist_ok=True)
        for name in LEFT:
            (folder / name).unlink(missing_ok=True)  # Nothing of an earlier tour shall pass for this one's.
        for picture in folder.glob("[0-9][0-9]-*.png"):
            picture.unlink()
        self.folder = folder
        self._log = open(folder / "tour.log", "w", encoding="utf-8")
        self._start = time.monotonic()
        self._pictures = 0

    def tell(self, text):
        """Logs what was done or seen, with the seconds since the start."""
        lines = text.replace("\n", "\n" + " " * 8)
        line = f"{time.monotonic() - self._start:6.1f}  {lines}"
        print(line, flush=True)
        print(line, file=self._log, flush=True)

    def next_picture(self, name):
        """The file of the next picture."""
        self._pictures += 1
        word = re.sub(r"[^a-z0-9]+", "-", name.lower()).strip("-")
        self.tell(f"  picture {self._pictures:02}-{word}.png")
        return self.folder / f"{self._pictures:02}-{word}.png"
