"""Players behind MTP differ in what they refuse, and in when they say so."""

import os
import pathlib
import tempfile
import unittest

from faults_test import SONGS, FaultTest
from file_systems import MEBIBYTE, Mtp

HABITS = {"renames nothing": ("--no-rename",), "does not tell its room": ("--no-room",),
          "refuses flushes as invalid": ("--fsync=EINVAL",),
          "refuses flushes as unknown": ("--fsync=ENOTSUP",),
          "all this together": ("--no-rename", "--no-room", "--fsync=ENOTSUP")}
# Bytes after which it is pulled out: in an instruction, in a song, in a late song.
PULLED_OUT_AT = [2_000, 1_000_000, 4_000_000]
if os.environ.get("REPVOLTA_LONG"):
    PULLED_OUT_AT = list(range(0, 4_200_000, 60_000))


class MtpTest(FaultTest):
    def use_player_with(self, *habits):
        work = pathlib.Path(tempfile.mkdtemp(dir=os.environ["REPVOLTA_WORK"]))
        self.player = Mtp(work, self.size, habits=habits)
        self.addCleanup(self.player.end)
        self.player.plug_in()
        self.folder = self.player.folder / "Monday"

    def test_loses_nothing_by_what_it_refuses(self):
        for what, habits in HABITS.items():
            with self.subTest(habits=habits):
                self.use_player_with(*habits)
                run = self.update()
                arrived = self.songs_on_player().total()
                self.tell(what, SONGS, arrived, SONGS - arrived)
                self.expect_same(self.plain, run)

    def test_that_is_pulled_out_while_a_file_is_written_is_told(self):
        arrived = 0
        for place in PULLED_OUT_AT:
            with self.subTest(place=place):
                self.use_player_with(f"--pulled-out-at={place}")
                run = self.update()
                self.player.plug_in()
                arrived += self.expect_told(run)
                again = self.update()
                self.lost += SONGS - self.songs_on_player().total()
                self.expect_same(self.plain, again)
                self.player.end()
        places = len(PULLED_OUT_AT)
        self.tell(f"pulled out while writing, at {places} places", places * SONGS, arrived,
                  self.lost)

    def test_that_is_full_and_says_so_late_keeps_no_half_song(self):
        self.use_player_with("--full-on-close")
        self.player.fill(leaving=2 * MEBIBYTE)
        arrived = self.expect_told(self.update())
        self.assertIn(arrived, range(2, 6))
        self.player.make_room()
        self.expect_all_later("full, said on close", arrived)


if __name__ == "__main__":
    unittest.main()
