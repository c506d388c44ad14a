"""tools/releases with trees in which nothing is built."""

import contextlib
import importlib.machinery
import importlib.util
import io
import pathlib
import sys
import tempfile
import unittest
from unittest import mock

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.dont_write_bytecode = True


def load():
    loader = importlib.machinery.SourceFileLoader("releases", str(ROOT / "tools/releases"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("releases", loader))
    loader.exec_module(module)
    return module


class StandIn:
    """A tree in which the commands that contain one of the words fail."""

    def __init__(self, root, failing):
        self.root = root
        self.failing = failing
        self.said = ""

    def path(self, name):
        return self.root / name.lstrip("/")

    def clone(self, _commit, _place):
        package = self.path("/root/first/build/package/debian")
        package.mkdir(parents=True)
        (package / "repvolta_1.0-1_amd64.deb").write_bytes(b"of version 1.0")

    def step(self, command, log, _place=""):
        log.parent.mkdir(parents=True, exist_ok=True)
        log.write_text(self.said, encoding="utf-8")
        return not any(word in command for word in self.failing)


class Releases(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.tool = load()
        self.tool.WORK = self.root / "work"
        self.trees = {number: StandIn(self.root / number, []) for number in ("12", "13")}

    def table(self, numbers, steps):
        """Whether all passed, and the lines of the table."""
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            passed = self.tool.make_steps(numbers, steps, self.trees.__getitem__)
        return passed, output.getvalue().partition("\nrelease  ")[2].splitlines()[1:]

    def test_takes_both_releases_and_the_usual_steps_when_none_is_named(self):
        self.assertEqual(self.tool.chosen([]), (["12", "13"], ["run", "test", "package", "upgrade"]))

    def test_takes_what_is_named(self):
        self.assertEqual(self.tool.chosen(["13", "upgrade"]), (["13"], ["upgrade"]))

    def test_knows_which_release_the_machine_has_not(self):
        for own, other in (("bookworm", "13"), ("trixie", "12")):
            with mock.patch.object(self.tool, "own_release", lambda own=own: own):
                self.assertEqual(self.tool.chosen(["other", "unit"]), ([other], ["unit"]))

    def test_refuses_other_words(self):
        with self.assertRaisesRegex(SystemExit, "knows no 14. The releases: 12 13 other"):
            self.tool.chosen(["14"])

    def test_fails_when_one_step_fails_and_makes_the_others(self):
        self.trees["12"].failing = ["./test"]
        passed, lines = self.table(["12", "13"], ["run", "test"])
        self.assertFalse(passed)
        self.assertEqual([line.split()[-1] for line in lines],
                         ["passed", "FAILED", "passed", "passed"])

    def test_tells_how_many_tests_ran(self):
        said = ["100% tests passed, 0 tests failed out of 3176", "Ran 7 tests in 99.1s",
                "2800 tests of 15 programs passed"]
        self.trees["13"].said = "\n".join(["...", *said, ""])
        passed, lines = self.table(["13"], ["test"])
        self.assertTrue(passed)
        self.assertEqual([line.strip() for line in lines[1:]], said)

    def test_upgrades_on_both_from_the_package_that_was_made_on_the_first(self):
        self.assertTrue(self.table(["13"], ["upgrade"])[0])
        package = self.trees["13"].path("/root/repvolta/build/package/first/repvolta_1.0-1_amd64.deb")
        self.assertEqual(package.read_bytes(), b"of version 1.0")

    def test_says_so_when_the_package_to_upgrade_from_cannot_be_made(self):
        self.trees["12"].failing = ["tools/package"]
        passed, lines = self.table(["13"], ["upgrade"])
        self.assertFalse(passed)
        self.assertTrue(lines[0].endswith("FAILED (1.0)"))


class Sources(unittest.TestCase):
    def test_are_those_of_the_machine_with_the_name_of_the_release(self):
        sys.path.insert(0, str(ROOT / "tests/package"))
        import tree
        with tempfile.TemporaryDirectory() as folder:
            place = pathlib.Path(folder) / "debian.sources"
            place.write_text("URIs: http://mirror.example/debian\nSuites: bookworm bookworm-updates\n",
                             encoding="utf-8")
            (pathlib.Path(folder) / "made").mkdir()
            with mock.patch.object(tree, "SOURCES", [place]), \
                    mock.patch.object(tree, "own_release", lambda: "bookworm"):
                made = tree.package_sources("trixie", pathlib.Path(folder) / "made")
            self.assertEqual([file.read_text(encoding="utf-8") for file in made],
                             ["URIs: http://mirror.example/debian\nSuites: trixie trixie-updates\n"])


if __name__ == "__main__":
    unittest.main()
