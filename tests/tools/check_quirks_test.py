"""tools/check-quirks on small trees: one in which all agrees, and some with one fault each."""

import contextlib
import importlib.machinery
import importlib.util
import io
import pathlib
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parent.parent.parent / "tools"
sys.dont_write_bytecode = True
LOADER = importlib.machinery.SourceFileLoader("check_quirks", str(TOOLS / "check-quirks"))
check_quirks = importlib.util.module_from_spec(importlib.util.spec_from_loader(LOADER.name, LOADER))
LOADER.exec_module(check_quirks)

ROW = "| 7 | Ten is one. | Files say so. | `Number.IsOne`, `Numbers.AreOne` | `src/base/Number.h` |\n"
KINDER = "| K1 | Ten is told. | It helps. | `Number.IsTold` |\n"
HEADS = "| no. | what happens | why it stays | test | in the code |\n|---|---|---|---|---|\n"
TREE = {
    "docs/quirks.md": HEADS + ROW + HEADS + KINDER,
    "src/base/Number.h": "/// One (quirk 7).\nint One();\n",
    "src/base/Number.cpp": "int One() { return 1; }\n",
    "fuzz/number.cpp": "// Quirk 7.\n",
    "tests/base/NumberTest.cpp": "TEST(Number, IsOne) {}\nTEST_P(Numbers, AreOne) {}\n"
                                 "TEST_F(Number, IsTold) {}\n",
}


class CheckQuirks(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        for name, text in TREE.items():
            self.put(name, text)

    def put(self, name, text):
        (self.root / name).parent.mkdir(parents=True, exist_ok=True)
        (self.root / name).write_text(text, encoding="utf-8")

    def put_rows(self, rows):
        self.put("docs/quirks.md", HEADS + rows)

    def complaints(self):
        with contextlib.redirect_stderr(io.StringIO()) as said:
            status = check_quirks.main(self.root)
        self.assertEqual(status, 1 if said.getvalue() else 0)
        return said.getvalue().splitlines()

    def test_has_nothing_to_say_where_all_agrees(self):
        self.assertEqual(self.complaints(), [])

    def test_names_a_number_that_two_rows_have(self):
        self.put_rows(ROW + ROW)
        self.assertEqual(self.complaints(), ["docs/quirks.md: there are two rows 7"])

    def test_names_a_row_that_lacks_a_column(self):
        self.put_rows(ROW + "| 8 | Two is ten. | `Number.IsOne` |  |\n")
        self.assertEqual(self.complaints(), ["docs/quirks.md: row 8 has 4 columns"])

    def test_names_a_row_without_a_test(self):
        self.put_rows(ROW + "| 8 | Two is ten. | Files say so. |  |  |\n")
        self.assertEqual(self.complaints(), ["docs/quirks.md: row 8 names no test"])

    def test_names_a_test_that_does_not_exist(self):
        self.put("tests/base/NumberTest.cpp", "TEST(Number, IsTold) {}\nTEST_P(Numbers, AreOne) {}\n")
        self.assertEqual(self.complaints(),
                         ["docs/quirks.md: row 7 names Number.IsOne, which does not exist"])

    def test_names_a_test_that_does_not_exist_of_what_is_kinder(self):
        self.put_rows(ROW + KINDER.replace("IsTold", "IsNotTold"))
        self.assertEqual(self.complaints(),
                         ["docs/quirks.md: row K1 names Number.IsNotTold, which does not exist"])

    def test_names_a_file_that_does_not_name_its_quirk(self):
        self.put("src/base/Number.h", "/// One (quirk 70).\nint One();\n")
        self.put_rows(ROW + ROW.replace("7", "70", 1))
        self.assertEqual(self.complaints(), [
            'docs/quirks.md: row 7 names src/base/Number.h, which has no comment "Quirk 7"'])

    def test_names_a_file_that_is_gone(self):
        (self.root / "src/base/Number.h").unlink()
        self.assertEqual(self.complaints(), [
            'docs/quirks.md: row 7 names src/base/Number.h, which has no comment "Quirk 7"'])

    def test_names_a_comment_without_a_row(self):
        self.put("fuzz/number.cpp", "// Quirks 7 and 9.\n")
        self.assertEqual(self.complaints(), ["fuzz/number.cpp: docs/quirks.md has no row 9"])

    def test_names_a_comment_in_a_file_that_its_row_does_not_name(self):
        self.put("src/base/Number.cpp", "// Quirk 7.\n")
        self.assertEqual(self.complaints(), [
            "src/base/Number.cpp: row 7 of docs/quirks.md does not name this file"])

    def test_names_what_is_meant_without_a_number(self):
        for comment in ("// One: this is meant.", "// Meant so, and both are meant.",
                        "int a;  // kept on purpose"):
            with self.subTest(comment=comment):
                self.put("src/base/Number.cpp", "\n" + comment + "\n")
                self.assertEqual(self.complaints(), [
                    "src/base/Number.cpp:2: what is meant is a quirk with a row in docs/quirks.md"])


if __name__ == "__main__":
    unittest.main()
