"""The actions of a person in the window, with random names and numbers, to be repeated."""

import subprocess

from desktop import Atspi, has_state
from display import keys, output_of
from support import EXERCISE_TAB, WORKOUT_TAB

NAMES = ["Goblet Squat", "Bench Press", "Hill Run", "Step-ups"]  # the last one is in no list
NUMBERS = [1, 2.5, 12, 120]
CHOICES = [("Weight/Reps", "radio button"), ("Level/Time", "radio button"),
           ("Distance/Speed", "radio button"), ("User Defined", "radio button"),
           ("Metric (Kilograms/Kilometers)", "radio button"),
           ("Imperial (Pounds/Miles)", "radio button"), ("Pick Random Music", "check box")]
# Sliders, lists and a check box of the settings, each reached by its mnemonic.
SETTINGS_KEYS = [["alt+k", "Right"], ["alt+k", "Left"], ["alt+h", "Right"], ["alt+h", "Left"],
                 ["alt+v", "Down"], ["alt+v", "Up"], ["alt+f", "Down"], ["alt+f", "Up"], ["alt+i"]]
MOST_SETS, MOST_EXERCISES = 3, 5


class Hands:
    def __init__(self, test, chance):
        self.test, self.program, self.chance = test, test.program, chance
        self.places = []

    def number(self):
        return str(self.chance.choice(NUMBERS))

    def name(self):
        return self.chance.choice(NAMES)

    def choices(self):
        """Clicks as fast as the display accepts it."""
        for name, role in CHOICES if not self.places else []:
            box = self.program.find(self.program.main(), role, name).get_extents(
                Atspi.CoordType.SCREEN)
            self.places.append((box.x + box.height // 2, box.y + box.height // 2))
        clicking = subprocess.Popen(["xdotool", *(
            word for x, y in self.chance.choices(self.places, k=10)
            for word in ("mousemove", str(x), str(y), "click", "1"))])
        try:
            # The clicks may never end when the window below disappears.
            self.program.wait_for("the clicks", lambda: clicking.poll() is not None)
        finally:
            clicking.kill()
            clicking.wait()
            output_of("xdotool", "mouseup", "1")
        self.take_back()

    def take_back(self):
        """Sometimes undoes and does again, as fast as the display accepts it. Steps of the other tab
        lead there."""
        if self.chance.random() < 0.5:
            keys(*self.chance.choices(["ctrl+z", "ctrl+shift+z"], [2, 1], k=6))

    def settings(self):
        """Presses keys as fast as the display accepts them, and sometimes types a time."""
        keys(*(key for drawn in self.chance.choices(SETTINGS_KEYS, k=4) for key in drawn))
        if self.chance.random() < 0.3:
            self.program.press("Set Default Exercise Time")
            self.program.answer("Set Default Exercise Time", self.number())

    def sets(self):
        program = self.program
        program.tab(EXERCISE_TAB)
        program.press("Weight/Reps", role="radio button")
        count = len(program.items("First value: Weight"))
        deeds = [self.set_time]
        deeds += [self.add_set] * 2 if count < MOST_SETS else []
        deeds += [self.remove_set, self.change_increment] if count > 0 else []
        deeds += [self.move_set] if count > 1 else []
        self.chance.choice(deeds)(count - 1)
        program.main()
        self.take_back()

    def set_time(self, _last):
        self.program.press("Set Target Exercise Time")
        self.program.answer("Set Target Exercise Time", self.number())

    def add_set(self, _last):
        number = self.number()
        self.program.press("Add New Set")
        for label in ("Weight", "Reps"):
            self.program.answer(label, number)

    def remove_set(self, last):
        self.program.select("First value: Weight", last)
        keys("Delete")
        self.program.message("Remove Set")

    def move_set(self, last):
        self.program.select("First value: Weight", last)
        keys("alt+Up")
        self.program.message("Move Set")

    def change_increment(self, last):
        self.program.select("First increment: Weight", last)
        keys("Return")
        self.program.answer("Change Exercise Value", self.number())

    def exercises(self):
        self.program.tab(WORKOUT_TAB)
        count = len(self.program.items("Exercises"))
        deeds = [self.rename_exercise, self.choose_workout]
        deeds += [self.add_exercise] * 2 if count < MOST_EXERCISES else []
        # The first exercise stays the first: it has the songs.
        deeds += [self.remove_exercise, self.move_exercise] if count > 2 else []
        self.chance.choice(deeds)(count - 1)
        self.program.main()
        self.take_back()

    def add_exercise(self, _last):
        self.test.add_own_exercise(self.name())

    def rename_exercise(self, last):
        self.program.select("Exercises", last)
        keys("F2")
        self.program.answer("Edit Exercise Name", self.name())

    def remove_exercise(self, last):
        self.program.select("Exercises", last)
        keys("Delete")
        self.program.message("Remove Exercise")

    def move_exercise(self, last):
        self.program.select("Exercises", last)
        keys("alt+Up")
        self.program.message("Move Exercise")

    def choose_workout(self, _last=None):
        keys("alt+o", self.chance.choice(["Up", "Down"]))

    def restore(self):
        """Changes the workout and restores its newest version, if that differs."""
        program = self.program
        self.rename_exercise(len(program.items("Exercises")) - 1)
        program.main()
        program.choose("Workout", "Restore an Earlier Version ...")
        form = program.window("Restore an Earlier Version")
        differs = has_state(program.find(form, "push button", "Restore"), Atspi.StateType.ENABLED)
        keys("alt+r" if differs else "Escape")
        program.main()
        program.tab(WORKOUT_TAB)
        self.take_back()

    def update(self):
        self.test.update()

    def leave(self):
        self.choose_workout()
        self.program.exit()
