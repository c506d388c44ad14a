"""What the tests of the window share."""

import os
import pathlib
import signal
import unittest

from desktop import Home, Program
from display import Display, keys

TEST_LIMIT = 400  # seconds; the longest test takes a tenth of it when the machine is idle


def pick_folder(program, name):
    """Chooses a folder of the home folder, at which the picker opens."""
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
    """Each test has a home folder of its own, all share a display."""

    display = None

    @classmethod
    def setUpClass(cls):
        WindowTest.display = WindowTest.display or Display()

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
        program = Program(self.home, prefix)
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
