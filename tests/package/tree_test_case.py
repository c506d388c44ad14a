"""What the tests of the package share: a fresh tree with a display, and the keyboard of a user who
starts the program for the first time."""

import pathlib
import sys
import time
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tests/window"))
from display import Display, active_title, keys, type_text, wait_for  # noqa: E402
from tree import DATA, HOME, Tree, run  # noqa: E402

WORK = ROOT / "build/check-package"
MAIN = "Repvolta - Exercise Management for your MP3 Player"


def made(folder, pattern):
    found = list((ROOT / "build/package" / folder).glob(pattern))
    assert len(found) == 1, f"{len(found)} times {pattern}; make it with tools/package"
    return found[0]


def wait_for_window(title):
    """Waits until the window with that title has the keyboard."""
    try:
        wait_for(f"the window {title!r}", lambda: active_title() == title)
    except AssertionError as error:
        error.add_note(f"the keyboard is in {active_title()!r}")
        raise


def confirm(title):
    """Presses Enter in that box until it closes: the first key may come too early."""
    wait_for_window(title)
    for _ in range(30):
        keys("Return")
        try:
            wait_for(f"the box {title!r} to go", lambda: active_title() != title, limit=1)
            return
        except AssertionError:
            pass
    raise AssertionError(f"the box {title!r} does not go")


def pick(folder):
    wait_for_window("Select Directory")
    time.sleep(1)  # the picker reads the folder, and nothing of it can be asked from here
    type_text(folder)
    time.sleep(1)
    keys("Return")


def set_up():
    """Answers the questions of a first start, up to the main window."""
    confirm("Welcome to Repvolta")
    confirm("Find your music files")
    pick("Music")
    confirm("Repvolta")
    confirm("Select your output directory")
    pick("Player")
    wait_for_window(MAIN)


class TreeTest(unittest.TestCase):
    """Tests in a tree of this machine's release. Each continues where the previous one ended."""

    maxDiff = 2000

    @classmethod
    def setUpClass(cls):
        cls.package = made("debian", "repvolta_*.deb")
        cls.tree = Tree(WORK)
        # The tree's user does not exist on this machine.
        cls.display = Display("-ac")
        cls.tree.share_display()

    def setUp(self):
        print(f"\n== {self._testMethodName}", file=sys.stderr)

    def run(self, result=None):
        failed_before = len(result.failures) + len(result.errors)
        super().run(result)
        if len(result.failures) + len(result.errors) > failed_before:
            self.display.picture(WORK / "failure.png")
        return result

    def start(self, *command):
        program = self.tree.start(*command)
        self.addCleanup(program.wait, 60)
        self.addCleanup(program.kill)
        return program

    def assert_has(self, *names):
        self.assertEqual([name for name in names if not self.tree.has(name)], [])

    def assert_lacks(self, *names):
        self.assertEqual([name for name in names if self.tree.has(name)], [])

    def assert_same_folders(self, one, other):
        self.assertEqual(self.tree.snapshot(one), self.tree.snapshot(other))

    def put_sample(self):
        """Workouts and music to begin with, in the user's folders."""
        self.tree.put(ROOT / "build/release/bin/repvolta-sample", "/usr/local/bin/repvolta-sample")
        self.tree.as_user("mkdir", "-p", HOME + "/sample/program")
        self.tree.as_user("repvolta-sample", "make", HOME + "/sample")
        self.tree.as_user("cp", "-r", HOME + "/sample/music", HOME + "/Music")
        self.tree.as_user("mkdir", HOME + "/Player")

    def set_up_with_workout(self, name):
        """Starts the program for the first time, makes a workout and ends."""
        program = self.start("repvolta")
        set_up()
        keys("ctrl+n")
        wait_for_window("New Workout")
        type_text(name)
        keys("Return")
        wait_for_window(MAIN)
        keys("ctrl+q")
        self.assertEqual(program.wait(60), 0)
        self.assert_has(DATA + "/settings.dat", DATA + f"/workouts/{name}.RPV")
