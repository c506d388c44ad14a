#!/usr/bin/env python3
"""Runs the measurements. Writes their table into docs/measured/speed.md and a line for each promise
into docs/performance.md. With --growth it draws docs/pictures/growth.svg instead.

    measure.py [--growth] DATA

DATA is the folder of the collection; the measured work is done there, too. The exit status is 1 when
other programs took so much of the processors that the figures say nothing."""

import collections
import json
import os
import pathlib
import platform
import resource
import shutil
import statistics
import subprocess
import sys
import time

import growth

ROOT = pathlib.Path(__file__).resolve().parent.parent
PROGRAMS = ROOT / "build/bench"
TABLE_PAGE, PROMISES_PAGE = ROOT / "docs/measured/speed.md", ROOT / "docs/performance.md"
BEGIN, END = "<!-- table: made by tools/bench -->", "<!-- end of the table -->"

REPETITIONS = 9
MOST_OTHER_WORK = 0.15  # of one processor
MEBIBYTE = 1024 * 1024

Row = collections.namedtuple("Row", "number what must aim")
RATIOS = [
    Row(1, "play time warm", 1.8, 1.15),
    Row(2, "play time cold", 1.15, 1.05),
    Row(3, "worst case", 3, 1.4),
    Row(3, "10,000 empty tags", 3, 2),
    Row(6, "listing", 1.3, 1.1),
    Row(7, "draw", 1.2, 1.05),
    Row(8, "copy and tag", 1.25, 1.1),
    Row(10, "joining 60 clips", 1.3, 1.08),
    Row(11, "encoding", 1.05, None),
    Row(12, "whole update", 1.2, 1.1),
    Row(13, "plan of 50 songs", 2, 1.5),
]


# Of the promises that are no such ratio.
OTHER_AIMS = {"slowest worst case to fastest": 1.2, "memory": "256 KiB", "bytes written": 1}
AGAINST = {
    "play time warm": "opening the files and reading 3 places of each",
    "play time warm, TagLib to ours": "TagLib",
    "play time cold": "the same reading, from the disk",
    "worst case": "reading the file once",
    "10,000 empty tags": "reading the file once",
    "slowest worst case to fastest": "the other kinds of bytes",
    "memory": "the memory for a small file",
    "listing": "readdir alone",
    "draw": "reading the list once",
    "copy and tag": "writing tag and audio in one pass",
    "bytes written": "the size of the finished copies",
    "joining 60 clips": "open, append, patch, close",
    "encoding": "the encoder alone",
    "whole update": "the encoder, the speech engine and the copies alone",
    "plan of 50 songs": "looking up the songs' play times",
}


def verdict(figure, must, aim):
    if aim is not None and figure <= aim:
        return "aim reached"
    return "reached" if figure <= must else "MISSED"


class OtherWork:
    """How much of a processor other programs have taken since this object was made: the time in
    /proc/stat, less our own and less what the system spent on reading and writing for us."""

    def __init__(self):
        self.start = self.now()

    @staticmethod
    def now():
        ticks = os.sysconf("SC_CLK_TCK")
        fields = [int(field) for field in open("/proc/stat").readline().split()[1:]]
        user, nice = fields[0] / ticks, fields[1] / ticks
        ours = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
        ours += resource.getrusage(resource.RUSAGE_SELF).ru_utime
        return user + nice - ours, time.monotonic()

    def share(self):
        work, clock = self.now()
        return (work - self.start[0]) / (clock - self.start[1])


def run_suite(data):
    work = data / "work"
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir()
    output = data / "figures.json"
    subprocess.run([PROGRAMS / "bench/repvolta_bench", data / "collection", PROGRAMS / "bin",
                    ROOT / "bench/peers", work, f"--benchmark_repetitions={REPETITIONS}",
                    "--benchmark_enable_random_interleaving=true", "--benchmark_out_format=json",
                    f"--benchmark_out={output}"], check=True, stdout=subprocess.DEVNULL)
    shutil.rmtree(work)
    times = collections.defaultdict(lambda: collections.defaultdict(list))
    for run in json.loads(output.read_text())["benchmarks"]:
        if run["run_type"] == "iteration":
            row, way = run["name"].split("/")[:2]
            times[row][way].append(run["real_time"])
    return times


def operation(*arguments):
    printed = subprocess.run([PROGRAMS / "bench/repvolta_operations", *arguments], check=True,
                             capture_output=True, text=True).stdout
    return {name: float(value) for name, value in map(str.split, printed.splitlines())}


def rows_of_times(times):
    """The lines of the table: one for each way of doing the work of each row."""
    for row in RATIOS:
        for name in sorted(name for name in times if name.startswith(row.what)):
            ways = times[name]
            limit = statistics.median(ways["limit"])
            for way in ["ours"] + sorted(ways.keys() - {"ours"}):
                median = statistics.median(ways[way])
                ratio = median / limit
                judged = verdict(ratio, row.must, row.aim) if way == "ours" else ""
                yield (f"| {row.number} | {name} | {way} | {min(ways[way]):.2f} | {median:.2f} "
                       f"| {ratio:.2f} | {row.must} | {judged} |")


def rows_of_comparisons(times):
    warm = {way: statistics.median(all_) for way, all_ in times["play time warm"].items()}
    faster = warm["TagLib"] / warm["ours"]
    judged = "reached" if faster >= 4 else "MISSED"
    yield f"| 1 | play time warm, TagLib to ours | | | | {faster:.2f} | >= 4 | {judged} |"
    worst = [statistics.median(times[name]["ours"]) for name in times if "worst" in name]
    ratio = max(worst) / min(worst)
    yield (f"| 4 | slowest worst case to fastest | ours | | | {ratio:.2f} | 1.5 "
           f"| {verdict(ratio, 1.5, 1.2)} |")


def rows_of_memory(data):
    """The memory for large files, less what the same program holds for a file of 1,000 bytes."""
    small = data / "small.mp3"
    small.write_bytes(bytes(1000))
    out = data / "out"
    worst = data / "collection/worst"
    for what, before, name in (("play-time", [], "zeros"), ("copy", [out], "zeros"),
                               ("copy", [out], "sparse")):
        out.mkdir(exist_ok=True)
        rest = operation(what, *before, small)["memory"]
        extra = operation(what, *before, worst / f"{name}.mp3")["memory"] - rest
        size = (worst / f"{name}.mp3").stat().st_size // MEBIBYTE
        yield (f"| 5 | memory, {what}, {size} MiB | ours | | {extra / 1024:.0f} KiB | | 1 MiB "
               f"| {verdict(extra, MEBIBYTE, MEBIBYTE / 4)} |")
        shutil.rmtree(out)


def rows_of_writes(data):
    out = data / "out"
    for kind in sorted((data / "collection/copy").iterdir()):
        out.mkdir()
        written = operation("copy", out, *sorted(kind.iterdir()))["written"]
        ratio = written / sum(file.stat().st_size for file in out.iterdir())
        yield (f"| 9 | bytes written, {kind.name} | ours | | | {ratio:.4f} | 1.02 "
               f"| {verdict(ratio, 1.02, 1.0)} |")
        shutil.rmtree(out)


def machine():
    model = next(line.split(":")[1].strip() for line in open("/proc/cpuinfo")
                 if line.startswith("model name"))
    return f"{os.cpu_count()} x {model}, Linux {platform.release().split('-')[0]}"


def make_table(data):
    other = OtherWork()
    times = run_suite(data)
    share = other.share()
    rows = [*rows_of_times(times), *rows_of_comparisons(times), *rows_of_memory(data),
            *rows_of_writes(data)]
    head = (f"{time.strftime('%Y-%m-%d')}, {machine()}. {REPETITIONS} runs of each in turn, in an "
            f"order drawn anew, after one to warm up. Other programs took {share:.0%} of one "
            "processor meanwhile.\n\n"
            "| # | what | way | least, ms | median, ms | ratio | must | |\n"
            "|---|---|---|---|---|---|---|---|\n")
    return head + "\n".join(sorted(rows, key=lambda row: int(row.split("|")[1]))) + "\n", share


def promise_of(what, way):
    """The promise that a judged line of the table belongs to. Several kinds of files share one."""
    if way != "ours":
        return what
    return next((row.what for row in RATIOS if what.startswith(row.what)), what.split(",")[0])


def aim_of(name):
    aims = {row.what: row.aim for row in RATIOS if row.aim} | OTHER_AIMS
    return aims.get(name, "")


def promises_of(table):
    """The day and the machine, and a line for each promise, made from the worst of its lines of the
    table."""
    worst = {}
    for line in table.splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if len(cells) != 8 or not cells[0].isdigit() or not cells[7]:
            continue
        _number, what, way, _least, median, ratio, must, judged = cells
        name, figure = promise_of(what, way), ratio or median
        if name not in worst or float(figure.split()[0]) > float(worst[name][0].split()[0]):
            worst[name] = figure, must, judged
    rows = "".join(f"| {name} | {AGAINST[name]} | {figure} | {must} | {aim_of(name)} | {judged} |\n"
                   for name, (figure, must, judged) in worst.items())
    return (f"All measured on {table.split('. ')[0]}.\n\n"
            "| what | compared with | measured | promised | aim | |\n|---|---|--:|--:|--:|---|\n"
            + rows)


def put_table(page, table):
    text = page.read_text()
    before, after = text.split(BEGIN)[0], text.split(END)[1]
    page.write_text(f"{before}{BEGIN}\n\n{table}\n{END}{after}")


def main():
    data = pathlib.Path(sys.argv[-1]).resolve()
    if "--growth" in sys.argv:
        growth.draw(operation, data, ROOT / "docs/pictures/growth.svg")
        return
    table, share = make_table(data)
    print(table)
    if share > MOST_OTHER_WORK:
        sys.exit("No verdict: other programs took too much of the processors.")
    put_table(TABLE_PAGE, table)
    put_table(PROMISES_PAGE, promises_of(table))
    if "MISSED" in table:
        sys.exit("A figure was missed.")


if __name__ == "__main__":
    main()
