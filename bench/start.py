#!/usr/bin/env python3
"""Measures the time until repvolta-update prints its first line and until repvolta shows its window,
with 200 workouts and a list of 100,000 songs. Measures it again without speech engines, whose cost is
the difference.

    start.py PROGRAMS WORK

PROGRAMS is the folder of the built programs. WORK is deleted and then receives a program directory.
Needs Xvfb and a session bus like a desktop's, which dbus-daemon makes."""

import ctypes
import os
import pathlib
import select
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


class Screen:
    """Hears of windows from the X server itself: a program that asks again and again would take the
    processors from the one that is measured."""

    SUBSTRUCTURE_NOTIFY, MAP_NOTIFY = 1 << 19, 19

    def __init__(self, display):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.connection = ctypes.c_void_p(self.x11.XOpenDisplay(display.encode()))
        root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.connection))
        self.x11.XSelectInput(self.connection, root, ctypes.c_long(self.SUBSTRUCTURE_NOTIFY))

    def forget(self):
        self.x11.XSync(self.connection, 1)

    def wait_for_window(self):
        event = (ctypes.c_long * 24)()
        while ctypes.cast(event, ctypes.POINTER(ctypes.c_int))[0] != self.MAP_NOTIFY:
            number = self.x11.XConnectionNumber(self.connection)
            while not self.x11.XPending(self.connection):
                if not select.select([number], [], [], LIMIT)[0]:
                    sys.exit("repvolta shows no window")
            self.x11.XNextEvent(self.connection, event)


def to_window(program, screen, environment):
    screen.forget()
    start = time.monotonic()
    with subprocess.Popen([program / "repvolta"], env=environment,
                          stderr=subprocess.DEVNULL) as window:
        try:
            screen.wait_for_window()
            return time.monotonic() - start
        finally:
            window.kill()


def tell(what, measure):
    measure()
    seconds = [measure() for _ in range(RUNS)]
    print(f"{what}: {statistics.median(seconds) * 1000:.0f} ms, "
          f"least {min(seconds) * 1000:.0f} ms")


def display_of(server_arguments):
    """The X server and the name of its display."""
    reading, writing = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), *server_arguments],
                              pass_fds=[writing], stderr=subprocess.DEVNULL)
    return server, ":" + os.read(reading, 10).decode().strip()


def main():
    programs, work = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    program = make_program_directory(programs, work)
    tell("repvolta-update to its first line", lambda: to_first_line(program))
    server, display = display_of(["-screen", "0", "1280x1024x24"])
    bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"], text=True,
                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    screen = Screen(display)
    with_engines = {**os.environ, "DISPLAY": display, "QT_QPA_PLATFORM": "xcb", "HOME": str(work),
                    "DBUS_SESSION_BUS_ADDRESS": bus.stdout.readline().strip()}
    without = {**with_engines, "PATH": "/nowhere"}
    tell("repvolta to its window", lambda: to_window(program, screen, with_engines))
    tell("repvolta to its window, without engines", lambda: to_window(program, screen, without))
    for helper in (server, bus):
        helper.terminate()
        helper.wait()
    shutil.rmtree(work)


main()
