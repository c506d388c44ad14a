"""The window on Wayland: used with keyboard and mouse under one compositor, and by an assistive
program under another. All other tests of the window need X."""

import os
import pathlib
import subprocess
import time
import unittest

from desktop import LIMIT, Atspi, children, has_state, heard_name, role_of, showing
from display import PAUSE, active_title, keys, wait_for
from support import WindowTest
from wayland import Sway, Weston
from wayland_wire import Menu

SOURCE_TITLE = "Drag source"


class KeyboardAndMouse(WindowTest):
    make_display = Sway

    def setUp(self):
        super().setUp()
        self.program = self.start_set_up()

    def start_source(self, *urls):
        """Another program's window, which takes the keyboard."""
        source = subprocess.Popen(
            [pathlib.Path(os.environ["REPVOLTA_BUILD"]) / "tests" / "drag_source", *urls],
            env=self.program.environment, stdout=subprocess.PIPE, text=True)
        self.addCleanup(source.stdout.close)
        self.addCleanup(source.wait, LIMIT)
        self.addCleanup(source.kill)
        wait_for("the other window", lambda: active_title() == SOURCE_TITLE)
        return source

    def test_makes_a_workout_by_keyboard(self):
        self.new_workout("Monday")
        self.add_own_exercise("Running")
        self.assertEqual(self.program.exit(), 0)

    def test_gives_the_keyboard_to_each_of_two_boxes_in_a_row(self):
        self.new_workout("Monday")
        self.add_own_exercise("Running")
        self.open_exercise("Running")
        self.add_set("20", "12")
        self.program.main()
        self.assertEqual(self.program.items("Second value: Reps"), ["12"])

    def start_again(self):
        """From a desktop's menu of programs, which keeps the keyboard."""
        menu = Menu(self.program.environment["WAYLAND_DISPLAY"])
        self.addCleanup(menu.close)
        leave = menu.leave_to_come_to_the_front()
        second = subprocess.run(
            [self.home.program / "repvolta"], timeout=LIMIT,
            env=dict(self.program.environment, XDG_ACTIVATION_TOKEN=leave))
        self.assertEqual(second.returncode, 0)

    def test_comes_to_the_front_when_it_is_started_again(self):
        self.start_again()
        self.program.main()

    def test_comes_to_the_front_with_the_box_that_blocks_it(self):
        keys("shift+F1")
        self.program.window("About Repvolta")
        self.start_again()
        self.program.window("About Repvolta")

    def drag(self, *urls):
        """Drags the addresses onto the music list."""
        box = self.program.find(self.program.main(), "list", "Music to be played").get_extents(
            Atspi.CoordType.WINDOW)
        self.display.place(self.program.TITLE, 0, 0)
        source = self.start_source(*urls)
        self.display.place(SOURCE_TITLE, 1150, 800)
        start, end = (1200, 850), (box.x + box.width // 2, box.y + box.height // 2)
        self.display.mouse.move(*start)
        self.assertEqual(source.stdout.readline(), "entered\n")
        self.display.mouse.press()
        self.assertEqual(source.stdout.readline(), "dragging\n")
        for step in range(1, 21):
            self.display.mouse.move(*(a + (b - a) * step // 20 for a, b in zip(start, end)))
            time.sleep(PAUSE)  # as a hand does: the window below is asked at each step
        self.display.mouse.release()

    def test_takes_songs_from_another_program(self):
        self.new_workout("Monday")
        self.add_own_exercise("Running")
        self.open_exercise("Running")
        song = self.home.add_song("ä 1.MP3", 10)
        self.drag(pathlib.Path(song).as_uri())
        self.program.wait_for("the song", lambda: self.home.records(
            "workouts/Monday.RPV")["exercises"][0]["music"] == [[song, 10]])


class AssistiveProgram(WindowTest):
    """Under a compositor with neither keyboard nor mouse."""

    make_display = Weston

    def window(self, title):
        return self.program.wait_for(f"the window {title!r}", lambda: [
            window for window in children(self.program.application)
            if window.get_name() == title and has_state(window, Atspi.StateType.SHOWING)])[0]

    def press(self, name, window):
        self.program.find(window, "push button", name).do_action(0)

    def answer(self, title, button):
        box = self.window(title)
        self.press(button, box)
        self.program.wait_for("the box to close", lambda: box not in list(
            children(self.program.application)))

    def setUp(self):
        super().setUp()
        self.program = self.start()
        self.answer("Welcome to Repvolta", "OK")
        self.answer("Find your music files", "OK")
        self.answer("Select Directory", "Cancel")
        self.answer("Repvolta", "OK")
        self.answer("Select your output directory", "OK")
        self.answer("Select Directory", "Cancel")

    def test_finds_and_uses_the_controls(self):
        main = self.window(self.program.TITLE)
        names = [heard_name(node) for node in showing(main)
                 if role_of(node) in ("push button", "list", "combo box", "check box")]
        self.assertIn("Exercises", names)
        self.assertNotIn("", names)
        self.press("Create New Workout", main)
        box = self.window("New Workout")
        self.program.find(box, "text", "Enter a name for the new Workout").set_text_contents(
            "Monday")
        self.press("OK", box)
        self.program.wait_for("the workout", (self.home.program / "workouts/Monday.RPV").exists)

    def test_is_one_program_where_windows_cannot_ask_for_the_front(self):
        second = subprocess.run([self.home.program / "repvolta"], env=self.program.environment,
                                timeout=LIMIT)
        self.assertEqual(second.returncode, 0)
        self.press("Exit", self.window(self.program.TITLE))
        self.assertEqual(self.program.process.wait(LIMIT), 0)


if __name__ == "__main__":
    unittest.main()
