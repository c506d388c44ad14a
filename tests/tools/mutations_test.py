"""tools/mutations: the changes that it makes of a line, and how it counts who noticed them. The
programs are not built: the tree's answers are given."""

import contextlib
import importlib.machinery
import importlib.util
import io
import pathlib
import sys
import tempfile
import unittest
from unittest import mock

TOOLS = pathlib.Path(__file__).resolve().parent.parent.parent / "tools"
sys.dont_write_bytecode = True
LOADER = importlib.machinery.SourceFileLoader("mutations", str(TOOLS / "mutations"))
mutations = importlib.util.module_from_spec(importlib.util.spec_from_loader(LOADER.name, LOADER))
LOADER.exec_module(mutations)

SOURCE = "int Sum(int a, int b) {\n  Log(a);\n  return a + b;\n}\n"
ADDITION = "src/base/Sum.cpp:3"


def changes(line, previous="{"):
    return set(mutations.changes_of(line, previous))


class Changes(unittest.TestCase):
    def test_exchange_a_comparison(self):
        self.assertIn("  while (a <= b) Go();", changes("  while (a < b) Go();"))

    def test_make_a_condition_always_or_never_true(self):
        self.assertLessEqual({"  if (true || (Is(a))) Go();", "  if (false && (Is(a))) Go();"},
                             changes("  if (Is(a)) Go();"))

    def test_take_away_a_negation(self):
        self.assertIn("  return IsEmpty();", changes("  return !IsEmpty();"))

    def test_count_a_number_up_and_down(self):
        self.assertLessEqual({"int a = 8;", "int a = 6;", "int b = 0x10;"},
                             changes("int a = 7;") | changes("int b = 0xF;"))

    def test_leave_a_zero_above_zero(self):
        self.assertNotIn("int a = -1;", changes("int a = 0;"))

    def test_exchange_the_middle_letter_of_a_text(self):
        self.assertEqual(changes('constexpr auto kName = "a < b1c";'),
                         {'constexpr auto kName = "a < q1c";'})

    def test_remove_a_statement_and_what_follows_it(self):
        self.assertEqual(changes("  Go();"), {"  ;", "  { Go(); return; }"})

    def test_leave_the_rest_of_a_statement_of_two_lines(self):
        self.assertEqual(changes("  Go();", previous="  a ="), set())

    def test_empty_a_result(self):
        self.assertEqual(changes("  return Name(a);"), {"  return {};"})

    def test_leave_comments_and_includes(self):
        for line in ("  // a < b", "#include <a + b>", "template <int A = 1>", ""):
            self.assertEqual(changes(line), set(), line)


class GivenTree(mutations.Tree):
    """A tree of one source whose test programs end as they are told to."""

    def __init__(self, source):
        self.only_own = False
        self.compiles = {str(source): ("", "")}
        self.seconds = {}
        self.before = {}
        self.results = {}  # by test program: whether each run passes, in turn
        self.runs = []
        self.compiled = mock.Mock()

    def tests_of(self, source):
        return [(test, []) for test in ("tests/tests_base", "tests/tests_e2e")]

    def passes(self, test, tests):
        self.runs.append((test, tests))
        results = self.results.get(test, [])
        return results.pop(0) if results else True

    def prepare(self, test):
        pass

    def compile(self, source, text):
        self.compiled.read_bytes.return_value = text.encode()
        return self.compiled


class Outcomes(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.source = self.put("src/base/Sum.cpp", SOURCE)
        for name, value in (("ROOT", self.root), ("BUILD", self.root / "build"),
                            ("KEPT", self.root / "build/kept")):
            patch = mock.patch.object(mutations, name, value)
            patch.start()
            self.addCleanup(patch.stop)
        self.tree = GivenTree(self.source)

    def put(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return path

    def run_tool(self, *arguments):
        """The exit status and the lines."""
        with contextlib.redirect_stdout(io.StringIO()) as said, \
                mock.patch.object(mutations, "Tree", lambda only_own: self.tree), \
                mock.patch.object(sys, "argv", ["mutations", *arguments]):
            status = mutations.main()
        return status, said.getvalue().splitlines()

    def test_show_a_change_that_nobody_notices(self):
        status, lines = self.run_tool(ADDITION)
        self.assertEqual(status, 1)
        self.assertRegex(lines[0], r"^src/base/Sum\.cpp:3: return a \+ b;  ->  return ")
        self.assertIn("1 changes, 0 caught by the folder's tests, 0 by others, 1 by none", lines[-1])

    def test_are_good_when_the_own_tests_notice(self):
        self.tree.results["tests/tests_base"] = [False]
        status, lines = self.run_tool(ADDITION)
        self.assertEqual(status, 0)
        self.assertIn("1 changes, 1 caught by the folder's tests", lines[-1])

    def test_are_good_when_others_notice(self):
        self.tree.results["tests/tests_e2e"] = [False, False, False]
        status, lines = self.run_tool(ADDITION)
        self.assertEqual(status, 0)
        self.assertIn("0 caught by the folder's tests, 1 by others", lines[-1])

    def test_take_no_failure_of_a_busy_machine_for_a_notice(self):
        self.tree.results["tests/tests_e2e"] = [False, False, True]
        status, lines = self.run_tool(ADDITION)
        self.assertEqual(status, 1)
        self.assertIn("1 by none", lines[-1])

    def test_count_no_line_whose_changes_compile_to_the_same(self):
        self.tree.compile = lambda source, text: self.tree.compiled
        status, lines = self.run_tool("src/base/Sum.cpp")
        self.assertEqual(status, 0)
        self.assertIn("0 changes", lines[-1])

    def test_are_the_same_for_the_same_seed(self):
        first = self.run_tool("src/base/Sum.cpp", "--seed", "7")
        self.assertEqual(self.run_tool("src/base/Sum.cpp", "--seed", "7"), first)

    def test_are_as_many_as_asked_for(self):
        _, lines = self.run_tool("src/base/Sum.cpp", "--count", "1")
        self.assertIn("all: 1 changes", lines[-1])

    def test_ask_the_tests_of_the_unit_before_the_others(self):
        self.put("tests/base/SumTest.cpp", "TEST(Sum, IsTwo) {}\nTEST_P(Sums, Are) {}\n")
        self.run_tool(ADDITION)
        self.assertEqual([tests for _, tests in self.tree.runs],
                         ["*Sum.*:*Sums.*", mutations.ALL_TESTS, mutations.ALL_TESTS])

    def test_leave_the_unchanged_programs_behind(self):
        self.put("build/kept/tests/tests_base", "unchanged")
        program = self.put("build/tests/tests_base", "changed")
        self.run_tool(ADDITION)
        self.assertEqual(program.read_text(encoding="utf-8"), "unchanged")

    def test_leave_the_source_as_it_is(self):
        self.run_tool("src/base/Sum.cpp")
        self.assertEqual(self.source.read_text(encoding="utf-8"), SOURCE)


if __name__ == "__main__":
    unittest.main()
