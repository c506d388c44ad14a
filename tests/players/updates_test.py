"""Whole updates to a player are those to the computer's own disk; only names may differ."""

import struct
import unittest

from home import content_of, exercise, listed, play_list_of, song
from support import PlayerTest, contents_of_songs

ODD_SONGS = ["What's up?.mp3", "AC:DC.mp3", 'Say "go".mp3', "a*b.mp3", "pipe|x.mp3", "less<more>.mp3",
             "back\\slash.mp3", "The end...mp3", "trailing dot.mp3.", "Éte 走れ 🏃.mp3"]
MORE_ODD_SONGS = ["CON.mp3", "nul.mp3", "COM1.mp3", "tab\tinside.mp3", "bell\a.mp3", "100% & more.mp3",
                  "-o.mp3", "~.mp3", "a?b.mp3", "a*b .mp3"]
ODD_WORKOUTS = ["Week: 1", "Why?", "CON", "aux", "nul.5x5", "Rest...", "Rest .", "a|b", "a*b", "C\\D",
                "<Go>", 'Say "go"', "Früh 走 🏃", ".hidden"]
# With "RV002-" in front they have 255 bytes, more, and as many as a name can have here.
LONG_SONGS = [("x", 249), ("x", 250), ("x", 252), ("x", 255), ("ü", 249), ("ü", 255), ("走", 255),
              ("🏃", 255)]
XING_WITHOUT_RATE = b"Xing" + struct.pack(">2I", 1, 1_000_000_000)


def long_name(character, size):
    """A name with that many bytes, most of which are this character's."""
    wide = len(character.encode())
    count, rest = divmod(size - len(".mp3"), wide)
    return "a" * rest + character * count + ".mp3"


def tag():
    frame = b"TIT2" + struct.pack(">IH", 4, 0) + b"\0Old"
    return b"ID3\3\0\0" + bytes([0, 0, 0, len(frame)]) + frame


class Updates(PlayerTest):
    def compare(self, what=None, status=0):
        """`what`: the row of the table that tells how many songs arrived."""
        plain = self.update_plain(status)
        on_player = self.home.update(self.player.folder)
        if what:
            wanted = contents_of_songs(plain.folders())
            arrived = (wanted & self.songs_on_player()).total()
            self.tell(what, wanted.total(), arrived, wanted.total() - arrived)
        self.expect_same(plain, on_player)
        return plain, on_player

    def test_of_plain_names_say_nothing_new(self):
        songs = [self.home.add_song(f"Song {number}.mp3") for number in range(10)]
        self.home.add_workout("Monday", exercise("Squat", songs[:5]), exercise("Plank", songs[5:]))
        plain, on_player = self.compare("plain names")
        self.assertEqual([line.replace(str(self.player.folder), "") for line in on_player.lines],
                         [line.replace(str(self.home.plain), "") for line in plain.lines])

    def test_keep_songs_with_odd_names(self):
        for name, songs in (("Monday", ODD_SONGS), ("Tuesday", MORE_ODD_SONGS)):
            paths = [self.home.add_song(song_name) for song_name in songs]
            self.home.add_workout(name, exercise("Squat", paths[:5]), exercise("Plank", paths[5:]))
        self.compare("odd names of songs")

    def test_keep_songs_with_long_names(self):
        arrived = 0
        for number, (character, size) in enumerate(LONG_SONGS):
            with self.subTest(character=character, size=size):
                name = long_name(character, size)
                self.assertEqual(len(name.encode()), size)
                path = self.home.add_song(name)
                # Songs that are drawn may have longer paths than a workout can hold.
                (self.home.program / "musiclist.txt").write_bytes(str(path).encode() + b"\n")
                self.home.workouts = {}
                self.home.add_workout(f"Long {number}", exercise("Squat", drawn=True))
                on_player = self.home.update(self.player.folder)
                arrived += contents_of_songs(on_player.folders()).total()
                self.expect_long_name(name, character, on_player)
        self.tell("long names of songs", len(LONG_SONGS), arrived, len(LONG_SONGS) - arrived)

    def expect_long_name(self, name, character, on_player):
        """The name is cut before its extension where it is too long, and nowhere else."""
        self.assertEqual((on_player.status, on_player.errors()), (0, []), on_player.said)
        folder, = on_player.folders()
        _, file = listed(play_list_of(folder))
        self.assertTrue(file.read_bytes().endswith(song(name)))
        held = name if self.player.takes(character) else name.replace(character, "_")
        self.assertEqual(file.suffix, ".mp3")
        self.assertTrue(("RV002-" + held).startswith(file.stem), file.name)
        self.expect_nearest("RV002-" + name, file.name, name, on_player)
        if file.name != "RV002-" + held:
            one_more = held[:len(file.stem) + 1 - len("RV002-")] + ".mp3"
            self.assertFalse(self.player.takes("RV002-" + one_more), "it is cut too much")

    def test_keep_workouts_with_odd_names(self):
        path = self.home.add_song("Song.mp3")
        for name in ODD_WORKOUTS:
            self.home.add_workout(name, exercise("Squat", [path]))
        self.compare("odd names of workouts")

    def test_keep_workouts_with_long_names(self):
        path = self.home.add_song("Song.mp3")
        for name in ("x" * 246, "ü" * 123, "走" * 82, "🏃" * 61):
            self.home.add_workout(name, exercise("Squat", [path]))
        self.compare()

    def test_keep_workouts_whose_names_differ_by_case(self):
        songs = {name: self.home.add_song(f"{name}.mp3") for name in ("lower", "Upper")}
        self.home.add_workout("monday", exercise("Squat", [songs["lower"]]))
        self.home.add_workout("Monday", exercise("Squat", [songs["Upper"]]))
        plain = self.update_plain()
        on_player = self.home.update(self.player.folder)
        self.expect_apart(plain, on_player)
        # Neither does away with the other when it is updated alone.
        for name in ("monday", "Monday"):
            self.home.update_again(self.player.folder, f"{name}.RPV")
            self.expect_apart(plain, on_player)

    def expect_apart(self, plain, on_player):
        """Both workouts are there, or one of them, and a line said why the other is not."""
        refused = [name for name in ("monday", "Monday") if any(
            line.startswith("ERROR") and name in line for line in on_player.lines)]
        self.assertLessEqual(len(refused), 1)
        self.assertEqual(on_player.status, 1 if refused else 0, on_player.said)
        wanted = sorted(sorted(content_of(file) for file in listed(play_list_of(folder)))
                        for folder in plain.folders() if folder.name not in refused)
        found = sorted(sorted(content_of(file) for file in listed(play_list_of(folder)))
                       for folder in self.player.folder.iterdir())
        self.assertEqual(found, wanted)

    def test_keep_songs_with_odd_tags(self):
        frame = b"\xFF\xFB\x90\x00" + bytes(413)
        with_crc = b"\xFF\xFA\x90\x00" + bytes(413)
        kinds = {"tag inside.mp3": with_crc * 3 + tag() + with_crc * 3, "only a tag.mp3": tag(),
                 "no rate.mp3": frame[:36] + XING_WITHOUT_RATE + frame[48:] + frame * 9,
                 "two tags.mp3": tag() * 2 + frame * 9, "0 bytes.mp3": b"", "3 bytes.mp3": b"ID3",
                 "no frame.mp3": b"n" * 5000, "tagged.mp3": tag() + frame * 9,
                 "old tag.mp3": frame * 9 + b"TAG" + bytes(125), "last.mp3": frame * 9}
        paths = [self.home.add_song(name, content) for name, content in kinds.items()]
        self.home.add_workout("Monday", exercise("Squat", paths))
        self.compare("odd tags", status=1)

    def test_keep_the_sound_where_no_encoder_is(self):
        (self.home.program / "lame.exe").unlink()
        self.home.add_workout("Monday", exercise("Squat", [self.home.add_song("Song.mp3")]))
        self.compare()

    def test_of_a_shorter_workout_leave_nothing_behind(self):
        songs = [self.home.add_song(name) for name in ODD_SONGS]
        self.home.add_workout("Week: 1", exercise("Squat", songs), exercise("Plank", songs[:3]))
        self.compare()
        self.compare()
        self.home.add_workout("Week: 1", exercise("Squat", songs[1:3]))
        self.compare("again, with fewer songs")


if __name__ == "__main__":
    unittest.main()
