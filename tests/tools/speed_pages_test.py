"""The page on speed sums up the table that was measured."""

import pathlib
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "bench"))
import measure  # noqa: E402


def row(number, what, way, median, ratio, judged):
    return f"| {number} | {what} | {way} | | {median} | {ratio} | 3 | {judged} |"


def table_of(page):
    return page.read_text(encoding="utf-8").split(measure.BEGIN)[1].split(measure.END)[0].strip()


class SpeedPages(unittest.TestCase):
    def test_sums_up_the_table_that_was_measured(self):
        self.assertEqual(table_of(measure.PROMISES_PAGE),
                         measure.promises_of(table_of(measure.TABLE_PAGE)).strip())

    def test_gives_the_least_good_of_the_lines_of_a_promise(self):
        table = "\n".join(["2026-11-22, a machine. 9 runs of each.",
                           row(3, "worst case ff", "ours", 30.1, 2.01, "reached"),
                           row(3, "worst case late", "ours", 26.1, 3.4, "MISSED"),
                           row(3, "worst case late", "limit", 10.8, 1.0, ""),
                           row(5, "memory, copy, 100 MiB", "ours", "188 KiB", "", "reached"),
                           row(5, "memory, play-time, 100 MiB", "ours", "90 KiB", "", "reached")])
        lines = measure.promises_of(table).splitlines()
        self.assertEqual(lines[0], "All measured on 2026-11-22, a machine.")
        self.assertEqual(lines[4:], [
            "| worst case | reading the file once | 3.4 | 3 | 1.4 | MISSED |",
            "| memory | the memory for a small file | 188 KiB | 3 | 256 KiB | reached |"])


if __name__ == "__main__":
    unittest.main()
