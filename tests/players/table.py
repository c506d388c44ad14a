"""Writes the table of what arrived on players into a page: table.py FILE PAGE

FILE has a line for each row that the tests told: kind of player, what happened, songs, songs that
had arrived after it, songs lost."""

import collections
import json
import pathlib
import sys

BEGIN, END = "<!-- table: made by tools/players -->", "<!-- end of the table -->"
KINDS = {"exfat": "exFAT", "ntfs": "NTFS", "fat": "FAT", "mtp": "behind MTP"}


def table_of(lines):
    rows = collections.defaultdict(dict)
    for line in lines:
        kind, what, songs, arrived, lost = json.loads(line)
        rows[what][kind] = songs, arrived, lost
    text = f"| | {' | '.join(KINDS.values())} | lost |\n|---|{'--:|' * (len(KINDS) + 1)}\n"
    for what, cells in rows.items():
        shown = [f"{cells[kind][1]} of {cells[kind][0]}" if kind in cells else "" for kind in KINDS]
        lost = sum(lost for _songs, _arrived, lost in cells.values())
        text += f"| {what} | {' | '.join(shown)} | {lost} |\n"
    return text


def main(source, page):
    before, rest = page.read_text(encoding="utf-8").split(BEGIN)
    after = rest.split(END)[1]
    table = table_of(source.read_text(encoding="utf-8").splitlines())
    page.write_text(f"{before}{BEGIN}\n\n{table}\n{END}{after}", encoding="utf-8")


if __name__ == "__main__":
    main(*map(pathlib.Path, sys.argv[1:]))
