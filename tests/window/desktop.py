"""A display with a window manager, and the program in front of it, used as a person would: with the
keyboard, and with the accessibility interface for finding what is on the screen."""

import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LIMIT = 60  # seconds; nothing here takes as long
PAUSE = 0.03


class Timeout(AssertionError):
    pass


def wait_for(what, condition, limit=LIMIT):
    """The first true value of the condition. Controls may come and go meanwhile."""
    end = time.monotonic() + limit
    while time.monotonic() < end:
        try:
            value = condition()
            if value:
                return value
        except GLib.Error:
            pass
        time.sleep(PAUSE)
    raise Timeout(f"waited in vain for {what}")


class Display:
    """An X server with a window manager."""

    def __init__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1400x1000x24"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            os.environ["DISPLAY"] = ":" + number.readline().strip()
        self.manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)
        wait_for("the window manager", lambda: "window id" in subprocess.run(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], capture_output=True, text=True).stdout)

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


def keys(*names):
    subprocess.run(["xdotool", "key", "--clearmodifiers", *names], check=True)


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "2", "--", text], check=True)


def active_title():
    """The title of the window that the keyboard speaks to."""
    run = subprocess.run(["xdotool", "getwindowfocus", "getwindowname"], capture_output=True,
                         text=True)
    return run.stdout.rstrip("\n")


def has_state(node, state):
    return node.get_state_set().contains(state)


def children(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child:
            yield child


def showing(node):
    """The node and all below it that is on the screen."""
    if not has_state(node, Atspi.StateType.SHOWING):
        return
    yield node
    for child in children(node):
        yield from showing(child)


def heard_name(node):
    """What a screen reader says: the text of the label, if the control has one, else its name. The
    group around a control counts as a label, too, but names the group."""
    for relation in node.get_relation_set():
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            for index in range(relation.get_n_targets()):
                if relation.get_target(index).get_role_name() == "label":
                    return relation.get_target(index).get_name()
    return node.get_name()


def mp3(seconds):
    """A file that plays that long: the header of a frame of 4000 bytes a second, then zeros."""
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
        """What a file of the program directory holds."""
        run = subprocess.run([self.build / "tests" / "show_records", self.program / name],
                             capture_output=True, check=True)
        return json.loads(run.stdout)

    def close(self):
        shutil.rmtree(self.folder)


class Program:
    """The running program."""

    TITLE = "Repvolta - Exercise Management for your MP3 Player"

    def __init__(self, home):
        self.home = home
        self.environment = dict(os.environ, HOME=str(home.folder), XDG_RUNTIME_DIR=str(home.folder),
                                XDG_CONFIG_HOME=str(home.folder / ".config"),
                                QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
        self.process = subprocess.Popen([home.program / "repvolta"], env=self.environment,
                                        cwd="/", stderr=subprocess.DEVNULL)
        self.application = wait_for("the program", self._application)

    def _application(self):
        for application in children(Atspi.get_desktop(0)):
            try:
                if application.get_process_id() == self.process.pid:
                    application.set_cache_mask(Atspi.Cache.NONE)
                    return application
            except GLib.Error:
                pass  # one that has just ended
        return None

    def window(self, title):
        """The window of that title, once the keyboard speaks to it."""
        def found():
            for window in children(self.application):
                if window.get_name() == title and active_title() == title:
                    if has_state(window, Atspi.StateType.ACTIVE):
                        return window
            return None
        return wait_for(f"the window {title!r}; the keyboard is in {active_title()!r}", found)

    def active_title_is_not(self, title):
        return active_title() != title

    def main(self):
        return self.window(self.TITLE)

    def controls(self, window, role=None, name=None):
        return [node for node in showing(window)
                if (role is None or node.get_role_name() == role)
                and (name is None or name in (node.get_name(), heard_name(node)))]

    def find(self, window, role, name):
        found = wait_for(f"the {role} {name!r}", lambda: self.controls(window, role, name))
        assert len(found) == 1, f"{len(found)} times {role} {name!r}"
        return found[0]

    def focus(self, control):
        wait_for(f"{control.get_name()!r} to be enabled",
                 lambda: has_state(control, Atspi.StateType.ENABLED))
        if control.get_role_name() == "list":
            self._tab_to(control)  # which no assistive tool can do for it
        else:
            control.grab_focus()
        wait_for(f"the focus on {control.get_name()!r}",
                 lambda: has_state(control, Atspi.StateType.FOCUSED))

    def focused(self, window):
        """What the next key goes to."""
        return [node for node in showing(window) if has_state(node, Atspi.StateType.FOCUSED)]

    def _tab_to(self, control):
        window = self.window(active_title())
        for _ in range(100):
            if has_state(control, Atspi.StateType.FOCUSED):
                return
            before = self.focused(window)
            keys("Tab")
            wait_for("the focus to move", lambda: self.focused(window) != before)

    def press(self, name, window=None, role="push button"):
        """Goes to a button or box and presses the space bar."""
        self.focus(self.find(window or self.main(), role, name))
        keys("space")

    def message(self, title, button="Return"):
        """Waits for a box, closes it with a key, and returns its text."""
        box = self.window(title)
        text = wait_for("the text of the box", lambda: [
            label.get_name() for label in self.controls(box, "label") if label.get_name()])
        keys(button)
        wait_for("the box to close", lambda: box not in list(children(self.application)))
        return text[0]

    def answer(self, title, text):
        """Types the answer of an input box and returns what it asked."""
        box = self.window(title)
        prompt = [label.get_name() for label in self.controls(box, "label")][0]
        if text.isascii():
            type_text(text)
        else:
            self.controls(box, "text")[0].set_text_contents(text)
        keys("Return")
        wait_for("the box to close", lambda: box not in list(children(self.application)))
        return prompt

    def items(self, name, role="list", window=None):
        control = self.find(window or self.main(), role, name)
        return [item.get_name() for item in children(control)
                if item.get_role_name() == "list item"]

    def select(self, name, item, window=None):
        """Goes to a list and to an entry: its text, or its number."""
        control = self.find(window or self.main(), "list", name)
        self.focus(control)
        keys("Home")

        def reached():
            entries = [entry for entry in children(control)
                       if entry.get_role_name() == "list item"]
            selected = [number for number, entry in enumerate(entries)
                        if has_state(entry, Atspi.StateType.SELECTED)]
            if selected and item in (selected[0], entries[selected[0]].get_name()):
                return True
            keys("Down" if selected else "space")
            return False
        wait_for(f"{item!r} to be selected", reached)

    def tab(self, title):
        """Goes along the tabs until that one is shown."""
        def turned():
            strip = self.controls(self.main(), "page tab list")[0]
            # The strip bears the name of the tab that is shown.
            titles = [tab.get_name() for tab in children(strip)
                      if tab.get_role_name() == "page tab"]
            behind = titles.index(title) - titles.index(strip.get_name())
            if behind:
                keys("ctrl+Next" if behind > 0 else "ctrl+Prior")
            return behind == 0
        wait_for(f"the tab {title!r}", turned)

    def exit(self):
        self.press("Exit")
        return self.process.wait(LIMIT)

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
