"""The base of the window's tests."""

import os
import pathlib
import signal
import unittest

from desktop import Home, Program, role_of
from display import Display, keys, use

WORKOUT_TAB = "Workout Setup/Exercise Selection"
EXERCISE_TAB = "Exercise Setup"
SETTINGS_TAB = "Program Settings"
TEST_LIMIT = 400  # seconds; the longest test takes a tenth of it when the machine is idle


def pick_folder(program, name):
    """Chooses a folder in the home folder, where the picker opens."""
    picker = program.window("Select Directory")
    wanted = str(program.home.folder / name)
    program.wait_for(f"the folder {name}", lambda: program.controls(picker, "tree item", name)
                     or program.controls(picker, "table cell", name))

    def chosen():
        return [label.get_name() for label in program.controls(picker, "label")
                if label.get_name().startswith("/")]
    for _ in range(20):
        before = program.wait_for("the chosen folder", chosen)
        if before == [wanted]:
            break
        keys("Down" if before <= [wanted] else "Up")
        program.wait_for("another folder to be chosen", lambda: chosen() not in ([], before))
    keys("Return")


class WindowTest(unittest.TestCase):
    """Each test has its own home folder; the tests of a class, and of those that do not name
    another, share a display of X."""

    make_display = Display
    displays = {}

    @classmethod
    def setUpClass(cls):
        if cls.make_display not in WindowTest.displays:
            WindowTest.displays[cls.make_display] = cls.make_display()
        cls.display = WindowTest.displays[cls.make_display]
        use(cls.display)

    def setUp(self):
        signal.signal(signal.SIGALRM, self._too_long)
        signal.alarm(TEST_LIMIT)
        self.addCleanup(signal.alarm, 0)
        self.home = Home(os.environ["REPVOLTA_BUILD"])
        self.addCleanup(self.home.close)

    def _too_long(self, _signal, _frame):
        raise AssertionError(f"the test takes more than {TEST_LIMIT} seconds")

    def run(self, result=None):
        self.failed = lambda: len(result.failures) + len(result.errors)
        self.failed_before = self.failed()
        return super().run(result)

    def _picture_of_failure(self):
        if self.failed() > self.failed_before:
            self.failed_before = self.failed()
            path = (pathlib.Path(os.environ["REPVOLTA_BUILD"]) / "Testing" / "window"
                    / f"{self.id()}.png")
            self.display.picture(path)
            print(f"The screen is in {path}")

    def start(self, prefix=()):
        program = Program(self.home, self.display, prefix)
        self.addCleanup(program.kill)
        self.addCleanup(self._picture_of_failure)
        return program

    def start_set_up(self):
        """Starts the program and goes through the set-up: music in Music, output in Player."""
        (self.home.folder / "Player").mkdir()
        program = self.start()
        program.message("Welcome to Repvolta")
        program.message("Find your music files")
        pick_folder(program, "Music")
        program.message("Repvolta")
        program.message("Select your output directory")
        pick_folder(program, "Player")
        program.main()
        return program

    def new_workout(self, name):
        self.program.press("Create New Workout")
        self.assertEqual(self.program.answer("New Workout", name),
                         "Enter a name for the new Workout")
        file = self.home.program / "workouts" / f"{name}.RPV"
        self.program.wait_for("the workout file", file.exists)

    def add_own_exercise(self, name):
        program = self.program
        program.press("Add New Exercise")
        dialog = program.window("Select Exercise")
        program.press("Type a name instead", dialog, "check box")
        box = program.find(dialog, "text", "Own exercise name")
        program.focus(box)
        program.type_into(box, name)
        keys("Return")
        program.wait_for(f"{name} in the list", lambda: name in program.items("Exercises"))

    def add_music(self, path):
        self.program.press("Add Music File")
        program = self.program
        dialog = program.window("Music File Selection")
        field, = program.wait_for("the field for the name", lambda: [
            node for node in program.focused(dialog) if role_of(node) == "text"])
        program.type_into(field, path)
        keys("Return")
        program.wait_for(f"{path} in the list",
                         lambda: path in program.items("Music to be played"))

    def add_set(self, first, second, labels=("Weight", "Reps")):
        self.program.press("Add New Set")
        for label, value in zip(labels, (first, second)):
            self.assertEqual(self.program.answer(label, value), f"Enter the {label} required:")

    def open_exercise(self, name):
        self.program.tab(WORKOUT_TAB)
        self.program.select("Exercises", name)
        self.program.tab(EXERCISE_TAB)
        self.program.wait_for(f"{name} on the tab", lambda: self.program.controls(
            self.program.main(), "label", name))

    def progress(self):
        window = self.program.window("Repvolta Update Progress...")
        return self.program.items("Update progress", window=window)

    def update(self):
        program = self.program
        program.press("Update Workout")
        program.wait_for("the update", lambda: self.progress()[-1:] == ["UPDATE COMPLETE."])
        self.assertEqual([line for line in self.progress() if line.startswith("ERROR")], [])
        keys("Return")
        program.main()
