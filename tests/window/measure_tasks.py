"""Does the twelve tasks with each build and writes to a page what they cost:
measure_tasks.py PAGE NAME=BUILD..."""

import contextlib
import pathlib
import re
import sys

from display import Display
from tasks import Tasks

MOST_ACTS = 40  # for a first workout, beside the typing of names and numbers
FIRST_WORKOUT = ("Workout with three exercises", "Three sets each")
SONGS = "Five songs, random music for the others"


def measured(display, build):
    tasks = Tasks(build)
    try:
        return tasks.run()
    except Exception:
        path = build / "Testing" / "window" / "tasks.png"
        display.picture(path)
        print(f"The screen is in {path}", file=sys.stderr)
        raise
    finally:
        tasks.close()


def beside(figures):
    return " | ".join(str(figure) for figure in figures)


def print_table(columns):
    """What each task costs with each build."""
    names = list(columns)
    kinds = [("clicks + keys", lambda count: f"{count.clicks} + {count.keys}"),
             ("typed", lambda count: count.typed), ("boxes", lambda count: count.boxes),
             ("guide", lambda count: count.looks), ("not possible", lambda count: len(
                 count.impossible) or "")]
    heads = [f"{kind}, {name}" for kind, _ in kinds for name in names]
    print(f"| task | {beside(heads)} |")
    print("|---|" + "---|" * len(heads))
    tasks = list(columns[names[0]])
    for task in tasks:
        print(f"| {task} | " + beside(
            figure(columns[name][task]) for _, figure in kinds for name in names) + " |")
    print("| **all** | " + beside(
        figure(sum_of(columns[name].values())) for _, figure in kinds for name in names) + " |")


def sum_of(counts):
    first, *others = counts
    return sum(others, first)


def print_known(name, counts):
    """What a person must know, and the words of the window that say it."""
    print(f"\n### {name}\n\n| task | what one must know | the window says |\n|---|---|---|")
    for task, count in counts.items():
        for what, text in count.known:
            print(f"| {task} | {what} | {quoted(text) if text else '**nothing**'} |")
        for what in count.impossible:
            print(f"| {task} | how to {what} | **it cannot** |")


def quoted(text, longest=200):
    text = re.sub(r"/\S*/repvolta-window-\w+", "~", text).replace("|", "\\|")
    return text if len(text) <= longest else text[:longest] + " ..."


def goals(counts):
    """The goals, each with what was measured and whether it is reached."""
    acts = sum(counts[task].acts() for task in FIRST_WORKOUT)
    looks = sum_of(counts.values()).looks
    boxes = counts[SONGS].boxes
    impossible = sum_of(counts.values()).impossible
    return [(f"no task needs the guide: {looks} looks", looks == 0),
            (f"a first workout, three exercises with three sets each, in at most {MOST_ACTS} clicks "
             f"and keys beside the typing of names and numbers: {acts}", acts <= MOST_ACTS),
            (f"five songs in one dialog: {boxes}", boxes == 1),
            (f"every task can be done in the window: {len(impossible)} cannot", not impossible)]


def print_page(columns):
    print_table(columns)
    for name, counts in columns.items():
        print_known(name, counts)
    print("\n### Goals\n")
    for name, counts in columns.items():
        for goal, reached in goals(counts):
            print(f"- {name}: {goal}{'' if reached else ' (**missed**)'}")


def main():
    page = pathlib.Path(sys.argv[1])
    builds = {name: pathlib.Path(build).resolve()
              for name, build in (argument.split("=", 1) for argument in sys.argv[2:])}
    display = Display()
    columns = {name: measured(display, build) for name, build in builds.items()}
    with page.open("w", encoding="utf-8") as file, contextlib.redirect_stdout(file):
        print_page(columns)
    return 0 if all(reached for _, reached in goals(columns[list(columns)[-1]])) else 1


if __name__ == "__main__":
    sys.exit(main())
