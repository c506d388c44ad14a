"""The program directory of a person with music and workouts, and what an update of theirs has
made."""

import hashlib
import os
import pathlib
import re
import shutil
import struct
import subprocess

UPDATE_LIMIT = 60  # seconds: an update that takes longer hangs
WORKOUT_SIZE = 266_240
RECORD_SIZE = 5120
SLOTS = 52
TRUE = -1
NEXT_UPDATES = slice(3512, 3784)  # of a record: two times 17 dates


def text(value, size):
    return value.encode().ljust(size)[:size]


def exercise(name, songs=(), drawn=False):
    """A record with one set, whose weight has been due to grow for a long time and then is not
    again for years."""
    songs = [str(song) for song in songs]
    record = b"".join(text(song, 256) for song in songs + [""] * (12 - len(songs)))
    record += struct.pack("<12h4h", *[0] * 12, 0, 0, len(songs), 1)
    for first in (50.0, 10.0, 2.5, 0.0, 10_000.0, 0.0):  # values, increments, frequencies
        record += struct.pack("<17f", first, *[0.0] * 16)
    record += struct.pack("<34d", 1.0, *[0.0] * 33)
    record += struct.pack("<h", 0) + text("", 50)
    record += struct.pack("<2h", 0, TRUE if drawn else 0) + text(name, 256)
    return record + text("", 768) + bytes(256)


def workout(*exercises):
    empty = struct.pack("<3072s", text("", 3072)) + bytes(714) + text("", 50) + bytes(4) \
        + text("", 256 + 768) + bytes(256)
    return b"".join(exercises) + empty * (SLOTS - len(exercises))


def without_dates(content):
    """A workout file without what the day of its growth decides."""
    records = []
    for begin in range(0, len(content), RECORD_SIZE):
        record = bytearray(content[begin:begin + RECORD_SIZE])
        record[NEXT_UPDATES] = bytes(NEXT_UPDATES.stop - NEXT_UPDATES.start)
        records.append(bytes(record))
    return records


def settings(music, output):
    return (text(str(music), 256) + text(str(output), 256) + struct.pack("<h6x", 0)
            + struct.pack("<3h", 0, 0, 100) + struct.pack("<h", 1) + b"0"
            + struct.pack("<2h", 0, TRUE) + struct.pack("<2xh16x", 0) + text("", 768))


def song(name, frames=20):
    """A song of its own: frames of 417 bytes whose content the name decides."""
    filling = (name.encode() * 400)[:413].replace(b"\xFF", b"x")
    return b"".join(b"\xFF\xFB\x90\x00" + filling[number % 400:] + filling[:number % 400]
                    for number in range(frames))


def content_of(path, numbered=True):
    """What tells the content of a file from any other, short enough for a message; without the
    number in its tag, if wanted, which depends on how many came before it."""
    content = path.read_bytes()
    if not numbered:
        content = re.sub(rb"RV\d{3}-", b"", content[:200]) + content[200:]
    return f"{len(content)} bytes, {hashlib.sha256(content).hexdigest()[:16]}"


class Update:
    """What repvolta-update said, and what there is of each of its workouts."""

    def __init__(self, done, output):
        self.status = done.returncode
        self.said = done.stdout.decode(errors="surrogateescape")
        self.complaint = done.stderr.decode(errors="surrogateescape")
        self.lines = self.said.split("\n")[:-1]
        self.output = output

    def beginning(self, word):
        return [line for line in self.lines if line.startswith(word)]

    def errors(self):
        """The same on any disk."""
        return [line.replace(str(self.output), "PLAYER") for line in self.beginning("ERROR")]

    def folders(self):
        """The folders of the workouts, in the order of the update."""
        begin = "Created directory "
        return [pathlib.Path(line[len(begin):]) for line in self.beginning(begin)]


def play_list_of(folder):
    """The play list of a workout's folder; nothing when there is none."""
    found = [folder / name for name in os.listdir(folder) if name.endswith(".M3U")]
    assert len(found) <= 1, found
    return found[0] if found else None


def listed(play_list):
    """The files that a play list names."""
    content = os.fsdecode(play_list.read_bytes())
    assert content == "" or content.endswith("\r\n"), content
    return [pathlib.Path(line) for line in content.split("\r\n")[:-1]]


class Home:
    def __init__(self, build, folder):
        self.folder = folder
        self.program = folder / "program"
        self.music = folder / "m"
        self.plain = folder / "plain"  # the output on the computer's own disk
        for made in (self.program / "workouts", self.music, self.plain):
            made.mkdir(parents=True)
        built = pathlib.Path(build) / "bin"
        shutil.copy(built / "repvolta-update", self.program)
        shutil.copytree(built / "voice", self.program / "voice", copy_function=os.symlink)
        self.use_encoder()
        self.workouts = {}

    def use_encoder(self):
        encoder = self.program / "lame.exe"
        encoder.unlink(missing_ok=True)
        encoder.symlink_to(shutil.which("lame"))

    def disturb(self, command):
        """From now on the encoder of the second exercise runs a command of the shell first."""
        encoder, mark = self.program / "lame.exe", self.folder / "encoded one"
        encoder.unlink()
        encoder.write_text(f"#!/bin/sh\nif [ -e '{mark}' ]; then {command}\nfi\n: > '{mark}'\n"
                           f"exec {shutil.which('lame')} \"$@\"\n", encoding="utf-8")
        encoder.chmod(0o755)

    def add_song(self, name, content=None):
        path = self.music / name
        path.write_bytes(song(name) if content is None else content)
        return path

    def add_workout(self, name, *exercises):
        self.workouts[name] = workout(*exercises)

    def file_of(self, name):
        return self.program / "workouts" / f"{name}.RPV"

    def update(self, output, *names):
        """Updates the workouts as they were added, all or some, to an output path."""
        (self.program / "settings.dat").write_bytes(settings(self.music, output))
        for old in (self.program / "workouts").iterdir():
            old.unlink()
        for name, content in self.workouts.items():
            self.file_of(name).write_bytes(content)
        return self.update_again(output, *names)

    def update_again(self, output, *names):
        """Updates the workouts as they are."""
        environment = dict(os.environ, HOME=str(self.folder), LC_ALL="C.UTF-8")
        done = subprocess.run([self.program / "repvolta-update", *names], env=environment, cwd="/",
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=UPDATE_LIMIT,
                              check=False)
        return Update(done, output)

    def saved(self):
        """What the workout files hold, whatever the day."""
        return {path.name: without_dates(path.read_bytes())
                for path in (self.program / "workouts").iterdir()}
