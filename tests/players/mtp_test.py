"""Players behind MTP differ in what they refuse, and in when they say so."""

import os
import pathlib
import tempfile
import unittest

from faults_test import SONGS, FaultTest
from file_systems import MEBIBYTE, Mtp

HABITS = [("--no-rename",), ("--no-room",), ("--fsync=EINVAL",), ("--fsync=ENOTSUP",),
          ("--no-rename", "--no-room", "--fsync=ENOTSUP")]
# Bytes after which it is pulled out: in an instruction, in a song, in a late song.
PULLED_OUT_AT = [2_000, 1_000_000, 4_000_000]
if os.environ.get("REPVOLTA_LONG"):
    PULLED_OUT_AT = list(range(0, 4_200_000, 60_000))


class MtpTest(FaultTest):
    def use_player_with(self, *habits):
        work = pathlib.Path(tempfile.mkdtemp(dir=os.environ["REPVOLTA_WORK"]))
        self.player = Mtp(work, self.size, habits)
        self.addCleanup(self.player.end)
        self.player.plug_in()
        self.folder = self.player.folder / "Monday"

    def test_loses_nothing_by_what_it_refuses(self):
        for habits in HABITS:
            with self.subTest(habits=habits):
                self.use_player_with(*habits)
                self.expect_all_later(" ".join(habits), SONGS)

    def test_that_is_pulled_out_while_a_file_is_written_is_told(self):
        least = SONGS
        for place in PULLED_OUT_AT:
            with self.subTest(place=place):
                self.use_player_with(f"--pulled-out-at={place}")
                run = self.update()
                self.player.plug_in()
                least = min(least, self.expect_told(run))
                self.expect_same(self.plain, self.update())
        self.tell(f"pulled out while writing, at {len(PULLED_OUT_AT)} places", SONGS, least, 0)

    def test_that_is_full_and_says_so_late_keeps_no_half_song(self):
        self.use_player_with("--full-on-close")
        self.player.fill(leaving=2 * MEBIBYTE)
        arrived = self.expect_told(self.update())
        self.assertIn(arrived, range(2, 6))
        self.player.make_room()
        self.expect_all_later("full, said on close", arrived)


if __name__ == "__main__":
    unittest.main()
