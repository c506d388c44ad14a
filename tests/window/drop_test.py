"""Songs that are dragged from another program's window onto the music list."""

import os
import pathlib
import subprocess
import unittest

from desktop import Atspi
from display import LIMIT, output_of, wait_for
from support import WindowTest

FREE_PLACE = (1100, 750)  # on the screen, where the program's window does not reach


class Drop(WindowTest):
    def setUp(self):
        super().setUp()
        self.program = self.start_set_up()
        self.new_workout("Monday")
        self.add_own_exercise("Running")
        self.open_exercise("Running")

    def music_list(self):
        return self.program.find(self.program.main(), "list", "Music to be played")

    def start_source(self, urls):
        source = subprocess.Popen(
            [pathlib.Path(os.environ["REPVOLTA_BUILD"]) / "tests" / "drag_source", *urls],
            env=self.program.environment, stdout=subprocess.PIPE, text=True)
        self.addCleanup(source.stdout.close)
        self.addCleanup(source.kill)
        return source

    def drag(self, *urls):
        """Drags the addresses onto the music list, and returns what was made of them."""
        box = self.music_list().get_extents(Atspi.CoordType.SCREEN)
        source = self.start_source(urls)
        window = wait_for("the window to drag from", lambda: subprocess.run(
            ["xdotool", "search", "--onlyvisible", "--name", "^Drag source$"],
            capture_output=True, text=True).stdout.split())[0]
        output_of("xdotool", "windowmove", "--sync", window, *map(str, FREE_PLACE))
        output_of("xdotool", "mousemove", "--sync", "--window", window, "50", "50",
                  "mousedown", "1")
        middle = (box.x + box.width // 2, box.y + box.height // 2)
        # In small steps, as a hand does: a drag begins with the first, and each asks the window
        # below the mouse.
        for step in range(1, 21):
            place = [start + 50 + (end - start - 50) * step // 20
                     for start, end in zip(FREE_PLACE, middle)]
            output_of("xdotool", "mousemove", "--sync", *map(str, place))
        output_of("xdotool", "mouseup", "1")
        return source.communicate(timeout=LIMIT)[0].split()[-1]

    def exercise(self):
        return self.home.records("workouts/Monday.RPV")["exercises"][0]

    def test_takes_songs_and_folders_and_says_what_is_no_music(self):
        (self.home.music / "Album").mkdir()
        songs = [self.home.add_song("Album/B side.mp3", 20), self.home.add_song("ä 1.MP3", 10)]
        cover = self.home.music / "cover.jpg"
        cover.write_bytes(b"")
        action = self.drag(pathlib.Path(songs[1]).as_uri(), cover.as_uri(),
                           (self.home.music / "Album").as_uri())
        self.assertEqual(action, "copied")
        self.assertEqual(self.program.message("Repvolta"), "2 songs were added.\n\n"
                         "1 is no MP3 file, or a folder without one:\ncover.jpg")
        self.program.main()
        self.assertEqual(self.program.items("Music to be played"), songs)
        self.assertEqual(self.exercise()["music"], [[songs[0], 20], [songs[1], 10]])
        self.assertTrue(cover.exists())
        self.program.wait_for("the line below the list", lambda: self.program.controls(
            self.program.main(), "label", "4:30 short of the target"))
        self.assertEqual(self.program.exit(), 0)

    def test_refuses_what_is_not_on_this_computer(self):
        self.assertEqual(self.drag("https://example.org/a.mp3"), "refused")
        self.program.main()
        self.assertEqual(self.program.items("Music to be played"), [])
        self.assertEqual(self.program.exit(), 0)


if __name__ == "__main__":
    unittest.main()
