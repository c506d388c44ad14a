"""Measures how the cost of the work grows with its size, and draws it as curves."""

import pathlib
import shutil
import statistics

RUNS = 5
SIZE, MARGIN = 300, 46
COLOURS = {"time": "#1b6ca8", "memory": "#b5541c"}


def seconds_and_memory(operation, *arguments):
    runs = [operation(*arguments) for _ in range(RUNS)]
    return statistics.median(run["seconds"] for run in runs), runs[0]["memory"]


def over_file_size(operation, data):
    """Files of zeros with one frame in front."""
    for size in (10**5, 10**6, 10**7, 10**8, 2 * 10**8):
        file = data / "growing.mp3"
        file.write_bytes(b"\xff\xfb\x90\x00")
        with open(file, "r+b") as opened:
            opened.truncate(size)
        yield size, *seconds_and_memory(operation, "play-time", *[file] * 1000)
        file.unlink()


def over_listed_files(operation, data):
    for count in (10**3, 10**4, 10**5, 10**6):
        folder = data / "growing"
        for i in range(count):
            if i % 1000 == 0:
                album = folder / f"album {i}"
                album.mkdir(parents=True)
            (album / f"song {i}.mp3").touch()
        yield count, *seconds_and_memory(operation, "list", folder)
        shutil.rmtree(folder)


def over_list_length(operation, data):
    for count in (10**3, 10**4, 10**5, 10**6, 10**7):
        lines = (f"/nowhere/Music/The Band/Album/Song {i}.mp3\n" for i in range(count))
        pathlib.Path("musiclist.txt").write_text("".join(lines))
        yield count, *seconds_and_memory(operation, "draw", str(count))
    pathlib.Path("musiclist.txt").unlink()


def over_songs(operation, data):
    songs = sorted((data / "collection/copy/small").iterdir())
    for count in (1, 3, 10, 30, 50):
        folder = data / "growing"
        folder.mkdir()
        yield count, *seconds_and_memory(operation, "copy", folder, *songs[:count])
        shutil.rmtree(folder)


PICTURES = [
    ("1,000 play times over the size of the file, bytes", over_file_size),
    ("a listing over the number of files", over_listed_files),
    ("a draw over the length of the list, lines", over_list_length),
    ("copies with tags over the number of songs", over_songs),
]


def place(value, values, length):
    """The place of a value on an axis of this length, which reaches from 0 to the largest value."""
    return length * value / max(values)


def line(points, axis, name):
    xs, ys = [point[0] for point in points], [point[axis] for point in points]
    room = SIZE - 2 * MARGIN
    path = " ".join(f"{MARGIN + place(x, xs, room):.1f},{SIZE - MARGIN - place(y, ys, room * 0.85):.1f}"
                    for x, y in zip(xs, ys))
    return (f'<polyline points="{path}" fill="none" stroke="{COLOURS[name]}" stroke-width="2"/>'
            + "".join(f'<circle cx="{p.split(",")[0]}" cy="{p.split(",")[1]}" r="3" '
                      f'fill="{COLOURS[name]}"/>' for p in path.split()))


def panel(title, points):
    largest = points[-1]
    labels = [(SIZE / 2, 18, title, "#888"),
              (SIZE / 2, SIZE - 12, f"0 to {largest[0]:,}", "#888"),
              (MARGIN + 70, 38, f"time to {max(p[1] for p in points):.3f} s", COLOURS["time"]),
              (MARGIN + 70, 54, f"memory to {max(p[2] for p in points) / 1e6:.1f} MB",
               COLOURS["memory"])]
    texts = "".join(f'<text x="{x}" y="{y}" font-size="11" text-anchor="middle" fill="{colour}">'
                    f"{text}</text>" for x, y, text, colour in labels)
    low = SIZE - MARGIN
    axes = (f'<path d="M{MARGIN},{MARGIN} V{low} H{low}" fill="none" stroke="#888"/>')
    return texts + axes + line(points, 1, "time") + line(points, 2, "memory")


def draw(operation, data, picture):
    panels = []
    for i, (title, measure) in enumerate(PICTURES):
        points = list(measure(operation, data))
        print(title, points, sep="\n  ")
        panels.append(f'<g transform="translate({i % 2 * SIZE},{i // 2 * SIZE})">'
                      f"{panel(title, points)}</g>")
    picture.parent.mkdir(exist_ok=True)
    picture.write_text(f'<svg xmlns="http://www.w3.org/2000/svg" width="{2 * SIZE}" '
                       f'height="{2 * SIZE}" font-family="sans-serif">' + "\n".join(panels)
                       + "</svg>\n")
