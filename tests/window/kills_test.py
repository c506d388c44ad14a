"""The window is killed again and again while a person works with it. The work and the moment of the
kill are random for each attempt."""

import collections
import ctypes
import os
import random
import select
import shutil
import signal
import struct
import threading
import time
import unittest
from unittest import mock

from desktop import LIMIT
from display import keys
from hands import MOST_EXERCISES, MOST_SETS, NAMES, NUMBERS, Hands
from support import EXERCISE_TAB, SETTINGS_TAB, WORKOUT_TAB, WindowTest

FIRST = int(os.environ.get("REPVOLTA_FIRST_KILL", "0"))
KILLS = int(os.environ.get("REPVOLTA_KILLS", "20"))
WORKOUT_SIZE = 266_240
WORKOUTS = ["Monday", "Tuesday"]
DEFAULT_TIMES = {5, *map(round, NUMBERS)}  # minutes
LEFT_BY_SAVES = {"program/.settings.dat.new": "a save of settings",
                 **{f"program/workouts/.{workout}.RPV.new": "a save of a workout"
                    for workout in WORKOUTS}}
LEFT_BY_VERSIONS = {"next", ".next.new"}
LEFT_BY_UPDATES = {"program/temp.wav", "program/temp.mp3",
                   f"program/voice/exercise/.{NAMES[-1]}.WAV.new"}
# The tab, the work there, and the number of created files after which the kill comes at the latest.
PLANS = [(EXERCISE_TAB, Hands.choices, 40), (SETTINGS_TAB, Hands.settings, 40),
         (EXERCISE_TAB, Hands.sets, 3), (WORKOUT_TAB, Hands.exercises, 3),
         (WORKOUT_TAB, Hands.restore, 6), (WORKOUT_TAB, Hands.update, 16), (EXERCISE_TAB, Hands.update, 16),
         (WORKOUT_TAB, Hands.leave, 1)]


class Killer(threading.Thread):
    """Kills a process shortly after it has created that many files in the folders."""

    IN_CREATE = 0x100

    def __init__(self, process, folders, begun, moments):
        super().__init__()
        self.process, self.begun, self.moments = process, begun, moments
        library = ctypes.CDLL(None, use_errno=True)
        self.events = library.inotify_init1(os.O_CLOEXEC)
        for folder in folders:
            if library.inotify_add_watch(self.events, os.fsencode(folder), self.IN_CREATE) < 0:
                raise OSError(ctypes.get_errno(), f"{folder} cannot be watched")

    def run(self):
        while self.begun > 0 and self.process.poll() is None:
            if select.select([self.events], [], [], 0.1)[0]:
                self.begun -= self.count(os.read(self.events, 65536))
        time.sleep(self.moments)  # drawn by chance
        self.process.kill()
        os.close(self.events)

    @staticmethod
    def count(data):
        count = 0
        while data:
            length = struct.unpack_from("iIII", data)[3]
            data = data[16 + length:]
            count += 1
        return count


class Kills(WindowTest):
    def setUp(self):
        super().setUp()
        # A folder may stay if a name is being spoken at the moment of the kill.
        temporary = self.home.folder / "temporary"
        temporary.mkdir()
        self.enterContext(mock.patch.dict(os.environ, TMPDIR=str(temporary)))
        self.songs = {self.home.add_song(f"Song {i}.mp3", 10 * i): 10 * i for i in (1, 2)}
        self.program = self.start_set_up()
        self.player = self.home.folder / "Player"
        self.clip = self.file(f"voice/exercise/{NAMES[-1]}.WAV")
        self.amid = collections.Counter()
        for workout in reversed(WORKOUTS):
            self.add_workout(workout)
        self.update()

    def file(self, name):
        return self.home.program / name

    def add_workout(self, name):
        self.new_workout(name)
        for exercise in (NAMES[0], NAMES[-1]):
            self.add_own_exercise(exercise)
        self.open_exercise(NAMES[0])
        for song in self.songs:
            self.add_music(song)
        self.program.tab(WORKOUT_TAB)

    def test_lose_nothing(self):
        self.songs_before = self.look_at_songs()
        self.files_before = self.files()
        self.settings_before = self.records("settings.dat")
        # Of the set-up nothing can be undone, for it is started anew, or restored.
        shutil.rmtree(self.versions)
        for workout in WORKOUTS:
            (self.versions / workout).mkdir(parents=True)
            shutil.copy(self.file(f"workouts/{workout}.RPV"),
                        self.versions / workout / "2026-01-01 12.00.00 before update.RPV")
        self.program.exit()
        self.program = self.start()
        self.program.main()
        for attempt in range(FIRST, FIRST + KILLS):
            self.attempt(attempt)
        amid = ", ".join(f"{what} {count} times" for what, count in sorted(self.amid.items()))
        print(f"{KILLS} attempts; killed amid {amid}")

    def attempt(self, seed):
        chance = random.Random(seed)
        tab, deed, most = chance.choice(PLANS)
        print(f"{seed}: {deed.__name__}", end=" ", flush=True)
        updates = deed is Hands.update
        shown = self.records("settings.dat")["last"]
        if updates:
            self.clip.unlink(missing_ok=True)  # so that it is spoken anew
            self.old_output(shown).touch()
        self.program.tab(tab)
        killer = Killer(self.program.process, [self.home.program, self.file("workouts"), self.player],
                        chance.randint(1, most),
                        chance.uniform(0, chance.choice([0.001, 0.001, 0.2])))
        self.play(Hands(self, chance), deed, killer)
        amid = self.check_whole(shown, updates)
        self.amid.update(amid)
        killed = "was killed" if self.program.process.returncode == -signal.SIGKILL else "has ended"
        print(f"{killed} amid {' and '.join(amid) or 'nothing'}", flush=True)
        self.check_recovery(updates)

    @property
    def versions(self):
        return self.home.program / "versions"

    def old_output(self, shown):
        """A path in a folder that the next update must clear."""
        folder = self.player / WORKOUTS[shown]
        folder.mkdir(exist_ok=True)
        return folder / "old"

    def play(self, hands, deed, killer):
        killer.start()
        try:
            while True:
                deed(hands)
        except Exception:  # which is due to the kill, once that has come
            if self.program.process.poll() is None:
                raise
        finally:
            self.program.kill()
            killer.join(LIMIT)

    def check_whole(self, shown, updates):
        """Returns what the kill interrupted, as far as the remaining files show it."""
        self.check_settings(self.records("settings.dat"))
        for workout in WORKOUTS:
            self.assertEqual(self.file(f"workouts/{workout}.RPV").stat().st_size, WORKOUT_SIZE)
            exercises = self.exercises(workout)
            self.assertIn(len(exercises), range(1, MOST_EXERCISES + 1))
            for exercise in exercises:
                self.check_exercise(exercise)
        self.check_versions()
        self.assertEqual(self.look_at_songs(), self.songs_before)
        if self.clip.exists():
            clip = self.clip.read_bytes()
            self.assertEqual(int.from_bytes(clip[4:8], "little") + 8, len(clip))
        new = self.files() - self.files_before
        left = LEFT_BY_SAVES.keys() | (LEFT_BY_UPDATES if updates else set())
        self.assertEqual(new - left, set())
        amid = {LEFT_BY_SAVES[name] for name in new & LEFT_BY_SAVES.keys()}
        if updates and not self.old_output(shown).exists() and not self.has_output(shown):
            amid.add("an update")
        return sorted(amid)

    def check_versions(self):
        """Each kept version is a whole workout; what a kill left of one is replaced by the next."""
        for path in self.versions.rglob("*"):
            if path.is_dir() or path.name in LEFT_BY_VERSIONS:
                continue
            self.assertEqual(path.stat().st_size, WORKOUT_SIZE, path)
            for exercise in self.records(path.relative_to(self.home.program))["exercises"]:
                self.check_exercise(exercise)

    def check_settings(self, settings):
        self.assertIn(settings["last"], range(len(WORKOUTS)))
        self.assertIn(settings["time"], DEFAULT_TIMES)
        self.assertIn(settings["rate"], range(-10, 11))
        self.assertIn(settings["volume"], range(101))
        for name in ("whole", "music", "output", "playlist"):
            self.assertEqual(settings[name], self.settings_before[name])

    def check_exercise(self, exercise):
        self.assertIn(exercise["name"], NAMES)
        self.assertLessEqual(len(exercise["values1"]), MOST_SETS)
        # Both are typed together.
        self.assertEqual(exercise["values1"], exercise["values2"])
        self.assertLessEqual({*exercise["values1"], *exercise["increments1"]}, {0, *NUMBERS})
        self.assertIn(exercise["type"], range(4))
        self.assertIn(exercise["target"] / 60, [*NUMBERS, *DEFAULT_TIMES])
        for song, seconds in exercise["music"]:
            self.assertEqual(seconds, self.songs[song])
        self.assertEqual(sum(seconds for _, seconds in exercise["music"]), exercise["total"])

    def check_recovery(self, updates):
        """Leftovers are gone after the program has repeated the same save or update."""
        new = self.files() - self.files_before
        self.program = program = self.start()
        program.main()
        shown = self.records("settings.dat")["last"]
        self.assertEqual(program.items("Exercises"),
                         [exercise["name"] for exercise in self.exercises(WORKOUTS[shown])])
        for name in new & LEFT_BY_SAVES.keys():
            self.save_again(self.home.folder / name, shown)
        if updates:
            self.update()
            self.assertTrue(self.has_output(shown))
        self.assertEqual(self.files() - self.files_before, set())

    def save_again(self, left, shown):
        saved = left.with_name(left.name.removeprefix(".").removesuffix(".new"))
        before = saved.stat().st_mtime_ns
        if left.parent == self.home.program:
            self.program.tab(SETTINGS_TAB)
            keys("alt+i")
        else:
            if WORKOUTS[shown] not in left.name:
                keys("alt+o", "Up" if shown else "Down")
            self.program.tab(EXERCISE_TAB)
            keys("alt+k")
        self.program.wait_for(f"{saved.name} to be saved again",
                              lambda: saved.stat().st_mtime_ns != before)
        if left.parent != self.home.program and WORKOUTS[shown] not in left.name:
            self.program.tab(WORKOUT_TAB)
            keys("alt+o", "Down" if shown else "Up")

    def has_output(self, shown):
        """Whether the update has made all files of a workout."""
        folder = self.player / WORKOUTS[shown]
        play_list = folder / f"{WORKOUTS[shown]}.M3U"
        if not play_list.exists():
            return False
        names = [os.path.basename(line) for line in play_list.read_text().splitlines()]
        self.assertLessEqual({*names, play_list.name}, {*os.listdir(folder)})
        return len(names) == sum(1 + len(exercise["music"])
                                 for exercise in self.exercises(WORKOUTS[shown]))

    def records(self, name):
        records = self.home.records(name)
        self.assertTrue(records["whole"])
        return records

    def exercises(self, workout):
        return self.records(f"workouts/{workout}.RPV")["exercises"]

    def look_at_songs(self):
        return {path.name: (path.read_bytes(), path.stat().st_mtime_ns)
                for path in self.home.music.iterdir()}

    def files(self):
        """All files except those on the player, the windows' layout, the clip and the versions."""
        folders = (self.player, self.home.folder / ".config", self.home.folder / "temporary",
                   self.versions)
        return {str(path.relative_to(self.home.folder)) for path in self.home.folder.rglob("*")
                if path != self.clip and not path.name.startswith(("window.ini", "QtProject"))
                and not any(path.is_relative_to(other) for other in folders)}


if __name__ == "__main__":
    unittest.main()
