# SPDX-License-Identifier: MIT
"""Eyes and hands: finds and reads the program's controls over AT-SPI, and acts on them with real keys and clicks.

Nothing is ever changed over AT-SPI but by act and put, for a Wayland session without hands. Every act waits until its effect is to be seen, by polling up to a deadline:
under a window manager a synthetic key can overtake a synthetic click.
"""

import functools
import math
import re
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from . import TourError  # noqa: E402

PATIENCE = 30.0  # seconds for an effect to be seen; the machine may be busy
SECOND_TRY = 5.0  # seconds after which a key is pressed again where that does no harm
WHEEL_UP, WHEEL_DOWN = 4, 5  # mouse buttons
ROWS_A_NOTCH = 3  # that the wheel scrolls a table
PAUSE = 0.02  # seconds between two looks
SEALED = {"table", "tree", "list", "menu bar"}  # their cells and entries are asked for by themselves
LEAVES = {"check box", "label", "push button", "radio button", "separator", "text"}  # have nothing in them
State = Atspi.StateType


class Control:
    """One accessible object of the program. What vanishes while it is looked at reads as empty."""

    def __init__(self, node):
        self._node = node

    def _read(self, question, otherwise):
        try:
            answer = question(self._node)
        except GLib.Error:
            return otherwise  # Gone, or the program is busy.
        return otherwise if answer is None else answer

    @functools.cached_property
    def role(self):
        role = self._read(Atspi.Accessible.get_role_name, "")
        return "push button" if role == "button" else role  # what Debian 13 calls it

    @property
    def name(self):
        return self._read(Atspi.Accessible.get_name, "")

    @property
    def description(self):
        return self._read(Atspi.Accessible.get_description, "")

    @property
    def text(self):
        """What stands in a text field."""
        return self._read(lambda node: Atspi.Text.get_text(node, 0, -1), "")

    @property
    def selected_text(self):
        """The selected part of a text."""
        range_ = self._read(lambda node: Atspi.Text.get_selection(node, 0), None)
        return self.text[range_.start_offset:range_.end_offset] if range_ else ""

    def bold_at(self, offset):
        """Whether a character of a text is bold."""
        styles = self._read(lambda node: Atspi.Text.get_attribute_run(node, offset, True)[0], {})
        return styles.get("weight") == "bold"

    @property
    def place(self):
        """Left, top, width and height on the screen."""
        box = self._read(lambda node: Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN), None)
        return (box.x, box.y, box.width, box.height) if box else (0, 0, 0, 0)

    def has(self, *states):
        """Whether all these states are on."""
        found = self._read(Atspi.Accessible.get_state_set, None)
        return found is not None and all(found.contains(state) for state in states)

    @property
    def shown(self):
        return self.has(State.SHOWING, State.VISIBLE) and self.place[2] > 0

    @property
    def enabled(self):
        return self.has(State.ENABLED)

    def children(self):
        """The direct children."""
        return self._first_children(self._read(Atspi.Accessible.get_child_count, 0))

    def _first_children(self, count):
        found = [self._read(lambda node, i=i: node.get_child_at_index(i), None) for i in range(count)]
        return [Control(node) for node in found if node is not None]

    def labels(self):
        """The texts by which a user knows this control."""
        labels = {self.name, self.description}
        for relation in self._read(Atspi.Accessible.get_relation_set, []):
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                labels |= {Control(relation.get_target(i)).name for i in range(relation.get_n_targets())}
        if self.role == "combo box":  # Its own name is the text that it shows; its text field carries the label.
            labels |= {child.name for child in self.children() if child.role == "text"}
        return {label.strip().rstrip(":") for label in labels} - {""}

    @property
    def label(self):
        """The longest of the labels, for telling."""
        return max(self.labels(), key=len, default=self.role)

    def below(self):
        """This control and all that is in it, but for the cells of tables and the entries of lists and menu bars."""
        yield self
        if self.role not in SEALED | LEAVES:
            for child in self.children():
                yield from child.below()

    def act(self):
        """Does what a click would, where there is no mouse. A handler that shows a dialog keeps the answer waiting."""
        self._read(lambda node: Atspi.Action.do_action(node, 0), False)

    def put(self, text):
        """Puts a text into a field, where there is no keyboard."""
        self._read(lambda node: Atspi.EditableText.set_text_contents(node, text), False)

    def child(self, role, label):
        """The shown control of a role and a label right in this one, or None."""
        fitting = (child for child in self.children() if child.role == role and label in child.labels())
        return next((child for child in fitting if child.shown), None)

    def find(self, role, label=None):
        """The shown control of a role that a user knows by a label or by the caption beside it, or None."""
        fitting = [control for control in self.below() if control.role == role]
        told = (control for control in fitting if label is None or label in control.labels())
        found = next((control for control in told if control.shown), None)
        return found or (self._find_beside(fitting, label) if fitting and label else None)

    def _find_beside(self, fitting, label):
        captions = [control for control in self.below() if control.role == "label" and label in control.labels()]
        shown = [control for control in fitting if control.shown]
        if not captions or not shown:
            return None
        return min(shown, key=lambda control: distance(captions[0].place, control.place))

    def headings(self):
        """The headings of a table, left to right; only its corner comes before them."""
        heads = self._first_children(1 + self.column_count())
        return [head for head in heads if head.role == "table column header"]

    def view(self):
        """The upper and lower edge of a table's rows on the screen."""
        _, top, _, height = self.place
        return top + max((head.place[3] for head in self.headings()), default=0), top + height

    def row_count(self):
        return self._read(Atspi.Table.get_n_rows, 0)

    def column_count(self):
        return self._read(Atspi.Table.get_n_columns, 0)

    def cell(self, row, column):
        """One cell of a table, or None."""
        node = self._read(lambda table: Atspi.Table.get_accessible_at(table, row, column), None)
        return Control(node) if node else None

    def row(self, number):
        """The texts of one row of a table."""
        cells = [self.cell(number, i) for i in range(self.column_count())]
        return [cell.name if cell else "" for cell in cells]


class Desktop:
    """The program on the screen. "process" is this one's child."""

    def __init__(self, process):
        if Atspi.init() not in (0, 1):
            raise TourError("The accessibility services did not start")
        Atspi.set_timeout(2000, 15000)
        self._process = process
        self._application = self.wait("the program to show itself", self._find_application,
                                      dialogs_welcome=True)

    def _find_application(self):
        desk = Control(Atspi.get_desktop(0))
        for child in desk.children():
            if child._read(Atspi.Accessible.get_process_id, 0) == self._process.pid:
                child._node.set_cache_mask(Atspi.Cache.NONE)  # Ask anew every time.
                return child if child.children() else None
        return None

    # Waiting

    def wait(self, what, condition, patience=PATIENCE, dialogs_welcome=False):
        """Polls until "condition" gives something true, and gives that.

        A message that comes up meanwhile is the program's refusal, unless dialogs are welcome.
        """
        deadline = time.monotonic() + patience
        while True:
            result = condition()
            if result:
                return result
            if self._process.poll() is not None:
                raise TourError(f"The program ended with {self._process.returncode} while waiting for {what}")
            if not dialogs_welcome:
                self.refuse_messages(what)
            if time.monotonic() > deadline:
                raise TourError(f"Waited {patience:.0f} s in vain for {what}")
            time.sleep(PAUSE)

    def refuse_messages(self, what):
        """Fails with the program's own words when it shows a message."""
        message = self.find_message()
        if message:
            raise TourError(f'While waiting for {what}, the program says: "{words(message)}"')

    # Finding

    def windows(self):
        """The windows to be seen."""
        return [child for child in self._application.children() if child.shown]

    def find_window(self, title):
        """The window of a title, or None."""
        return next((window for window in self.windows() if window.name == title), None)

    def window(self, title):
        """The window of a title, as soon as it is there."""
        return self.wait(f'the window "{title}"', lambda: self.find_window(title))

    def find_message(self, start=""):
        """The message whose words begin so, or None."""
        return next((window for window in self._application.children()
                     if window.role == "alert" and window.shown and words(window).startswith(start)), None)

    def control(self, window, role, label):
        """A control of a window, as soon as it is there."""
        return self.wait(f'the {role} "{label}" of "{window.name}"', lambda: window.find(role, label))

    # Acting

    def click(self, control, what, effect, from_right=None, dialogs_welcome=False, patience=PATIENCE):
        """Clicks the middle of a control, or so many points from its right edge, and waits for the effect.

        A window may still be moved by the window manager when it is clicked; a click that missed is made again.
        """
        clicked = self._click_once(control, from_right)

        def effect_or_again():
            nonlocal clicked
            result = effect()
            if not result and control.shown and control.place != clicked:
                clicked = self._click_once(control, from_right)
            return result
        return self.wait(what, effect_or_again, patience, dialogs_welcome)

    @staticmethod
    def _click_once(control, from_right):
        left, top, width, height = place = settled_place(control)
        across = width // 2 if from_right is None else width - from_right
        act("mousemove", left + across, top + height // 2, "click", 1)
        return place

    def focus(self, field):
        """Gives a field the keyboard by a click, if it hasn't got it."""
        if not field.has(State.FOCUSED):
            self.click(field, f'the keyboard to go to "{field.label}"', lambda: field.has(State.FOCUSED))

    @staticmethod
    def press_key(*keys):
        """Presses keys one after the other; where they go, and what they do, is for the caller to wait for."""
        act("key", *keys)

    def fill(self, field, text):
        """Types a text over what stands in a field."""
        if field.text == text:
            return
        self.focus(field)
        act("key", "ctrl+a")
        if text:
            act("type", "--delay", 4, "--", text)
        else:
            act("key", "BackSpace")
        self.wait(f'"{text}" to stand in "{field.label}"', lambda: field.text == text)

    def select_row(self, table, number):
        """Selects a row of a table by a click on its first cell."""
        cell = table.cell(number, 0)
        self.click(cell, f"row {number} to be selected", lambda: table.cell(number, 0).has(State.SELECTED))

    def scroll_to(self, table, row, column):
        """A cell of a table, scrolled into view with the wheel."""
        def in_view():
            cell = table.cell(row, column)
            notches = notches_to(settled_place(cell), table.view())
            if not notches:
                return cell
            left, top, width, height = table.place
            act("mousemove", left + width // 2, top + height // 2, "click", "--repeat", abs(notches), "--delay", 8,
                WHEEL_UP if notches < 0 else WHEEL_DOWN)
            return None
        return self.wait(f"row {row} to be in view", in_view)

    @staticmethod
    def shows(combo, entry):
        """Whether a list control shows an entry."""
        return selected(combo) == entry

    def choose(self, combo, entry):
        """Opens a list and chooses an entry with the arrow keys, as soon as the list is there."""
        if selected(combo) == entry:
            return
        if not combo.enabled:
            raise TourError(f'"{entry}" can\'t be chosen: "{combo.label}" is disabled')
        names = [item.name for item in entries(combo)]
        if entry not in names:
            raise TourError(f'"{combo.label}" has no "{entry}", but: {", ".join(names)}')
        wanted = self.click(combo, "the list to open", lambda: open_entry(combo, entry), from_right=9)
        act("key", "Home", *["Down"] * names.index(entry))
        self.wait(f'"{entry}" to be the marked entry', lambda: wanted.has(State.SELECTED))
        act("key", "Return")
        self.wait(f'"{entry}" to be chosen', lambda: selected(combo) == entry)

    def command(self, window, menu, entry):
        """Chooses an entry of a window's menu bar with two clicks."""
        bar = self.wait(f'the menu bar of "{window.name}"', lambda: window.find("menu bar"))
        heading = self.wait(f'the menu "{menu}"', lambda: bar.child("menu item", menu))
        item = self.click(heading, f'the menu "{menu}" to open', lambda: find_entry(heading, entry))
        if not item.enabled:
            raise TourError(f"{menu} > {entry} is disabled")
        self.click(item, f'the menu "{menu}" to close', lambda: not item.shown, dialogs_welcome=True)

    def close(self, window):
        """Closes a window by the window manager's key."""
        if not window.has(State.ACTIVE):  # by the window manager: another window may cover it
            act("search", "--onlyvisible", "--name", f"^{re.escape(window.name)}$", "windowactivate")
            self.wait(f'"{window.name}" to be in front', lambda: window.has(State.ACTIVE))
        act("key", "alt+F4")
        self.wait(f'"{window.name}" to close', lambda: not window.shown)

    def message(self, start):
        """The message that begins so, as soon as it is up and in front; any other message is a refusal."""
        def expected():
            message = self.find_message(start)
            if not message:
                self.refuse_messages(f'the message "{start}"')
            return message if message and message.has(State.ACTIVE) else None
        return self.wait(f'the message "{start}"', expected, dialogs_welcome=True)

    def dismiss(self, message, button="OK"):
        """Clicks a button of a message and waits until the message is gone."""
        found = self.wait(f'the button "{button}"', lambda: message.find("push button", button), dialogs_welcome=True)
        self.click(found, "the message to go", lambda: not message.shown, dialogs_welcome=True)

    def choose_file(self, path, before=lambda dialog: None):
        """Types a path into the file dialog that comes up and confirms it; "before" sees the dialog filled in."""
        dialog = self.wait("a file dialog", self.file_dialog)
        field = dialog.find("text", "File name")
        self.fill(field, str(path))
        before(dialog)
        self._press_until("Return", "the file dialog to close", lambda: not dialog.shown)

    def _press_until(self, key, what, effect):
        """Presses a key, and again when nothing came of it: a list of proposals may have taken the first."""
        pressed = 0.0

        def effect_or_again():
            nonlocal pressed
            if not effect() and time.monotonic() - pressed > SECOND_TRY:
                act("key", key)
                pressed = time.monotonic()
            return effect()
        self.wait(what, effect_or_again)

    def file_dialog(self):
        """The file dialog that is up, or None."""
        return next((window for window in self.windows()
                     if window.role in ("dialog", "file chooser") and window.find("text", "File name")), None)

    def wait_for_end(self):
        """Waits until the program has ended by itself, with 0."""
        deadline = time.monotonic() + PATIENCE
        while self._process.poll() is None:
            self.refuse_messages("the program to end")
            if time.monotonic() > deadline:
                raise TourError(f"Waited {PATIENCE:.0f} s in vain for the program to end")
            time.sleep(PAUSE)
        if self._process.returncode != 0:
            raise TourError(f"The program ended with {self._process.returncode}")


def act(*arguments):
    """One act of keyboard or mouse."""
    subprocess.run(["xdotool", *map(str, arguments)], check=True, stdin=subprocess.DEVNULL, timeout=60)


def distance(one, other):
    """How far apart the left upper corners of two places are."""
    return abs(one[0] - other[0]) + abs(one[1] - other[1])


def settled_place(control):
    """The place of a control, as soon as two looks find it at the same one."""
    place = None
    while place != control.place:
        place = control.place
        time.sleep(2 * PAUSE)
    return place


def notches_to(cell, view):
    """How far the wheel is to be turned, downwards above 0, for a cell to come between the edges of its view."""
    _, top, _, height = cell
    if top < view[0]:
        return -math.ceil((view[0] - top) / (height * ROWS_A_NOTCH))
    return math.ceil(max(0, top + height - view[1]) / (height * ROWS_A_NOTCH))


def open_entry(combo, entry):
    """An entry of a list that is open and has the keyboard, or None."""
    listing = combo.find("list")
    if not listing or not listing.has(State.FOCUSED):
        return None
    return next((item for item in entries(combo) if item.name == entry), None)


def words(message):
    """What a message says, its parts each on a line."""
    return "\n".join(part.name for part in message.below() if part.role == "label" and part.name)


def entries(combo):
    """The entries of a list control."""
    listing = next((part for part in combo.children() if part.role == "list"), None)
    return listing.children() if listing else []


def selected(combo):
    """The text that a list control shows."""
    field = combo.find("text")
    return field.text if field else combo.name


def find_entry(heading, entry):
    """An entry of the menu under a heading, where that is open, or None."""
    popup = heading.find("popup menu")
    return popup.child("menu item", entry) if popup else None
