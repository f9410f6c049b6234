# SPDX-License-Identifier: MIT
"""The tour's child processes: whatever it started, and whatever that started, is ended with it."""

import ctypes
import os
import signal
import subprocess
import time
from pathlib import Path

PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36
LIBC = ctypes.CDLL(None)


def adopt_orphans():
    """Makes this process the parent of all its descendants that lose theirs (the bus daemons start such)."""
    LIBC.prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


def start(command, **options):
    """A child in a process group of its own that dies with this process even when that one is killed."""
    options.setdefault("stdin", subprocess.DEVNULL)
    return subprocess.Popen(command, start_new_session=True, preexec_fn=die_with_parent, **options)


def die_with_parent():
    """Runs in the child before its program does."""
    LIBC.prctl(PR_SET_PDEATHSIG, signal.SIGKILL, 0, 0, 0)


def descendants():
    """The numbers of all processes below this one, adopted ones included."""
    parents = {}
    for stat in Path("/proc").glob("[0-9]*/stat"):
        try:
            parents.setdefault(int(stat.read_text().rpartition(")")[2].split()[1]), []).append(int(stat.parent.name))
        except OSError:
            continue  # It ended between the two looks.
    found = []
    waiting = [os.getpid()]
    while waiting:
        children = parents.get(waiting.pop(), [])
        found += children
        waiting += children
    return found


def end_all(patience=5.0):
    """Ends every descendant: asked first, killed when it has not ended after "patience" seconds."""
    for sign, seconds in ((signal.SIGTERM, patience), (signal.SIGKILL, patience)):
        deadline = time.monotonic() + seconds
        for number in descendants():
            signal_quietly(number, sign)
        while reap() and time.monotonic() < deadline:
            time.sleep(0.01)


def signal_quietly(number, sign):
    """Sends a signal to a process that may have ended already."""
    try:
        os.kill(number, sign)
    except ProcessLookupError:
        pass


def reap():
    """Collects ended children; true while there are children that live."""
    try:
        while os.waitpid(-1, os.WNOHANG)[0]:
            pass
        return True
    except ChildProcessError:
        return False
