"""A day with the program, from an empty list of workouts to the folder for the player."""

import datetime
import os
import unittest

from display import keys
from support import WORKOUT_TAB, WindowTest

SET_LISTS = ["First value: Weight", "Second value: Reps", "First increment: Weight",
             "Second increment: Reps", "First frequency in days: Weight",
             "Second frequency in days: Reps", "Days to the next increments"]


def today():
    return (datetime.date.today() - datetime.date(1899, 12, 30)).days


class Day(WindowTest):
    def add_listed_exercise(self, exercise_type, name):
        program = self.program
        program.press("Add New Exercise")
        dialog = program.window("Select Exercise")
        program.select("Exercise type", exercise_type, dialog)
        program.select("Exercise name", name, dialog)
        keys("Return")
        program.wait_for(f"{name} in the list", lambda: name in program.items("Exercises"))

    def change(self, name, row, value):
        """Enter on a row of a set list does what a double click does."""
        program = self.program
        program.select(name, row)
        keys("Return")
        self.assertEqual(program.answer("Change Exercise Value", value), "Enter new Value:")
        program.main()

    def shown_sets(self):
        return {name: self.program.items(name) for name in SET_LISTS}

    def setUp(self):
        super().setUp()
        self.songs = [self.home.add_song(f"Song {i}.mp3", 10 * i) for i in (1, 2, 3)]
        self.program = self.start_set_up()

    def exercise(self, index=0, workout="Monday"):
        records = self.home.records(f"workouts/{workout}.RPV")
        self.assertTrue(records["whole"])
        return records["exercises"][index]

    def eventually(self, expected, get):
        """The file is written behind the window's back."""
        def same():
            return get() == expected
        try:
            self.program.wait_for("the record", same, 10)
        except AssertionError:
            self.assertEqual(get(), expected)

    def names(self, workout="Monday"):
        return [exercise["name"]
                for exercise in self.home.records(f"workouts/{workout}.RPV")["exercises"]]

    def test_arranges_a_workout(self):
        program = self.program
        self.new_workout("Monday")
        self.add_listed_exercise("Legs", "Goblet Squat")
        self.add_listed_exercise("Chest", "Bench Press")
        self.add_own_exercise("Step-ups & <b>more</b>")
        self.add_own_exercise("走る")
        self.assertEqual(self.names(),
                         ["Goblet Squat", "Bench Press", "Step-ups & <b>more</b>", "走る"])

        program.select("Exercises", "走る")
        keys("alt+Up")
        self.assertEqual(program.message("Move Exercise"),
                         "Are you SURE you want to move the exercise up the list?:\n走る")
        self.eventually(["Goblet Squat", "Bench Press", "走る", "Step-ups & <b>more</b>"],
                        self.names)

        program.select("Exercises", "Goblet Squat")
        keys("F2")
        self.assertEqual(program.answer("Edit Exercise Name", "Front Squat"),
                         "Enter a new Exercise Name")
        self.eventually(["Front Squat", "Bench Press", "走る", "Step-ups & <b>more</b>"], self.names)

        program.select("Exercises", "Step-ups & <b>more</b>")
        keys("Delete")
        self.assertEqual(program.message("Remove Exercise", "Escape"),
                         "Are you SURE you want to DELETE exercise:\nStep-ups & <b>more</b>")
        self.assertEqual(len(self.names()), 4)
        program.main()
        keys("Delete")
        program.message("Remove Exercise")
        self.eventually(["Front Squat", "Bench Press", "走る"], self.names)
        self.assertEqual(program.items("Exercises"), ["Front Squat", "Bench Press", "走る"])

    def test_fills_updates_and_finds_everything_again(self):
        program = self.program
        self.new_workout("Monday")
        self.add_listed_exercise("Legs", "Goblet Squat")
        self.open_exercise("Goblet Squat")

        self.add_set("20.5", "12")
        self.add_set("25", "10")
        self.change("First increment: Weight", 0, "2.5")
        self.change("First frequency in days: Weight", 0, "7")
        self.change("Second value: Reps", 1, "8")
        self.change("Second increment: Reps", 1, "-5")
        program.press("Imperial (Pounds/Miles)", role="radio button")
        self.add_music(self.songs[0])
        self.add_music(self.songs[1])
        program.press("Set Target Exercise Time")
        program.answer("Set Target Exercise Time", "1.5")
        program.main()

        expected = {
            "name": "Goblet Squat", "music": [[self.songs[0], 10], [self.songs[1], 20]],
            "target": 90, "total": 30, "type": 0, "units": -1, "random": 0,
            "values1": [20.5, 25], "values2": [12, 8], "increments1": [2.5, 0],
            "increments2": [0, 0], "frequencies1": [7, 0], "frequencies2": [0, 0],
            "dates1": [today() + 7, today()], "dates2": [today(), today()]}
        self.eventually(expected, self.exercise)
        shown = self.shown_sets()
        self.assertEqual([shown[name] for name in SET_LISTS[:6]],
                         [["20.5", "25"], ["12", "8"], ["2.5", "0"], ["0", "0"], ["7", "0"],
                          ["0", "0"]])

        self.add_second_exercise()
        self.update()
        self.check_player()
        self.update_all()
        self.assertEqual(program.exit(), 0)
        self.assertEqual(self.home.records("settings.dat")["last"], 0)

        self.program = self.start()
        self.assertEqual(self.program.items("Exercises"), ["Goblet Squat", "Running"])
        self.open_exercise("Goblet Squat")
        self.assertEqual(self.shown_sets(), shown)
        self.assertEqual(self.program.items("Music to be played"), self.songs[:2])
        self.assertEqual(self.exercise(), expected)

    def add_second_exercise(self):
        """A random one, which has the whole music folder to draw from."""
        self.program.tab(WORKOUT_TAB)
        self.add_own_exercise("Running")
        self.open_exercise("Running")
        self.program.press("Distance/Speed", role="radio button")
        self.eventually(2, lambda: self.exercise(1)["type"])
        self.add_set("5", "12", ("Distance", "Speed"))
        self.program.press("Pick Random Music", role="check box")
        self.program.press("Set Target Exercise Time")
        self.program.answer("Set Target Exercise Time", "0.5")
        self.eventually((-1, 30), lambda: (self.exercise(1)["random"], self.exercise(1)["target"]))

    def check_player(self):
        """The player's folder holds the numbered files that the play list names."""
        folder = self.home.folder / "Player" / "Monday"
        listed = (folder / "Monday.M3U").read_bytes()
        lines = listed.decode("utf-8").split("\r\n")
        self.assertEqual(lines.pop(), "")
        names = [os.path.basename(line) for line in lines]
        self.assertEqual(names[:3], ["RV001-Instructions.mp3", "RV002-Song 1.mp3",
                                     "RV003-Song 2.mp3"])
        self.assertEqual(names[3], "RV004-Instructions.mp3")
        self.assertGreater(len(names), 4)
        self.assertEqual(sorted(names + ["Monday.M3U"]), sorted(os.listdir(folder)))

    def update_all(self):
        program = self.program
        program.press("Update ALL Workouts")
        self.assertEqual(program.message("Repvolta"), "Update COMPLETED on all Workouts")
        program.main()
        self.check_player()


if __name__ == "__main__":
    unittest.main()
