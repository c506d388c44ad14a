#!/usr/bin/env python3
"""Holds what the program's work costs against stored figures: calls of the system, bytes read and
written, instructions. None of them depends on how busy the machine is.

    counts_test.py PROGRAM CLIPS            fails when a figure is worse than the stored one
    counts_test.py PROGRAM CLIPS --store    stores the figures of today

PROGRAM is repvolta_operations, CLIPS the folder of the recorded clips. A figure is what twice the work costs more than the work once,
divided by the count of files, lines or bytes, so that the program's start does not count.
Instructions may differ by a tenth, for another compiler; the rest may not grow at all."""

import collections
import json
import pathlib
import re
import subprocess
import sys
import tempfile

STORED = pathlib.Path(__file__).with_name("counts.json")
TOLERANCE = 0.1
MOST_BETWEEN_WORST_CASES = 1.2
CASE_SIZE = 2 * 1024 * 1024

FRAME = bytes([0xFF, 0xFB, 0x50, 0xC4]) + bytes(204)
AUDIO = FRAME * 2000
SMALL_TAG = b"ID3\x03\0\0\0\0\x04\0" + bytes(512)
OLD_TAG = b"TAG" + bytes(125)
SONGS = {"none": AUDIO, "small": SMALL_TAG + AUDIO, "id3v1": AUDIO + OLD_TAG}
WORST_CASES = {
    "zeros": b"\0",
    "ff": b"\xff",
    "ff00": b"\xff\0",
    "fffbf0": b"\xff\xfb\xf0",
}

Work = collections.namedtuple("Work", "once twice units")


def run(command, cwd):
    ended = subprocess.run(command, cwd=cwd, capture_output=True, text=True, check=False)
    if ended.returncode != 0:
        sys.exit(f"{' '.join(command[:4])} ... failed: {ended.stderr}")
    return ended


def system_calls(program, arguments, cwd):
    run(["strace", "-f", "-c", "-o", "calls.txt", program, *arguments], cwd)
    total = (cwd / "calls.txt").read_text().strip().splitlines()[-1]
    return int(total.split()[3])


def instructions(program, arguments, cwd):
    ended = run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", program,
                 *arguments], cwd)
    return int(re.search(r"Collected : (\d+)", ended.stderr).group(1))


def bytes_moved(program, arguments, cwd):
    lines = run([program, *arguments], cwd).stdout.splitlines()
    figures = dict(line.split() for line in lines)
    return {name: int(figures[name]) for name in ("read", "written")}


def cost(program, work, cwd):
    """The cost of one unit of the work, by the name of the figure."""
    def more(measure):
        return (measure(program, work.twice, cwd) - measure(program, work.once, cwd)) / work.units

    once, twice = (bytes_moved(program, part, cwd) for part in (work.once, work.twice))
    # Rounded, since the program reads its own figures, too.
    figures = {name: round((twice[name] - once[name]) / work.units) for name in once}
    figures["calls"] = round(more(system_calls), 6)
    figures["instructions"] = round(more(instructions), 2)
    return figures


def copies(folder, name, content, count):
    files = [folder / f"{name}{i}.mp3" for i in range(count)]
    for file in files:
        file.write_bytes(content)
    return [str(file) for file in files]


def make_work(folder, clips):
    """What is measured, by its name."""
    work = {}
    (folder / "out").mkdir()
    for kind, content in SONGS.items():
        files = copies(folder, kind, content, 20)
        work[f"play time, {kind}"] = Work(["play-time", *files[:10]], ["play-time", *files], 10)
        work[f"copy and tag, {kind}"] = Work(["copy", "out", *files[:10]],
                                             ["copy", "out", *files], 10)
    for name, pattern in WORST_CASES.items():
        whole = pattern * (CASE_SIZE // len(pattern))
        files = copies(folder, name, whole, 2)
        work[f"worst case {name}"] = Work(["play-time", files[0]], ["play-time", *files],
                                          len(whole))
    for count in (1000, 2000):
        place = folder / f"list{count}"
        place.mkdir()
        copies(place, "A song with a name ", b"", count)
    work["listing"] = Work(["list", "list1000"], ["list", "list2000"], 1000)
    work["joining"] = Work(["join", clips, "once.wav"], ["join", clips, "once.wav", "twice.wav"],
                           60)
    for target in ("once.wav", "twice.wav"):
        (folder / target).write_bytes((pathlib.Path(clips) / "set.wav").read_bytes())
    return work


def worse(name, figure, stored):
    if name == "instructions":
        return abs(figure - stored) > stored * TOLERANCE
    return figure > stored


def check(figures, stored):
    faults = []
    for row, costs in figures.items():
        for name, figure in costs.items():
            before = stored[row][name]
            if worse(name, figure, before):
                faults.append(f"{row}: {figure} {name}, stored {before}")
    cases = [costs["instructions"] for row, costs in figures.items() if row.startswith("worst")]
    if max(cases) > min(cases) * MOST_BETWEEN_WORST_CASES:
        faults.append(f"worst cases differ too much: {min(cases)} to {max(cases)} a byte")
    return faults


def main():
    program = str(pathlib.Path(sys.argv[1]).resolve())
    clips = str(pathlib.Path(sys.argv[2]).resolve())
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        work = make_work(folder, clips)
        figures = {row: cost(program, part, folder) for row, part in work.items()}
    if "--store" in sys.argv:
        STORED.write_text(json.dumps(figures, indent=2) + "\n")
        return
    for row, costs in figures.items():
        print(row, costs)
    faults = check(figures, json.loads(STORED.read_text()))
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


main()
