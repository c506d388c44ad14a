"""Twelve tasks of a new user, done in the window and counted.

Each is done in the shortest way that the window itself shows. What a person must know on the way is
looked for in the texts of the window; what is not found is a look into the guide."""

import datetime
import os
import pathlib
import re
import shutil
import sys

from desktop import Atspi, Home, Program, children, has_state, role_of
from display import Display, active_title, keys, output_of, wait_for
from person import Person
from support import EXERCISE_TAB, SETTINGS_TAB, WORKOUT_TAB

EXERCISES = ["Bench Press", "Goblet Squat", "Lat Pulldown"]
SONGS = 8
SECONDS = 180
NAME_THAT_IS_SPOKEN_WRONGLY = "OHP"
ROOM = "40m"  # on the player
SEEN_ALIKE = 30  # looks, at least a second
LEFT = 100_000  # bytes on a player that is full

# Opens a folder in place of the desktop's file manager, and leaves a note of it.
FILE_MANAGER = """#!/bin/sh
printf '%s\\n' "$1" >>"$HOME/opened"
"""


class Tasks:
    """One life with the program, from the first start on."""

    def __init__(self, build):
        self.home = Home(build)
        self.player = self.home.folder / "Player"
        self.player.mkdir()
        output_of("mount", "-t", "tmpfs", "-o", f"size={ROOM}", "player", self.player)
        for number in range(1, SONGS + 1):
            self.home.add_song(f"Song {number}.mp3", SECONDS)
        self._put_file_manager()
        self.person = None
        self.counts = {}

    def _put_file_manager(self):
        folder = self.home.folder / "bin"
        folder.mkdir()
        opener = folder / "xdg-open"
        opener.write_text(FILE_MANAGER)
        opener.chmod(0o755)
        os.environ["PATH"] = f"{folder}:{os.environ['PATH']}"

    def close(self):
        if self.person:
            self.person.program.kill()
        output_of("umount", "--lazy", self.player)
        self.home.close()

    def start(self):
        """Starts the program; it shows the workout of the last time."""
        if self.person:
            if active_title() != Program.TITLE:
                keys("Escape")
            self.program.exit()
        self.person = Person(Program(self.home, Display))
        if (self.home.program / "settings.dat").exists():
            self.program.main()

    @property
    def program(self):
        return self.person.program

    def run(self):
        """Does all tasks, each after a new start. Returns what each has cost."""
        for name, task in TASKS:
            print(f"  {name} ...", end=" ", file=sys.stderr, flush=True)
            self.start()
            task(self)
            self.counts[name] = self.person.count
            print(self.counts[name].acts(), file=sys.stderr, flush=True)
        return self.counts

    # --- what several tasks do

    def exercise(self, index, workout="Monday"):
        return self.home.records(f"workouts/{workout}.RPV")["exercises"][index]

    def eventually(self, what, condition):
        self.program.wait_for(what, condition, 10)

    def names(self, workout="Monday"):
        return [exercise["name"]
                for exercise in self.home.records(f"workouts/{workout}.RPV")["exercises"]]

    def row(self, name, index, window=None, role="list"):
        """A row of a list, by its number or text."""
        def found():
            control = self.program.controls(window or self.program.main(), role, name)[0]
            rows = [item for item in children(control) if role_of(item) == "list item"]
            if isinstance(index, int):
                return rows[index:index + 1]
            return [row for row in rows if row.get_name() == index]
        return self.program.wait_for(f"row {index} of {name!r}", found)[0]

    def turn_to(self, title):
        strip = self.program.controls(self.program.main(), "page tab list")[0]
        if strip.get_name() == title:
            return
        self.person.click(next(tab for tab in children(strip) if tab.get_name() == title))
        self.program.wait_for("the tab to turn", lambda: self.program.controls(
            self.program.main(), "page tab list")[0].get_name() == title)

    def shown_exercise(self, name):
        return bool(self.program.controls(self.program.main(), "label", name))

    def open_exercise(self, name):
        """Shows the tab of an exercise, from wherever the window is."""
        main = self.program.main()
        strip = self.program.controls(main, "page tab list")[0]
        if strip.get_name() == EXERCISE_TAB and self.person.reads(r"Ctrl\+Down"):
            for _ in range(len(EXERCISES)):
                if self.shown_exercise(name):
                    return
                self._step_towards(name)
        else:
            self.turn_to(WORKOUT_TAB)
            row = self.row("Exercises", name)
            if has_state(row, Atspi.StateType.SELECTED):
                self.turn_to(EXERCISE_TAB)
            else:
                self.person.double_click(row)
        self.program.wait_for(f"{name} on the tab", lambda: self.shown_exercise(name))

    def _step_towards(self, name):
        """Presses the key that leads to the next exercise, or the one before."""
        names = self.names()
        before = next(other for other in names if self.shown_exercise(other))
        self.person.key("ctrl+Down" if names.index(before) < names.index(name) else "ctrl+Up")
        self.program.wait_for("another exercise", lambda: not self.shown_exercise(before))

    def new_workout(self, name):
        self.person.press("Create New Workout")
        self.person.answer("New Workout", name)
        file = self.home.program / "workouts" / f"{name}.RPV"
        self.program.wait_for("the workout file", file.exists)
        self.program.main()

    def add_exercise(self, name):
        self.turn_to(WORKOUT_TAB)
        self.person.press("Add New Exercise")
        dialog = self.person.box("Select Exercise")
        search = [field for field in self.program.focused(dialog)
                  if role_of(field) == "text"]
        if search:
            self.person.type_into(search[0], name)
            if not self._is_listed(dialog, name):
                self.person.key("Return")
                self.program.wait_for("the own name", lambda: search[0] not in
                                      self.program.focused(dialog))
        else:
            self.person.press("Type a name instead", dialog, "check box")
            self.person.type_into(self.program.find(dialog, "text", "Own exercise name"), name)
        self.person.key("Return")
        self.person.gone(dialog)
        self.program.wait_for(f"{name} in the list",
                              lambda: name in self.program.items("Exercises"))

    def _is_listed(self, dialog, name):
        """Whether the search finds the name in the lists."""
        return self.program.wait_for("the search", lambda: [
            label.get_name() for label in self.program.controls(dialog, "label")
            if label.get_name().endswith(": " + name) or label.get_name().startswith("In no list")
        ])[0].endswith(": " + name)

    def add_sets(self, values):
        for first, second in values:
            self.person.press("Add New Set")
            self.person.answer("Weight", first)
            self.person.answer("Reps", second)
            self.program.main()

    def change(self, name, index, value):
        """A double click on a number, and the new one."""
        self.person.double_click(self.row(name, index))
        self.person.answer("Change Exercise Value", value)
        self.program.main()

    def update(self):
        """Updates the workout. Returns the progress window, which is left open."""
        self.person.press("Update Workout")
        return self.updated()

    def updated(self):
        window = self.person.box("Repvolta Update Progress...")
        self.program.wait_for("the update", lambda: "UPDATE COMPLETE." in self.program.items(
            "Update progress", window=window))
        return window

    def close_progress(self):
        self.person.key("Return")
        self.program.main()

    def remove_song(self, song):
        count = len(self.program.items("Music to be played"))
        self.person.click(self.row("Music to be played", song))
        self.person.press("Remove Music File")
        self.person.confirm("Remove Music File")
        self.program.wait_for("the song to go", lambda: len(
            self.program.items("Music to be played")) == count - 1)

    # --- the tasks

    def first_start(self):
        person = self.person
        person.confirm("Welcome to Repvolta")
        person.confirm("Find your music files")
        self._pick("Music")
        person.confirm("Repvolta")
        person.confirm("Select your output directory")
        self._pick("Player")
        self.program.main()
        settings = self.home.records("settings.dat")
        assert (settings["music"], settings["output"]) == (str(self.home.music), str(self.player))

    def _pick(self, name):
        picker = self.person.box("Select Directory")
        folder = self.program.wait_for(f"the folder {name}", lambda: (
            self.program.controls(picker, "tree item", name)
            or self.program.controls(picker, "table cell", name)))[0]
        self._wait_until_still(folder)
        self.person.click(folder)
        self.program.wait_for("the choice", lambda: self.program.controls(
            picker, "label", str(self.home.folder / name)))
        self.person.key("Return")
        self.person.gone(picker)

    def _wait_until_still(self, node):
        """The tree may scroll while its folders are read."""
        places = []

        def still():
            place = node.get_extents(Atspi.CoordType.SCREEN)
            places.append((place.x, place.y))
            return len(places) > SEEN_ALIKE and len(set(places[-SEEN_ALIKE:])) == 1
        self.program.wait_for("the tree to rest", still)

    def three_exercises(self):
        self.new_workout("Monday")
        for name in EXERCISES:
            self.add_exercise(name)
        self.eventually("the exercises", lambda: self.names() == EXERCISES)

    def three_sets_each(self):
        for name in EXERCISES:
            self.open_exercise(name)
            self.add_sets([("40", "12"), ("45", "10"), ("50", "8")])
        self.eventually("nine sets", lambda: all(
            self.exercise(index)["values1"] == [40, 45, 50] for index in range(3)))

    def weekly_growth(self):
        """Someone who has never seen the rule takes 7 days for a week."""
        self.open_exercise(EXERCISES[0])
        self.change("First increment: Weight", 0, "2.5")
        self.change("First frequency in days: Weight", 0, "7")
        self.person.click(self.row("First frequency in days: Weight", 0))
        self.person.must_know("that 7 days are not weekly", r"every (8th|eighth|other|second)\b")
        self.change("First frequency in days: Weight", 0, "6")
        first = datetime.date.today() + datetime.timedelta(2 * 6 + 1)
        self.person.must_know("the day of the first growth",
                              rf"\b0?{first.day} {first:%b}|{first:%B} {first.day}\b|{first}")
        self.eventually("the growth", lambda: (
            self.exercise(0)["increments1"][0], self.exercise(0)["frequencies1"][0]) == (2.5, 6))

    def music(self):
        self.open_exercise(EXERCISES[0])
        self._choose_songs(5)
        for index in (1, 2):
            self.open_exercise(EXERCISES[index])
            self._pick_random_music(index)
        self.eventually("the music", lambda: [
            (len(self.exercise(index)["music"]), self.exercise(index)["random"])
            for index in range(3)] == [(5, 0), (0, -1), (0, -1)])

    def _choose_songs(self, count):
        self.person.press("Add Music File")
        dialog = self.person.box("Music File Selection")
        self.person.click(self._file(dialog, "Song 1.mp3"))
        self.person.click(self._file(dialog, f"Song {count}.mp3"), holding="shift")
        self.person.key("Return")
        self.person.gone(dialog)
        self.program.wait_for("the songs", lambda: len(
            self.program.items("Music to be played")) == count)

    def _file(self, dialog, name):
        return self.program.wait_for(name, lambda: [
            node for role in ("list item", "table cell", "tree item")
            for node in self.program.controls(dialog, role, name)])[0]

    def _pick_random_music(self, index):
        """The box may show the tick of another exercise. Then it is clicked twice."""
        box = self.program.find(self.program.main(), "check box", "Pick Random Music")
        if has_state(box, Atspi.StateType.CHECKED):
            self._must_know_whose_tick()
            self._click_box(box)
        self._click_box(box)
        self.eventually("the choice", lambda: self.exercise(index)["random"])

    def _click_box(self, box):
        before = has_state(box, Atspi.StateType.CHECKED)
        self.person.click(box)
        self.program.wait_for("the tick",
                              lambda: has_state(box, Atspi.StateType.CHECKED) != before)

    def _must_know_whose_tick(self):
        """Said on the tab, or by the summary on the first tab, which takes two clicks."""
        what = "whether this exercise has random music"
        if self.person.reads(r"random music: (on|off)"):
            self.person.must_know(what, r"random music: (on|off)")
            return
        self.turn_to(WORKOUT_TAB)
        self.person.must_know(what, r"^\d\d sets, .* Music(, Random Music)?$")
        self.turn_to(EXERCISE_TAB)

    def update_and_open(self):
        window = self.update()
        self.person.must_know("how it gets into the player",
                              r"(copy|drag|unplug|eject)[^.]*\b(player|folder)\b"
                              r"|\bplayer\b[^.]*(copy|copied|unplug|eject)")
        buttons = self.program.controls(window, "push button", "Open Folder")
        if buttons:
            self.person.click(buttons[0])
            wait_for("the file manager", (self.home.folder / "opened").exists)
            assert str(self.player / "Monday") in (self.home.folder / "opened").read_text()
        else:
            self.person.cannot("open the folder")
        assert (self.player / "Monday" / "Monday.M3U").exists()

    def weight_by_keyboard(self):
        """The second weight of the second exercise becomes 47.5, typed with a comma at first."""
        self._go_to("Exercises")
        self._go_down("Exercises", 1)
        self.person.key("ctrl+Next")
        self.program.wait_for("the tab", lambda: self.shown_exercise(EXERCISES[1]))
        self._go_to("First value: Weight")
        self._go_down("First value: Weight", 1)
        self.person.must_know("which key changes a number", r"\bEnter\b[^.]*changes",
                              [self.row("First value: Weight", 1)])
        self.person.key("Return")
        box = self.person.box("Change Exercise Value")
        field = self.program.wait_for("the field", lambda: self.program.controls(box, "text"))[0]
        self.person.type_into(field, "47,5")
        warned = self.person.must_know("that the decimal point is a point", r"\bpoint\b")
        if warned:
            self.person.key("BackSpace", "BackSpace")
            self.person.type_into(field, ".5")
        self.person.key("Return")
        self.person.gone(box)
        if not warned:
            self.person.key("Return")
            self.person.answer("Change Exercise Value", "47.5")
        self.eventually("the weight", lambda: self.exercise(1)["values1"] == [40, 47.5, 50])

    def _go_to(self, name):
        """Presses the Tab key until the list has the keyboard."""
        control = self.program.find(self.program.main(), "list", name)
        for _ in range(40):
            if has_state(control, Atspi.StateType.FOCUSED):
                return
            self.program.next_control(self.program.main())
            self.person.count.keys += 1
        raise AssertionError(f"the Tab key does not lead to {name!r}")

    def _go_down(self, name, index):
        for _ in range(index + 2):
            if has_state(self.row(name, index), Atspi.StateType.SELECTED):
                return
            before = [has_state(self.row(name, i), Atspi.StateType.SELECTED)
                      for i in range(index + 1)]
            self.person.key("Down")
            self.program.wait_for("the selection to move", lambda: before != [
                has_state(self.row(name, i), Atspi.StateType.SELECTED) for i in range(index + 1)])

    def remove_and_get_back(self):
        """The last exercise, with its sets and its random music."""
        before = self.exercise(2)
        self.person.click(self.row("Exercises", EXERCISES[2]))
        self.person.press("Remove Exercise")
        self.person.confirm("Remove Exercise")
        self.eventually("the exercise to go", lambda: self.names() == EXERCISES[:2])
        self.program.main()
        # Nothing brings it back, so it is typed again.
        self.add_exercise(EXERCISES[2])
        self.open_exercise(EXERCISES[2])
        self.add_sets(zip(map(str, before["values1"]), map(str, before["values2"])))
        self._pick_random_music(2)
        self.eventually("the exercise as it was", lambda: self._without_dates(
            self.exercise(2)) == self._without_dates(before))

    @staticmethod
    def _without_dates(exercise):
        return {key: value for key, value in exercise.items()
                if not key.startswith("dates") and key not in ("music", "total")}

    def second_workout(self):
        """The same exercises and sets, and no music: nothing copies a workout."""
        self.new_workout("Friday")
        for name in EXERCISES:
            self.add_exercise(name)
        for name in EXERCISES:
            self.open_exercise(name)
            self.add_sets([("40", "12"), ("45", "10"), ("50", "8")])
        self.eventually("nine sets", lambda: [
            exercise["values1"]
            for exercise in self.home.records("workouts/Friday.RPV")["exercises"]
        ] == [[40, 45, 50]] * 3)
        os.remove(self.home.program / "workouts" / "Friday.RPV")

    def full_player(self):
        """Two of the five songs must go."""
        other = self.player / "Other.bin"
        other.write_bytes(bytes(shutil.disk_usage(self.player).free - LEFT))
        self.person.press("Update Workout")
        box = self.person.box("Update Workout")
        self.person.must_know("how much room is needed and how much there is",
                              r"needs \d.* MB.*room for \d.* MB")
        self.person.key("Escape")
        self.person.gone(box)
        self.open_exercise(EXERCISES[0])
        for song in (4, 3):
            self.remove_song(song)
        self.update()
        self.close_progress()
        assert len(list((self.player / "Monday").glob("*Song*"))) >= 3
        other.unlink()

    def song_that_is_gone(self):
        song = self.exercise(0)["music"][1][0]
        os.remove(song)
        gone = r"(gone|missing|not found|cannot be found|is not there)"
        self.open_exercise(EXERCISES[0])
        row = self.row("Music to be played", 1)
        known = self.person.must_know(
            "which song is gone, before the update",
            rf"Song 2\.mp3.{{0,80}}{gone}|\b(1|one) song.{{0,40}}{gone}", [row])
        if not known:
            self.update()
            assert self.person.reads(r"ERROR: File not found\. .*Song 2\.mp3")
            self.close_progress()
        self.remove_song(1)
        self.update()
        self.close_progress()
        self.eventually("the song to be gone", lambda: song not in [
            entry[0] for entry in self.exercise(0)["music"]])

    def name_that_is_spoken_wrongly(self):
        self.add_exercise(NAME_THAT_IS_SPOKEN_WRONGLY)
        name = NAME_THAT_IS_SPOKEN_WRONGLY
        self.person.must_know(
            "that the name has no recording", rf"{name}.{{0,200}}(recording|spoken|computer voice)",
            [self.row("Exercises", name)])
        self._listen()
        self.turn_to(WORKOUT_TAB)
        row = self.row("Exercises", name)
        if not has_state(row, Atspi.StateType.SELECTED):
            self.person.click(row)
        self.person.press("Edit Exercise Name")
        self.person.answer("Edit Exercise Name", "Overhead Press")
        self.eventually("the name", lambda: self.names()[-1] == "Overhead Press")

    def _opens(self, title):
        """Whether a box opens within some seconds."""
        try:
            return self.program.wait_for("a box", lambda: active_title() == title, 8)
        except AssertionError:
            return False

    def _listen(self):
        """The exercise is heard in the window, or from the player after an update."""
        self.open_exercise(NAME_THAT_IS_SPOKEN_WRONGLY)
        buttons = [node for node in self.program.controls(self.program.main(), "push button")
                   if re.match(r"(Listen|Hear|Play)\b", node.get_name())]
        if buttons:
            self.person.click(buttons[0])
            # There is no sound here, which is said in a box.
            if self._opens("Repvolta"):
                self.person.confirm("Repvolta")
            return
        self.update()
        self.close_progress()
        self.person.cannot("hear the name")


TASKS = [
    ("First start", Tasks.first_start),
    ("Workout with three exercises", Tasks.three_exercises),
    ("Three sets each", Tasks.three_sets_each),
    ("Weekly growth and its first date", Tasks.weekly_growth),
    ("Five songs, random music for the others", Tasks.music),
    ("Update and open the folder", Tasks.update_and_open),
    ("Change a weight by keyboard", Tasks.weight_by_keyboard),
    ("Remove an exercise and get it back", Tasks.remove_and_get_back),
    ("A second workout from the first", Tasks.second_workout),
    ("A full player", Tasks.full_player),
    ("A song that is gone", Tasks.song_that_is_gone),
    ("A name that is spoken wrongly", Tasks.name_that_is_spoken_wrongly),
]
