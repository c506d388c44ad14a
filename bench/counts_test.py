#!/usr/bin/env python3
"""Compares the cost of the program's work with stored figures: system calls, bytes read and written,
instructions. These do not depend on the processor or its load, nor on the path or the file system of
the temporary folder.

    counts_test.py PROGRAM CLIPS            fails when a figure is worse than the stored one, and
                                            says which ones are better and should be stored
    counts_test.py PROGRAM CLIPS --store    stores the figures of today

PROGRAM is repvolta_operations, CLIPS the folder of the recorded clips. The work is done once and then
twice. A figure is the difference of the two costs, divided by the number of files, lines or bytes; so the
start of the program does not count. The instructions may grow by a tenth, because compilers differ, and
the bytes that are read by one, because they are rounded. The other figures may not grow at all."""

import collections
import ctypes
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

STORED = pathlib.Path(__file__).with_name("counts.json")
TOLERANCE = 0.1
# The program also reads its own figures, and a longer number there can change the rounded result.
ROOM = {"read": 1, "written": 0}
MOST_BETWEEN_WORST_CASES = 1.2
CASE_SIZE = 2 * 1024 * 1024

# A name of the current folder that is equally long on every machine.
HERE = "/proc/self/cwd"

# The system decides how many entries of a folder one call gives, and where the heap begins.
NOT_COUNTED = {"getdents64", "brk"}

# The C library has several ways to copy and search, and chooses one by the processor; the number of
# instructions of one of them even depends on the addresses. Newer ones copy by one instruction that
# repeats itself, which counts once for each byte. It also asks the system for large blocks of memory by a
# call of their own, and what counts as large depends on the blocks that were freed before. These settings
# fix all these choices.
ALIKE_EVERYWHERE = {"GLIBC_TUNABLES": "glibc.malloc.mmap_max=0:glibc.cpu.hwcaps=-ERMS,-AVX2,-AVX,"
                                      "-AVX_Fast_Unaligned_Load,-SSSE3,-SSE4_2:"
                                      "glibc.cpu.x86_rep_movsb_threshold=1000000000:"
                                      "glibc.cpu.x86_rep_stosb_threshold=1000000000"}

# On a file system whose folders do not tell the types of their entries, each entry costs a call.
ASKING_FOR_TYPE = {"calls": 1, "instructions": 25}

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


class Entry(ctypes.Structure):
    """An entry of a folder, as the C library's readdir returns it."""
    _fields_ = [("number", ctypes.c_uint64), ("offset", ctypes.c_int64), ("length", ctypes.c_uint16),
                ("type", ctypes.c_uint8), ("name", ctypes.c_char * 256)]


def tells_types(folder):
    """Whether the folder tells that the files in it are files."""
    library = ctypes.CDLL(None)
    library.opendir.restype = ctypes.c_void_p
    library.readdir.argtypes = library.closedir.argtypes = [ctypes.c_void_p]
    library.readdir.restype = ctypes.POINTER(Entry)
    opened = library.opendir(os.fsencode(folder))
    types = []
    while entry := library.readdir(opened):
        if not entry.contents.name.startswith(b"."):
            types.append(entry.contents.type)
    library.closedir(opened)
    return 0 not in types


def run(command, cwd):
    ended = subprocess.run(command, cwd=cwd, capture_output=True, text=True, check=False,
                           env={**os.environ, **ALIKE_EVERYWHERE})
    if ended.returncode != 0:
        sys.exit(f"{' '.join(command[:4])} ... failed: {ended.stderr}")
    return ended


def system_calls(program, arguments, cwd):
    run(["strace", "-f", "-c", "-o", "calls.txt", program, *arguments], cwd)
    # A line is: percent, seconds, microseconds a call, calls, errors if any, name.
    rows = [line.split() for line in (cwd / "calls.txt").read_text().splitlines()[2:]]
    names_and_calls = [(row[-1], int(row[3])) for row in rows if row[0][0].isdigit()]
    return sum(calls for name, calls in names_and_calls if name not in NOT_COUNTED | {"total"})


def instructions(program, arguments, cwd):
    ended = run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", program,
                 *arguments], cwd)
    return int(re.search(r"Collected : (\d+)", ended.stderr).group(1))


def bytes_moved(program, arguments, cwd):
    lines = run([program, *arguments], cwd).stdout.splitlines()
    figures = dict(line.split() for line in lines)
    return {name: int(figures[name]) for name in ("read", "written")}


def cost(program, work, cwd):
    """The cost of one unit of the work: a dictionary from the name of a figure to the figure."""
    def more(measure):
        return (measure(program, work.twice, cwd) - measure(program, work.once, cwd)) / work.units

    once, twice = (bytes_moved(program, part, cwd) for part in (work.once, work.twice))
    # Rounded, since the program reads its own figures, too.
    figures = {name: round((twice[name] - once[name]) / work.units) for name in once}
    figures["calls"] = round(more(system_calls), 6)
    figures["instructions"] = round(more(instructions), 2)
    return figures


def copies(folder, name, content, count):
    files = [f"{name}{i}.mp3" for i in range(count)]
    for file in files:
        (folder / file).write_bytes(content)
    return files


def make_work(folder, clips):
    """The kinds of work that are measured: a dictionary from the name to the work."""
    work = {}
    (folder / "out").mkdir()
    for kind, content in SONGS.items():
        files = copies(folder, kind, content, 20)
        work[f"play time, {kind}"] = Work(["play-time", *files[:10]], ["play-time", *files], 10)
        work[f"copy and tag, {kind}"] = Work(["copy", "out", *files[:10]],
                                             ["copy", "out", *files], 10)
    songs = [f"small{i}.mp3" for i in range(20)]
    work["plan, small"] = Work(["plan", *songs[:10]], ["plan", *songs], 10)
    for name, pattern in WORST_CASES.items():
        whole = pattern * (CASE_SIZE // len(pattern))
        files = copies(folder, name, whole, 2)
        work[f"worst case {name}"] = Work(["play-time", files[0]], ["play-time", *files],
                                          len(whole))
    for count in (1000, 2000):
        place = folder / f"list{count}"
        place.mkdir()
        copies(place, "A song with a name ", b"", count)
    work["listing"] = Work(["list", f"{HERE}/list1000"], ["list", f"{HERE}/list2000"], 1000)
    (folder / "clips").symlink_to(clips)
    work["joining"] = Work(["join", "clips", "once.wav"],
                           ["join", "clips", "once.wav", "twice.wav"], 60)
    for target in ("once.wav", "twice.wav"):
        (folder / target).write_bytes((pathlib.Path(clips) / "set.wav").read_bytes())
    return work


def compare(figures, stored):
    """Two lists of lines: the figures that are worse than the stored ones, and the better ones."""
    worse, better = [], []
    for row, costs in figures.items():
        for name, figure in costs.items():
            before = stored[row][name]
            room = before * TOLERANCE if name == "instructions" else ROOM.get(name, 0)
            line = f"{row}: {figure} {name}, stored {before}"
            if figure > before + room:
                worse.append(line)
            elif figure < before - room:
                better.append(line)
    return worse, better


def worst_cases_apart(figures):
    cases = [costs["instructions"] for row, costs in figures.items() if row.startswith("worst")]
    if max(cases) > min(cases) * MOST_BETWEEN_WORST_CASES:
        return [f"worst cases differ too much: {min(cases)} to {max(cases)} a byte"]
    return []


def main():
    program = str(pathlib.Path(sys.argv[1]).resolve())
    clips = str(pathlib.Path(sys.argv[2]).resolve())
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        work = make_work(folder, clips)
        figures = {row: cost(program, part, folder) for row, part in work.items()}
        if not tells_types(folder / "list1000"):
            for figure, more in ASKING_FOR_TYPE.items():
                figures["listing"][figure] -= more
    if "--store" in sys.argv:
        STORED.write_text(json.dumps(figures, indent=2) + "\n")
        return
    for row, costs in figures.items():
        print(row, costs)
    worse, better = compare(figures, json.loads(STORED.read_text()))
    worse += worst_cases_apart(figures)
    if better:
        print("Better than what is stored; store it with --store:", *better, sep="\n  ")
    if worse:
        print("Worse than what is stored:", *worse, sep="\n  ")
    sys.exit(1 if worse else 0)


main()
