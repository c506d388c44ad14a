"""A player that is full, locked or gone: no song is lost, and none counts that is not whole."""

import os
import unittest

from file_systems import MEBIBYTE, run as run_command
from home import content_of, exercise, listed, play_list_of, song
from support import PlayerTest, files_in

SONGS = 10
FRAMES = 1000  # 407 KiB a song


class FaultTest(PlayerTest):
    """Ten songs in two exercises, whose weights grow."""

    def setUp(self):
        super().setUp()
        names = [f"Song {number}.mp3" for number in range(1, SONGS + 1)]
        songs = [self.home.add_song(name, song(name, FRAMES)) for name in names]
        self.home.add_workout("Monday", exercise("Squat", songs[:5]), exercise("Plank", songs[5:]))
        self.plain = self.update_plain()
        self.grown = self.home.saved()
        plain_folder, = self.plain.folders()
        self.wanted = [content_of(file, numbered=False)
                       for file in listed(play_list_of(plain_folder))]
        self.lost = 0
        self.folder = self.player.folder / "Monday"
        self.songs = [(name, content) for name, content in
                      zip([None, *names[:5], None, *names[5:]], self.wanted) if name]

    def update(self):
        return self.home.update(self.player.folder)

    def files_in_play_list(self):
        """The contents of the files that the play list names, which must all be there and whole."""
        play_list = play_list_of(self.folder) if self.folder.is_dir() else None
        found = []
        for file in listed(play_list) if play_list else []:
            self.assertTrue(file.is_file(), f"{file} is in the play list and not there")
            found.append(content_of(file, numbered=False))
            self.assertIn(found[-1], self.wanted, f"{file} is in the play list and not whole")
        self.assertEqual(found, [content for content in self.wanted if content in found],
                         "they are in another order")
        return found

    def expect_told(self, run):
        """The update ended, every song is on the player or in a line that gives the reason, and the
        workout has grown and is whole. Gives how many songs arrived."""
        in_list = self.files_in_play_list()
        there = [content_of(path, numbered=False) for path in self.folder.glob("RV*")]
        missing = [name for name, content in self.songs if content not in there]
        unlisted = [name for name, content in self.songs if content not in in_list]
        untold = [name for name in missing if not any(name in line for line in run.errors())]
        self.lost += len(untold)
        self.assertEqual(untold, [], f"no line says why they are missing:\n{run.said}")
        if unlisted != missing:
            self.assertTrue(any("Monday.M3U" in line for line in run.errors()), run.said)
        self.assertEqual((run.status, run.complaint), (1, ""), run.said)
        self.assertEqual(run.lines[-1], "UPDATE COMPLETE.")
        self.assertEqual(self.home.saved(), self.grown)
        return SONGS - len(missing)

    def expect_all_later(self, what, arrived):
        """The next update brings everything. `what`: the row of the table, which tells how many
        songs had arrived before. Lost is what no line named, or what does not arrive later."""
        run = self.update()
        self.lost += SONGS - self.songs_on_player().total()
        self.tell(what, SONGS, arrived, self.lost)
        self.expect_same(self.plain, run)


class Full(FaultTest):
    def expect_full_told(self, run):
        arrived = self.expect_told(run)
        self.assertTrue(run.errors())
        for line in run.errors():
            self.assertIn(os.strerror(self.player.full), line)
        in_list = self.files_in_play_list()
        for path in self.folder.glob("RV*"):
            self.assertIn(content_of(path, numbered=False), in_list, f"{path} was left half")
        return arrived

    def test_in_the_middle_takes_what_fits(self):
        self.player.fill(leaving=2 * MEBIBYTE)
        arrived = self.expect_full_told(self.update())
        self.assertIn(arrived, range(2, 6))
        self.player.make_room()
        self.expect_all_later("full in the middle", arrived)

    def test_to_the_last_byte_is_told(self):
        self.player.fill(leaving=0)
        arrived = self.expect_told(self.update())
        self.assertEqual(arrived, 0)
        self.player.make_room()
        self.expect_all_later("full before", arrived)

    def test_with_an_older_update_makes_room_by_it(self):
        self.update()
        self.player.fill(leaving=MEBIBYTE)
        self.expect_all_later("full but for the older update", SONGS)


class Locked(FaultTest):
    def test_is_told_and_changes_nothing(self):
        self.update()
        before = files_in(self.player.folder)
        self.player.unplug()
        self.player.plug_in("ro")
        run = self.update()
        self.assertEqual(run.status, 1, run.said)
        self.assertTrue([line for line in run.errors() if "Monday" in line
                         and "Read-only file system" in line], run.said)
        self.assertEqual(self.home.saved(), self.grown)
        self.assertEqual(files_in(self.player.folder), before)
        self.player.unplug()
        self.player.plug_in()
        self.expect_all_later("read-only", 0)


class Gone(FaultTest):
    def disturb_by(self, command):
        self.home.disturb(command)
        run = self.update()
        self.home.use_encoder()
        return run

    def expect_nothing_below_the_mount(self):
        """What is written to the folder of a player that has gone is lost to the person."""
        self.assertEqual(list(self.player.folder.iterdir()), [])

    def test_in_the_middle_is_told(self):
        run = self.disturb_by(self.player.pull_out_command())
        self.player.pull_out()
        self.player.clear_away()
        self.player.plug_in()
        arrived = self.expect_told(run)
        self.expect_all_later("pulled out in the middle", arrived)

    def test_by_unmounting_in_the_middle_writes_nothing_elsewhere(self):
        elsewhere = self.player.folder.parent / "elsewhere"
        elsewhere.mkdir()
        run = self.disturb_by(f"mount --move '{self.player.folder}' '{elsewhere}'")
        self.expect_nothing_below_the_mount()
        run_command("mount", "--move", elsewhere, self.player.folder)
        if run.status == 0:
            self.expect_same(self.plain, run)
            arrived = SONGS
        else:
            arrived = self.expect_told(run)
        self.expect_all_later("unmounted in the middle", arrived)

    def test_before_the_update_changes_nothing(self):
        self.update()
        grown = self.home.saved()
        self.player.unplug()
        run = self.home.update_again(self.player.folder)
        self.assertEqual(run.status, 2, run.said)
        self.assertEqual(len(run.complaint.splitlines()), 1, run.complaint)
        self.assertEqual(self.home.saved(), grown)
        self.expect_nothing_below_the_mount()
        self.player.plug_in()
        self.expect_all_later("not plugged in", 0)


if __name__ == "__main__":
    unittest.main()
