# SPDX-License-Identifier: MIT
"""A virtual display of its own for the tour: X server, session bus and window manager, none of them the user's."""

import os
import re
import subprocess
import time
from pathlib import Path

from . import TourError, children

SCREEN = "1280x1024x24"
FONTS = """\
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  <alias binding="same"><family>sans-serif</family><prefer><family>Liberation Sans</family></prefer></alias>
</fontconfig>
"""  # else the font of message boxes goes by what is installed
LAYOUTS = "us,ru"  # else xdotool changes the keyboard for each foreign letter, quicker than programs notice
NEEDED = ("Xvfb", "setxkbmap", "openbox", "dbus-daemon", "xdotool", "xwininfo", "import", "pdftotext", "pdftohtml",
          "pdftoppm", "pdfinfo")


def start_display(folder):
    """Starts the display; its home and runtime folders are made in "folder". Changes this process's environment."""
    check_tools()
    use_homes(folder)
    os.environ["QT_QPA_PLATFORM"] = "xcb"
    with open(folder / "display.log", "ab") as log:
        start_x(log)
        subprocess.run(["setxkbmap", LAYOUTS], stdout=log, stderr=log, stdin=subprocess.DEVNULL, check=True, timeout=60)
        start_bus(log)
        children.start(["openbox"], stdout=log, stderr=log)
    wait_for_window_manager()


def use_homes(folder):
    """Makes home and runtime folders in "folder", and nothing of the user's session reaches the program."""
    home = make_folder(folder / "home")
    runtime = make_folder(folder / "runtime")
    (make_folder(home / ".config/fontconfig") / "fonts.conf").write_text(FONTS, encoding="utf-8")
    for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE", "QT_SCALE_FACTOR"):
        os.environ.pop(name, None)
    os.environ.update({
        "HOME": str(home), "XDG_RUNTIME_DIR": str(runtime), "XDG_CONFIG_HOME": str(home / ".config"),
        "XDG_DATA_HOME": str(home / ".local/share"), "XDG_STATE_HOME": str(home / ".local/state"),
        "LC_ALL": "C.UTF-8",
        "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "XDG_CURRENT_DESKTOP": "",
    })


def make_folder(path):
    """A folder for this user alone, as the runtime folder has to be."""
    path.mkdir(parents=True, mode=0o700)
    return path


def check_tools():
    """Says in one line which programs are missing."""
    missing = [tool for tool in NEEDED if not any((Path(place) / tool).exists() for place in os.get_exec_path())]
    if missing:
        raise TourError(f"Not installed: {', '.join(missing)} (the packages are listed in tools/packages/tour)")


def start_x(log):
    """Starts the X server on the first display that is free."""
    command = ["Xvfb", "-screen", "0", SCREEN, "-nolisten", "tcp", "-noreset"]
    reading, writing = os.pipe()
    children.start([*command, "-displayfd", str(writing)], pass_fds=[writing], stdout=log, stderr=log)
    os.environ["DISPLAY"] = ":" + first_line(reading, writing, "The X server")


def start_bus(log):
    """Starts the session bus, over which the accessibility services are found."""
    reading, writing = os.pipe()
    children.start(["dbus-daemon", "--session", "--nofork", f"--print-address={writing}"], pass_fds=[writing],
                   stdout=log, stderr=log)
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = first_line(reading, writing, "The session bus")


def wait_for_window_manager(patience=30.0):
    """Waits until windows are managed: one that comes up at the same moment may stay unseen."""
    deadline = time.monotonic() + patience
    while b"window id" not in subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], capture_output=True,
                                             check=False).stdout:
        if time.monotonic() > deadline:
            raise TourError("The window manager did not start")
        time.sleep(0.05)


def first_line(reading, writing, who):
    """What a server tells of itself when it is ready; an ended server tells nothing."""
    os.close(writing)
    with os.fdopen(reading) as pipe:
        line = pipe.readline().strip()
    if not line:
        raise TourError(f"{who} did not start")
    return line


def screenshot(path, place=None):
    """Saves the screen, or its part "place" (left, top, width, height), as a PNG."""
    crop = ["-crop", "{2}x{3}+{0}+{1}".format(*place), "+repage"] if place else []
    done = subprocess.run(["import", "-silent", "-window", "root", *crop, str(path)], stdin=subprocess.DEVNULL,
                          capture_output=True, text=True, timeout=60, check=False)
    if done.returncode != 0:
        raise TourError(f"No picture could be taken: {done.stderr.strip()}")


def color_at(left, top):
    """The colour of one point of the screen, such as "#C0C0C0"."""
    done = subprocess.run(["import", "-silent", "-window", "root", "-crop", f"1x1+{left}+{top}", "-depth", "8", "txt:-"],
                          stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=60, check=False)
    found = re.search("#[0-9A-F]{6}", done.stdout)
    if not found:
        raise TourError(f"No colour could be read: {done.stderr.strip()}")
    return found[0]


def framed(place):
    """A window's place with the window manager's frame, cut at the edges of the screen."""
    left, top, width, height = place
    return max(left - 6, 0), max(top - 28, 0), width + 6 + min(left, 6), height + 6 + min(top, 28)
