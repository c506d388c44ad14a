"""The program with files that are many, damaged, missing or read-only."""

import os
import random
import time
import unittest

from desktop import LIMIT
from display import keys
from support import EXERCISE_TAB, SETTINGS_TAB, WORKOUT_TAB, WindowTest

# Folder permissions do not bind the superuser, unless it drops the capability to ignore them.
AS_ORDINARY_USER = ["setpriv", "--bounding-set", "-dac_override,-dac_read_search"] * (
    os.geteuid() == 0)
WORKOUT_SIZE = 266_240


class Trouble(WindowTest):
    def setUp(self):
        super().setUp()
        self.program = self.start_set_up()

    def file(self, name):
        return self.home.program / name

    def add_workout(self):
        program = self.program
        keys("ctrl+n")
        program.answer("New Workout", "Monday")
        program.press("Add New Exercise")
        dialog = program.window("Select Exercise")
        program.select("Exercise type", "Legs", dialog)
        program.select("Exercise name", "Goblet Squat", dialog)
        keys("Return")
        program.wait_for("the exercise", lambda: program.items("Exercises"))
        program.main()

    def exit(self):
        self.assertEqual(self.program.exit(), 0)

    def test_lists_2000_workouts(self):
        self.add_workout()
        self.exit()
        whole = self.file("workouts/Monday.RPV").read_bytes()
        for number in range(2000):
            self.file(f"workouts/W{number:04}.RPV").write_bytes(whole)
        began = time.monotonic()
        self.program = self.start()
        self.assertEqual(self.program.items("Exercises"), ["Goblet Squat"])
        print(f"usable after {time.monotonic() - began:.1f} s", end=" ")
        combo = self.program.find(self.program.main(), "combo box", "Workout:")
        self.assertEqual(combo.get_name(), "Monday.RPV")
        self.program.focus(combo)
        keys("End")
        self.program.wait_for("the last workout", lambda: combo.get_name() == "W1999.RPV")
        self.assertEqual(self.program.items("Exercises"), ["Goblet Squat"])
        self.exit()
        self.assertEqual(self.home.records("settings.dat")["last"], 2000)

    def test_goes_on_with_a_damaged_workout(self):
        self.add_workout()
        self.exit()
        damaged = random.Random(7).randbytes(WORKOUT_SIZE // 2)
        self.file("workouts/A damaged one.RPV").write_bytes(damaged)
        self.program = program = self.start()
        self.assertEqual(program.message("Repvolta"), "A damaged one.RPV seems to be damaged: it "
                         "holds numbers that no workout can have.")
        program.main()
        program.tab(EXERCISE_TAB)
        program.tab(SETTINGS_TAB)
        program.tab(WORKOUT_TAB)
        program.focus(program.find(program.main(), "combo box", "Workout:"))
        keys("Down")
        program.wait_for("the whole workout",
                         lambda: program.items("Exercises") == ["Goblet Squat"])
        self.exit()
        self.assertEqual(self.file("workouts/A damaged one.RPV").read_bytes(), damaged)
        self.assertEqual(self.names(), ["Goblet Squat"])

    def test_says_why_a_read_only_folder_keeps_nothing(self):
        self.add_workout()
        self.exit()
        before = self.saved()
        for folder in (self.file("workouts"), self.home.program):
            folder.chmod(0o555)
            self.addCleanup(folder.chmod, 0o755)
        self.program = program = self.start(AS_ORDINARY_USER)
        program.main()
        keys("ctrl+n")
        program.answer("New Workout", "Tuesday")
        self.assertIn("Permission denied", program.message("Repvolta"))
        program.main()
        program.press("Add New Exercise")
        dialog = program.window("Select Exercise")
        program.select("Exercise type", "Chest", dialog)
        program.select("Exercise name", "Bench Press", dialog)
        keys("Return")
        self.assertIn("Permission denied", program.message("Repvolta"))
        program.main()
        # The entered data stays in the window until the folder is writable again.
        self.assertEqual(program.items("Exercises"), ["Goblet Squat", "Bench Press"])
        program.press("Exit")
        self.assertIn("Permission denied", program.message("Repvolta"))
        self.assertEqual(program.process.wait(LIMIT), 0)
        self.assertEqual(self.saved(), before)

    def test_says_when_the_music_folder_is_gone(self):
        self.home.music.rmdir()
        program = self.program
        program.tab(SETTINGS_TAB)
        program.press("Compile Random Music List")
        self.assertEqual(program.message("Repvolta"), "The random music list has been compiled.")
        program.main()
        self.assertEqual(self.file("musiclist.txt").read_bytes(), b"")
        program.press("Change Music Path")
        program.window("Select Directory")
        keys("Escape")
        program.main()
        self.exit()

    def saved(self):
        files = [*self.file("workouts").iterdir(), self.file("settings.dat")]
        return {path.name: path.read_bytes() for path in files}

    def names(self):
        self.assertEqual(self.file("workouts/Monday.RPV").stat().st_size, WORKOUT_SIZE)
        records = self.home.records("workouts/Monday.RPV")
        self.assertTrue(records["whole"])
        return [exercise["name"] for exercise in records["exercises"]]


if __name__ == "__main__":
    unittest.main()
