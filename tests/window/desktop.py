"""The program on a display with a window manager, used as a person would: with the keyboard, and
with the accessibility interface to find the controls on the screen."""

import json
import os
import pathlib
import shutil
import subprocess
import tempfile

import gi

from display import active_title, keys, output_of, type_text, wait_for

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LIMIT = 60  # seconds for the program to end

# On a busy machine the program may answer later than within the usual second.
Atspi.set_timeout(10_000, 30_000)


def has_state(node, state):
    return node.get_state_set().contains(state)


def role_of(node):
    """What a screen reader calls the kind of the control. Newer ones say "button" for short."""
    name = node.get_role_name()
    return "push button" if name == "button" else name


def text_in(field):
    return Atspi.Text.get_text(field, 0, -1)


def children(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child:
            yield child


# What has only entries of these roles: perhaps thousands, which are not worth a look for other roles.
ENTRIES = {"list": ("list item",), "tree": ("tree item", "table cell"),
           "table": ("table cell", "table column header"), "menu bar": ("menu item",)}


def showing(node, role=None):
    """The node and its descendants that are on the screen; with a role, those at least that have
    it."""
    if not has_state(node, Atspi.StateType.SHOWING):
        return
    yield node
    if role and role not in ENTRIES.get(role_of(node), (role,)):
        return
    for child in children(node):
        yield from showing(child, role)


def with_keyboard(node):
    """Of the node and its descendants on the screen those that have the keyboard. An entry has it
    only with its list."""
    states = node.get_state_set()
    if not states.contains(Atspi.StateType.SHOWING):
        return
    if states.contains(Atspi.StateType.FOCUSED):
        yield node
    elif role_of(node) in ("list", "tree", "table"):
        return
    for child in children(node):
        yield from with_keyboard(child)


def heard_name(node):
    """The text that a screen reader says: the label's, if the control has one, else its name. The
    group around a control also counts as a label, but it names the group."""
    for relation in node.get_relation_set():
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            for index in range(relation.get_n_targets()):
                if role_of(relation.get_target(index)) == "label":
                    return relation.get_target(index).get_name()
    return node.get_name()


def mp3(seconds):
    """A song of that length: the header of a frame with 4000 bytes a second, then zeros."""
    return bytes([0xFF, 0xFB, 0x10, 0x00]) + bytes(seconds * 4000 + 96)


class Home:
    """The home folder of a person who has unpacked the program there."""

    def __init__(self, build):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="repvolta-window-"))
        self.build = pathlib.Path(build)
        self.music = self.folder / "Music"
        self.program = self.folder / "program"
        self.program.mkdir()
        self.music.mkdir()
        built = self.build / "bin"
        shutil.copy(built / "repvolta", self.program)
        shutil.copytree(built / "voice", self.program / "voice")
        shutil.copytree(built / "exercise", self.program / "exercise")

    def add_song(self, name, seconds):
        (self.music / name).write_bytes(mp3(seconds))
        return str(self.music / name)

    def records(self, name):
        """The content of a file of the program directory."""
        return json.loads(output_of(self.build / "tests" / "show_records", self.program / name))

    def close(self):
        shutil.rmtree(self.folder)


class Program:
    """The running program."""

    TITLE = "Repvolta - Exercise Management for your MP3 Player"

    def __init__(self, home, display, prefix=()):
        """Starts the program on the display, through the command `prefix` if there is one."""
        self.home = home
        self.environment = dict(os.environ, HOME=str(home.folder), XDG_RUNTIME_DIR=str(home.folder),
                                XDG_CONFIG_HOME=str(home.folder / ".config"),
                                QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", **display.environment)
        self.process = subprocess.Popen([*prefix, home.program / "repvolta"], env=self.environment,
                                        cwd="/", stderr=subprocess.DEVNULL)
        self.application = wait_for("the program on the accessibility bus", self._application)

    def _application(self):
        """The program on the accessibility bus. The cache of the desktop's children is cleared
        first, since only an event loop would update it."""
        self._check_running()
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for application in children(desktop):
            try:
                if application.get_process_id() == self.process.pid:
                    application.set_cache_mask(Atspi.Cache.NONE)
                    return application
            except GLib.Error:
                pass  # one that has just ended
        return None

    def _check_running(self):
        assert self.process.poll() is None, f"the program has ended with {self.process.returncode}"

    def describe(self):
        """What is on the screen, as a screen reader hears it."""
        lines = [f"the keyboard is in {active_title()!r}"]
        for window in children(self.application):
            lines += [f"{role_of(node)} {node.get_name()!r}"
                      + (" focused" if has_state(node, Atspi.StateType.FOCUSED) else "")
                      for node in showing(window)]
        return "\n".join(lines)

    def wait_for(self, what, condition, limit=LIMIT):
        def met():
            self._check_running()
            return condition()
        try:
            return wait_for(what, met, limit)
        except AssertionError as error:
            try:
                error.add_note(self.describe())
            except GLib.Error:
                error.add_note("the program does not answer")
            raise

    def window(self, title):
        """The window with that title, once it has the keyboard."""
        def found():
            self._check_running()
            for window in children(self.application):
                if window.get_name() == title and active_title() == title:
                    if has_state(window, Atspi.StateType.ACTIVE):
                        return window
            return None
        return self.wait_for(f"the window {title!r}", found)

    def main(self):
        return self.window(self.TITLE)

    def controls(self, window, role=None, name=None):
        return [node for node in showing(window, role)
                if (role is None or role_of(node) == role)
                and (name is None or name in (node.get_name(), heard_name(node)))]

    def find(self, window, role, name):
        found = self.wait_for(f"the {role} {name!r}", lambda: self.controls(window, role, name))
        assert len(found) == 1, f"{len(found)} times {role} {name!r}"
        return found[0]

    def focus(self, control):
        self.wait_for(f"{control.get_name()!r} to be enabled",
                      lambda: has_state(control, Atspi.StateType.ENABLED))
        if role_of(control) in ("list", "combo box"):
            self._tab_to(control)  # which no assistive tool can do for it
        else:
            control.grab_focus()
        self.wait_for(f"the focus on {control.get_name()!r}",
                      lambda: has_state(control, Atspi.StateType.FOCUSED))

    def focused(self, window):
        """The controls that have the keyboard."""
        return list(with_keyboard(window))

    def next_control(self, window):
        """Presses the Tab key and returns the control that it leads to."""
        before = self.focused(window)

        def moved():
            now = self.focused(window)
            return now if now != before else None
        keys("Tab")
        return self.wait_for("the focus to move", moved)

    def _tab_to(self, control):
        window = self.window(active_title())
        for _ in range(100):
            if has_state(control, Atspi.StateType.FOCUSED):
                return
            self.next_control(window)

    def press(self, name, window=None, role="push button"):
        """Goes to a button or box and presses the space bar."""
        self.focus(self.find(window or self.main(), role, name))
        keys("space")

    def type_into(self, field, text):
        """Types into the field that has the keyboard and checks that all characters arrived."""
        if text.isascii():
            type_text(text)
        else:
            field.set_text_contents(text)  # no key of the display's keyboard gives it
        self.wait_for(f"{text!r} in the field", lambda: text_in(field) == text)

    def _closed(self, box):
        # The program may end with its last box.
        wait_for("the box to close", lambda: self.process.poll() is not None
                 or box not in list(children(self.application)))

    def message(self, title, button="Return"):
        """Waits for a box, closes it with a key, and returns its text."""
        box = self.window(title)
        text = self.wait_for("the text of the box", lambda: [
            label.get_name() for label in self.controls(box, "label") if label.get_name()])
        keys(button)
        self._closed(box)
        return text[0]

    def answer(self, title, text):
        """Types the answer of an input box and returns what it asked."""
        box = self.window(title)
        prompt = self.wait_for("the question", lambda: [
            label.get_name() for label in self.controls(box, "label")])
        field = self.wait_for("the field", lambda: self.controls(box, "text"))
        self.wait_for("the keyboard in the field",
                      lambda: has_state(field[0], Atspi.StateType.FOCUSED))
        self.type_into(field[0], text)
        keys("Return")
        self._closed(box)
        return prompt[0]

    def _entries(self, control):
        return [item for item in children(control) if role_of(item) == "list item"]

    def items(self, name, role="list", window=None):
        control = self.find(window or self.main(), role, name)
        texts = []

        def read():
            texts[:] = [item.get_name() for item in self._entries(control)]
            return True
        self.wait_for(f"the entries of {name!r}", read)
        return texts

    def select(self, name, item, window=None):
        """Goes to a list and to one of its entries, by text or number. It waits for the effect of
        each key, or a slow moment would lead past the entry."""
        control = self.find(window or self.main(), "list", name)
        self.focus(control)

        def goal():
            texts = [entry.get_name() for entry in self._entries(control)]
            if isinstance(item, int):
                return [item] if item < len(texts) else []
            return [texts.index(item)] if item in texts else []

        def selected():
            return [number for number, entry in enumerate(self._entries(control))
                    if has_state(entry, Atspi.StateType.SELECTED)]
        wanted = self.wait_for(f"{item!r} in {name!r}", goal)
        before = selected()
        while before != wanted:
            def moved():
                now = selected()
                return now if now != before else None
            keys("space" if not before else "Down" if before < wanted else "Up")
            before = self.wait_for("the selection to move", moved)

    def tab(self, title):
        """Steps through the tabs until that one is shown."""
        def shown():
            # The tab bar has the name of the shown tab.
            return self.controls(self.main(), "page tab list")[0].get_name()
        strip = self.wait_for("the tabs", lambda: self.controls(self.main(), "page tab list"))[0]
        titles = [tab.get_name() for tab in children(strip) if role_of(tab) == "page tab"]
        before = shown()
        while before != title:
            behind = titles.index(title) - titles.index(before)
            keys("ctrl+Next" if behind > 0 else "ctrl+Prior")
            before = self.wait_for("the tab to turn",
                                   lambda: [now for now in [shown()] if now != before])[0]

    def choose(self, menu, line):
        """Opens a menu at F10 and goes to one of its lines."""
        keys("F10")
        self._walk("Right", menu)
        self._walk("Down", line)
        keys("Return")

    def _walk(self, key, name):
        def names():
            return [node.get_name().partition("\t")[0] for window in children(self.application)
                    for node in self.focused(window) if role_of(node) == "menu item"]
        for _ in range(50):
            before = self.wait_for("the menu", names)
            if name in before:
                return
            keys(key)
            self.wait_for("the menu to move", lambda: names() not in ([], before))
        raise AssertionError(f"no line {name!r} is in the menu")

    def exit(self):
        self.press("Exit")
        return self.process.wait(LIMIT)

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait(LIMIT)
