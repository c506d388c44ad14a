""".ci/run with commands that only say how they end."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

RUN = pathlib.Path(__file__).resolve().parent.parent.parent / ".ci/run"
COMMANDS = ["test", "tools/check-format", "tools/check-lint", "tools/install-packages", "tools/check-desktop",
            "tools/package", "tools/check-package", "tools/releases"]


class CiRun(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        (self.root / ".ci").mkdir()
        (self.root / "tools").mkdir()
        shutil.copy(RUN, self.root / ".ci/run")
        for name in COMMANDS:
            self.put(name, "exit 0")
        # As on a machine where everything is allowed.
        (self.root / "system").mkdir()
        self.put("system/id", "echo 0")
        self.put("system/unshare", "exit 0")

    def put(self, name, script):
        (self.root / name).write_text("#!/bin/sh\n" + script + "\n", encoding="utf-8")
        (self.root / name).chmod(0o755)

    def run_stages(self, *names):
        path = f"{self.root}/system:{os.environ['PATH']}"
        run = subprocess.run([self.root / ".ci/run", *names], capture_output=True, text=True,
                             timeout=60, env={**os.environ, "PATH": path})
        table = run.stdout.partition("\nstage ")[2]
        return run.returncode, dict(re.findall(r"^(\w+) +\d+:\d\d  (.*)$", table, re.MULTILINE)), table

    def test_passes_when_all_stages_pass(self):
        status, results, table = self.run_stages("tests", "sanitizers", "lint", "desktop", "package")
        self.assertEqual((status, set(results.values())), (0, {"passed"}))
        self.assertTrue(table.endswith("Of 5 stages 0 failed and 0 could not be run.\n"))

    def test_goes_on_behind_a_stage_that_fails_and_fails_at_the_end(self):
        self.put("tools/check-lint", "exit 3")
        status, results, table = self.run_stages("tests", "lint", "desktop")
        self.assertEqual(status, 1)
        self.assertEqual(results, {"tests": "passed", "lint": "FAILED", "desktop": "passed"})
        self.assertTrue(table.endswith("Of 3 stages 1 failed and 0 could not be run.\n"))

    def test_fails_when_only_the_style_is_wrong(self):
        self.put("tools/check-format", "exit 1")
        status, results, _ = self.run_stages("style", "tests", "lint", "desktop")
        self.assertEqual(status, 1)
        self.assertEqual([stage for stage in results if results[stage] != "passed"], ["style"])

    def test_does_not_try_a_package_that_was_not_made(self):
        self.put("tools/package", '[ "$1" != --check ]')
        self.put("tools/check-package", "touch tried")
        _, results, _ = self.run_stages("package", "portable", "installed")
        self.assertEqual((results["package"], results["portable"]), ("FAILED", "passed"))
        self.assertTrue(results["installed"].startswith("NOT DONE"))
        self.assertFalse((self.root / "tried").exists())

    def test_builds_with_the_second_release(self):
        self.put("tools/releases", '[ "$2" = tree ] || { touch "$1-$2"; exit 1; }')
        self.assertEqual(self.run_stages("second")[:2], (1, {"second": "FAILED"}))
        self.assertTrue((self.root / "other-unit").exists())

    def test_says_where_no_tree_of_the_second_release_can_be_made(self):
        self.put("tools/releases", '[ "$2" != tree ]')
        status, results, _ = self.run_stages("style", "second")
        self.assertEqual((status, results["style"]), (0, "passed"))
        self.assertTrue(results["second"].startswith("NOT DONE: a tree of the other release"))

    def test_does_not_make_trees_without_the_rights(self):
        self.put("system/id", "echo 1000")
        self.put("tools/releases", "touch tried")
        results = self.run_stages("second", "installed")[1]
        self.assertEqual({result.partition(":")[0] for result in results.values()}, {"NOT DONE"})
        self.assertFalse((self.root / "tried").exists())

    def test_tells_how_many_tests_a_stage_ran(self):
        self.put("test", 'echo "98% tests passed, 2 tests failed out of 100"; exit 8')
        status, results, table = self.run_stages("tests")
        self.assertEqual((status, results), (1, {"tests": "FAILED"}))
        self.assertIn("98% tests passed, 2 tests failed out of 100", table)

    def test_knows_its_stages(self):
        self.assertEqual(self.run_stages("nothing")[0], 2)


if __name__ == "__main__":
    unittest.main()
