"""A person who uses the window and whose every act is counted."""

import dataclasses
import re

from desktop import Atspi, children, has_state, heard_name, role_of, showing, text_in
from display import active_title, keys, output_of, type_text

SECOND_CLICK = 60  # milliseconds after the first one


@dataclasses.dataclass
class Count:
    """What a task has cost. A double click is two clicks, Ctrl+N one key."""

    clicks: int = 0
    keys: int = 0
    typed: int = 0  # characters of names and numbers
    boxes: int = 0
    looks: int = 0  # into the guide
    impossible: list = dataclasses.field(default_factory=list)
    known: list = dataclasses.field(default_factory=list)  # (what, the text that says it, or None)

    def acts(self):
        return self.clicks + self.keys

    def __add__(self, other):
        return Count(*(getattr(self, field.name) + getattr(other, field.name)
                       for field in dataclasses.fields(self)))


class Person:
    """Clicks, presses keys, types, and reads the screen of a running program."""

    def __init__(self, program):
        self.program = program
        self.count = Count()

    # --- acting

    def _point_at(self, node):
        place = node.get_extents(Atspi.CoordType.SCREEN)
        assert place.width > 0 and place.height > 0, f"{node.get_name()!r} is not to be seen"
        x, y = place.x + min(place.width // 2, 60), place.y + place.height // 2
        output_of("xdotool", "mousemove", str(x), str(y))

    def click(self, node, times=1, holding=None):
        self.program.wait_for(f"{node.get_name()!r} to be enabled",
                              lambda: has_state(node, Atspi.StateType.ENABLED))
        self._point_at(node)
        if holding:
            output_of("xdotool", "keydown", holding)
        output_of("xdotool", "click", "--repeat", str(times), "--delay", str(SECOND_CLICK), "1")
        if holding:
            output_of("xdotool", "keyup", holding)
        self.count.clicks += times

    def double_click(self, node):
        self.click(node, 2)

    def press(self, name, window=None, role="push button"):
        """Clicks a button or box of the window."""
        self.click(self.program.find(window or self.program.main(), role, name))

    def key(self, *names):
        keys(*names)
        self.count.keys += len(names)

    def type(self, text):
        type_text(text)
        self.count.typed += len(text)

    def type_into(self, field, text):
        """Types a name or number into the field that has the keyboard."""
        self.program.wait_for("the keyboard in the field",
                              lambda: has_state(field, Atspi.StateType.FOCUSED))
        before = text_in(field)
        self.type(text)
        self.program.wait_for(f"{text!r} in the field", lambda: text_in(field) != before
                              and text_in(field).endswith(text))

    # --- boxes

    def box(self, title):
        """A box that has opened."""
        box = self.program.window(title)
        self.count.boxes += 1
        return box

    def confirm(self, title, key="Return"):
        """Reads a message and closes it with one key. Returns its text."""
        box = self.box(title)
        text = self.program.wait_for("the text of the box", lambda: " ".join(
            label.get_name() for label in self.program.controls(box, "label")))
        self.key(key)
        self.gone(box)
        return text

    def answer(self, title, text):
        """Types the answer of an input box."""
        box = self.box(title)
        field = self.program.wait_for("the field", lambda: self.program.controls(box, "text"))[0]
        self.type_into(field, text)
        self.key("Return")
        self.gone(box)

    def gone(self, box):
        self.program.wait_for("the box to close",
                              lambda: box not in list(children(self.program.application)))

    # --- reading

    def texts(self):
        """Everything that can be read or heard in the window that has the keyboard, with the tool
        tips, a line each."""
        window = self.program.window(active_title())
        lines = []
        for node in showing(window):
            parts = [node.get_name(), heard_name(node), node.get_description()]
            if role_of(node) == "text":
                parts.append(text_in(node))
            lines += [part for part in dict.fromkeys(parts) if part]
        return lines

    def tool_tip(self, node):
        """The text that appears when the mouse rests on a row; empty when none does."""
        output_of("xdotool", "mousemove", "0", "0")
        self._point_at(node)
        place = node.get_extents(Atspi.CoordType.SCREEN)
        output_of("xdotool", "mousemove", str(place.x + 20), str(place.y + place.height // 2))

        def shown():
            for window in children(self.program.application):
                if role_of(window) == "tool tip":
                    return window.get_name() or window.get_description()
            return None
        try:
            return self.program.wait_for("the tool tip", shown, 2)
        except AssertionError:
            return ""

    def reads(self, pattern, rest_on=()):
        """The text on the screen, or in the tool tips of those rows, that has the pattern."""
        for text in self.texts() + [self.tool_tip(node) for node in rest_on]:
            if re.search(pattern, text, re.DOTALL | re.IGNORECASE):
                return " ".join(text.split())
        return None

    def must_know(self, what, pattern, rest_on=()):
        """What a person must know to go on is on the screen, or is looked up in the guide, once in
        a task."""
        found = self.reads(pattern, rest_on)
        if (what, found) not in self.count.known:
            self.count.known.append((what, found))
            self.count.looks += found is None
        return found is not None

    def cannot(self, what):
        """The window has no way to do that."""
        self.count.impossible.append(what)
