"""The base of the tests with players: each has a new home and a new player."""

import collections
import json
import os
import pathlib
import re
import shutil
import tempfile
import unittest

from file_systems import KINDS, MEBIBYTE
from home import Home, content_of, listed, play_list_of

KIND = os.environ["REPVOLTA_PLAYER"]
NUMBER = len("RV001-")


def files_in(folder):
    """The content of each file below a folder."""
    return {str(path.relative_to(folder)): content_of(path)
            for path in folder.rglob("*") if path.is_file()}


def kept_as(name, kept):
    """The line of the log, in which a control character is a question mark."""
    return re.sub("[\0-\x1f]", "?", f"WARNING: {name} is kept as {kept}")


def contents_of_songs(folders):
    """How often there is each content among the songs that the folders' play lists name."""
    play_lists = [play_list_of(folder) for folder in folders]
    return collections.Counter(
        content_of(file, numbered=False) for play_list in play_lists if play_list
        for file in listed(play_list) if "-Instructions." not in file.name and file.is_file())


class PlayerTest(unittest.TestCase):
    size = 24 * MEBIBYTE
    maxDiff = 3000

    def setUp(self):
        work = pathlib.Path(tempfile.mkdtemp(dir=os.environ["REPVOLTA_WORK"]))
        self.addCleanup(shutil.rmtree, work)
        self.home = Home(os.environ["REPVOLTA_BUILD"], work)
        self.player = KINDS[KIND](work, self.size)
        self.addCleanup(self.player.end)
        self.player.plug_in()

    def update_plain(self, status=0):
        """The same update on the computer's own disk."""
        plain = self.home.update(self.home.plain)
        self.assertEqual((plain.status, plain.complaint), (status, ""), plain.said)
        return plain

    def expect_same(self, plain, on_player):
        """The player holds what the computer's own disk holds; only names may differ."""
        self.assertEqual((on_player.errors(), on_player.complaint), (plain.errors(), ""))
        self.assertEqual(on_player.status, plain.status)
        self.assertEqual(on_player.lines[-1], "UPDATE COMPLETE.")
        folders = on_player.folders()
        self.assertEqual(len(set(folders)), len(plain.folders()))
        for plain_folder, folder in zip(plain.folders(), folders):
            self.expect_same_folder(plain_folder, folder, on_player)
        entries = {entry.name for entry in self.player.folder.iterdir() if entry.name != "photos"}
        self.assertEqual(entries, {folder.name for folder in folders})

    def expect_same_folder(self, plain_folder, folder, on_player):
        self.assertEqual(folder.parent, self.player.folder)
        self.expect_nearest(plain_folder.name, folder.name, plain_folder.name, on_player)
        play_list, plain_list = play_list_of(folder), play_list_of(plain_folder)
        self.assertIsNotNone(play_list, f"no play list in {folder}")
        wanted, got = listed(plain_list), listed(play_list)
        self.assertEqual(len(got), len(wanted), got)
        for plain_file, file in zip(wanted, got):
            self.assertEqual(file.parent, folder)
            self.assertTrue(file.is_file(), f"{file} is in the play list and not there")
            self.assertEqual(content_of(file), content_of(plain_file), str(file))
            self.expect_nearest(plain_file.name, file.name, plain_file.name[NUMBER:], on_player)
        self.assertEqual(sorted(os.listdir(folder)),
                         sorted([play_list.name, *(file.name for file in got)]))

    def expect_nearest(self, name, kept, shown, on_player):
        """A name is kept where it can be, and else a line says what it became. `shown` is the name
        by which the person knows it."""
        if self.player.takes(name):
            self.assertEqual(kept, name)
            self.assertNotIn(shown + " is kept as ", on_player.said)
        else:
            self.assertNotEqual(kept, name)
            self.assertEqual(on_player.lines.count(kept_as(shown, kept)), 1, on_player.said)

    def songs_on_player(self):
        """The contents of the songs that the player's play lists name and that are there."""
        return contents_of_songs([folder for folder in self.player.folder.iterdir()
                                  if folder.is_dir()])

    def tell(self, what, songs, arrived, lost):
        """Adds a row for the table of docs/reliability.md."""
        place = os.environ.get("REPVOLTA_PLAYERS_TABLE")
        if place:
            with open(place, "a", encoding="utf-8") as table:
                print(json.dumps([KIND, what, songs, arrived, lost]), file=table)
