# SPDX-License-Identifier: MIT
"""The emulated generator beside the program: started, keyed and asked over its standard input."""

import queue
import subprocess
import threading

from . import TourError, children

PATIENCE = 30.0  # seconds for an answer; the machine may be busy


class Emulator:
    """The running zephon-emulator. Every command's answer ends with a line "ok" or "error: ..."."""

    def __init__(self, program, log_path):
        with open(log_path, "wb") as log:
            self._process = children.start([str(program)], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=log,
                                           text=True, bufsize=1)
        self._lines = queue.SimpleQueue()
        threading.Thread(target=self._listen, daemon=True).start()
        self.greeting = list(iter(lambda: self._line("at its start"), "ready"))

    def _listen(self):
        for line in self._process.stdout:
            self._lines.put(line.rstrip("\n"))
        self._lines.put(None)

    def _line(self, doing):
        try:
            line = self._lines.get(timeout=PATIENCE)
        except queue.Empty:
            raise TourError(f"The emulator says nothing for {PATIENCE:.0f} s {doing}") from None
        if line is None:
            raise TourError(f"The emulator ended {doing}")
        return line

    def ask(self, command):
        """The lines of a command's answer, without the closing "ok"."""
        try:
            self._process.stdin.write(command + "\n")
            self._process.stdin.flush()
        except OSError as error:
            raise TourError(f"The emulator takes no command: {error}") from error
        answer = []
        while True:
            line = self._line(f'after "{command}"')
            if line == "ok":
                return answer
            if line.startswith("error:"):
                raise TourError(f'The emulator answers "{command}" with: {line}')
            answer.append(line)
