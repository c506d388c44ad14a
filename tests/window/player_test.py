"""What the window asks, shows and leaves on the player before, during and after an update."""

import unittest

from display import keys
from support import SETTINGS_TAB, WindowTest

# It is never ready with the second instruction.
HANGING_ENCODER = """#!/bin/sh
[ ! -e begun ] || exec sleep 1000
touch begun
printf sound >"$3"
"""
EXERCISES = ["Running", "Rowing", "Plank", "Squats", "Stretching"]


class Player(WindowTest):
    def setUp(self):
        super().setUp()
        self.program = self.start_set_up()
        self.player = self.home.folder / "Player"
        self.new_workout("Monday")
        self.add_own_exercise("Running")

    def put_encoder(self, script):
        encoder = self.home.program / "lame.exe"
        encoder.unlink(missing_ok=True)
        encoder.write_text(script)
        encoder.chmod(0o755)

    def question(self, answer):
        """Answers the question before an update and returns it."""
        self.program.press("Update Workout")
        return self.program.message("Update Workout", answer)

    def test_is_asked_for_before_anything_changes(self):
        away = self.home.folder / "unplugged"
        self.player.rename(away)
        before = (self.home.program / "workouts/Monday.RPV").read_bytes()
        self.assertEqual(self.question("Escape"),
                         f"{self.player} is not there. Update all the same?")
        self.program.main()
        self.assertFalse(self.player.exists())
        self.assertEqual((self.home.program / "workouts/Monday.RPV").read_bytes(), before)
        away.rename(self.player)
        self.update()
        self.assertTrue((self.player / "Monday" / "Monday.M3U").exists())
        self.assertEqual(self.program.exit(), 0)

    def test_gets_a_play_list_of_its_own(self):
        self.program.tab(SETTINGS_TAB)
        self.program.press("Also write a play list for the player", role="check box")
        options = self.home.program / "options.conf"
        self.program.wait_for("the option", options.exists)
        self.update()
        lines = (self.player / "Monday" / "Monday.m3u8").read_bytes().split(b"\r\n")
        self.assertEqual(lines[0], b"#EXTM3U")
        self.assertEqual(lines[2:], [b"RV001-Instructions.mp3", b""])
        self.assertEqual(self.program.exit(), 0)

    def test_keeps_whole_files_when_the_update_is_stopped(self):
        for name in EXERCISES[1:]:
            self.add_own_exercise(name)
        self.put_encoder(HANGING_ENCODER)
        self.program.press("Update Workout")
        self.program.wait_for("the first instruction", lambda: any(
            line.startswith("RV001-Instructions.mp3") for line in self.progress()))
        self.program.window("Repvolta Update Progress...")
        keys("alt+s")
        self.program.wait_for("the end", lambda: self.progress()[-1].startswith("STOPPED: "))
        self.assertEqual(self.progress()[-1], "STOPPED: 1 of 5 files is on the player; files of "
                         "Rowing, Plank, Squats and Stretching are missing.")
        songs = [path.name for path in (self.player / "Monday").glob("RV*")]
        self.assertEqual(songs, ["RV001-Instructions.mp3"])
        listed = (self.player / "Monday" / "Monday.M3U").read_text().split()
        self.assertEqual([line.rsplit("/", 1)[1] for line in listed], songs)
        for left in ("temp.wav", "temp.mp3"):
            self.assertFalse((self.home.program / left).exists(), left)
        keys("Return")
        self.program.main()
        self.assertEqual(self.program.exit(), 0)


if __name__ == "__main__":
    unittest.main()
