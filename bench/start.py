#!/usr/bin/env python3
"""Measures the time until repvolta-update prints its first line and until repvolta shows its window,
with 200 workouts and a list of 100,000 songs. Measures it again without speech engines, whose cost is
the difference.

    start.py PROGRAMS WORK

PROGRAMS is the folder of the built programs. WORK is deleted and then receives a program directory.
Needs Xvfb and xdotool."""

import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import time

RUNS = 9
WORKOUTS = 200
SONGS = 100000
LIMIT = 30  # seconds


def make_program_directory(programs, work):
    shutil.rmtree(work, ignore_errors=True)
    program = work / "program"
    program.mkdir(parents=True)
    (work / "player").mkdir()
    for name in ("repvolta", "repvolta-update"):
        shutil.copy(programs / name, program)
    for name in ("voice", "exercise"):
        shutil.copytree(programs / name, program / name)
    (program / "lame.exe").symlink_to("/usr/bin/lame")
    subprocess.run([programs / "repvolta-sample", "make", work], check=True)
    for i in range(WORKOUTS):
        shutil.copy(program / "workouts/Monday.RPV", program / f"workouts/Workout {i}.RPV")
    lines = (f"/nowhere/The Band/Song {i}.mp3\n" for i in range(SONGS))
    (program / "musiclist.txt").write_text("".join(lines))
    return program


def to_first_line(program):
    start = time.monotonic()
    with subprocess.Popen([program / "repvolta-update", "Monday"],
                          stdout=subprocess.PIPE) as update:
        update.stdout.readline()
        seconds = time.monotonic() - start
        update.communicate()
    return seconds


def to_window(program, environment):
    start = time.monotonic()
    with subprocess.Popen([program / "repvolta"], env=environment,
                          stderr=subprocess.DEVNULL) as window:
        try:
            while subprocess.run(["/usr/bin/xdotool", "search", "--onlyvisible", "--name",
                                  "Repvolta"], env=environment, capture_output=True,
                                 check=False).returncode != 0:
                if time.monotonic() - start > LIMIT:
                    sys.exit("repvolta shows no window")
            return time.monotonic() - start
        finally:
            window.kill()


def tell(what, measure):
    measure()
    seconds = [measure() for _ in range(RUNS)]
    print(f"{what}: {statistics.median(seconds) * 1000:.0f} ms, "
          f"least {min(seconds) * 1000:.0f} ms")


def main():
    programs, work = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    program = make_program_directory(programs, work)
    tell("repvolta-update to its first line", lambda: to_first_line(program))
    reading, writing = os.pipe()
    with subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1024x24"],
                          pass_fds=[writing], stderr=subprocess.DEVNULL) as server:
        display = ":" + os.read(reading, 10).decode().strip()
        with_engines = {**os.environ, "DISPLAY": display, "QT_QPA_PLATFORM": "xcb",
                        "HOME": str(work)}
        without = {**with_engines, "PATH": "/nowhere"}
        tell("repvolta to its window", lambda: to_window(program, with_engines))
        tell("repvolta to its window, without engines", lambda: to_window(program, without))
        server.terminate()
    shutil.rmtree(work)


main()
