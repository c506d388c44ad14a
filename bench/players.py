#!/usr/bin/env python3
"""Measures an update to a player beside a plain `cp` of the same files, and writes the table of
docs/performance.md.

    players.py BUILD

The file systems are those of tests/players. Both ways end with the files flushed, each on a player
without the workout's folder, in turn and in an order drawn anew."""

import collections
import os
import pathlib
import random
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

import measure

sys.dont_write_bytecode = True
sys.path.insert(0, str(measure.ROOT / "tests/players"))
from file_systems import KINDS, MEBIBYTE  # noqa: E402
from home import Home, exercise, song  # noqa: E402

PAGE = measure.ROOT / "docs/performance.md"
BEGIN, END = "<!-- players: made by tools/bench --players -->", "<!-- end of players -->"
RUNS = 9
EXERCISES, SONGS, FRAMES = 2, 10, 10_000  # 4 MiB a song
PLACES = {"plain": "the computer's own disk", "exfat": "exFAT", "mtp": "behind MTP"}


def new_home(build, work):
    home = Home(build, work)
    paths = [home.add_song(f"Song {number}.mp3", song(f"Song {number}.mp3", FRAMES))
             for number in range(EXERCISES * SONGS)]
    home.add_workout("Monday", *(exercise("Squat", paths[first:first + SONGS])
                                 for first in range(0, len(paths), SONGS)))
    return home


def update(home, output):
    run = home.update(output)
    assert (run.status, run.errors()) == (0, []), run.said


def copy(finished, output):
    subprocess.run(["cp", "-r", finished, output], check=True)
    folder = output / finished.name
    subprocess.run(["sync", folder, *sorted(folder.iterdir())], check=True)


def measured(ways, output, way):
    shutil.rmtree(output / "Monday", ignore_errors=True)
    os.sync()
    start = time.monotonic()
    ways[way](output)
    return time.monotonic() - start


def user_seconds(number):
    """The processor time that a process has used for itself."""
    fields = pathlib.Path(f"/proc/{number}/stat").read_text(encoding="utf-8").rsplit(")")[-1].split()
    return int(fields[11]) / os.sysconf("SC_CLK_TCK")


def times_of(build, work):
    """The times, in seconds, and the processor time of the programs that serve the file systems."""
    home = new_home(build, work)
    update(home, home.plain)
    finished = work / "finished/Monday"
    shutil.copytree(home.plain / "Monday", finished)
    players = {kind: KINDS[kind](work, 256 * MEBIBYTE, name=kind) for kind in PLACES
               if kind != "plain"}
    outputs = {"plain": home.plain}
    for kind, player in players.items():
        player.plug_in()
        outputs[kind] = player.folder
    ways = {"update": lambda output: update(home, output),
            "cp": lambda output: copy(finished, output)}
    turns = [(kind, way) for kind in PLACES for way in ways]
    times = collections.defaultdict(list)
    for turn in range(RUNS + 1):
        random.shuffle(turns)
        for kind, way in turns:
            seconds = measured(ways, outputs[kind], way)
            if turn > 0:  # the first is to warm up
                times[kind, way].append(seconds)
    served = sum(user_seconds(number) for player in players.values()
                 for number in player.servers())
    for player in players.values():
        player.end()
    return times, served


def table_of(times):
    lines = ["| | update, ms | cp, ms | ratio |", "|---|--:|--:|--:|"]
    for kind, place in PLACES.items():
        ours, bare = (statistics.median(times[kind, way]) for way in ("update", "cp"))
        lines.append(f"| {place} | {ours * 1000:.0f} | {bare * 1000:.0f} | {ours / bare:.2f} |")
    return "\n".join(lines) + "\n"


def measure_in_spaces(build):
    other, start = measure.OtherWork(), time.monotonic()
    with tempfile.TemporaryDirectory() as work:
        times, served = times_of(build, pathlib.Path(work))
    share = other.share() - served / (time.monotonic() - start)
    size = EXERCISES * SONGS * FRAMES * 417 // MEBIBYTE
    table = (f"{time.strftime('%Y-%m-%d')}, {measure.machine()}. {RUNS} runs of each in turn, the "
             f"medians; {EXERCISES * SONGS} songs, {size} MiB. Other programs took {share:.0%} of "
             f"one processor meanwhile.\n\n{table_of(times)}")
    print(table)
    if share > measure.MOST_OTHER_WORK:
        sys.exit("No verdict: other programs took too much of the processors.")
    before, rest = PAGE.read_text(encoding="utf-8").split(BEGIN)
    PAGE.write_text(f"{before}{BEGIN}\n\n{table}\n{END}{rest.split(END)[1]}", encoding="utf-8")


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    if "--in-spaces" in sys.argv:
        measure_in_spaces(build)
        return
    # Mounts and programs end with it.
    done = subprocess.run(["unshare", "--mount", "--pid", "--fork", "--mount-proc", sys.executable,
                           __file__, build, "--in-spaces"],
                          env=dict(os.environ, REPVOLTA_BUILD=str(build)), check=False)
    sys.exit(done.returncode)


if __name__ == "__main__":
    main()
