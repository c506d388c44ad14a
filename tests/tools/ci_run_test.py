""".ci/run with commands that only say how they end."""

import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

RUN = pathlib.Path(__file__).resolve().parent.parent.parent / ".ci/run"
COMMANDS = ["test", "tools/check-lint", "tools/install-packages", "tools/check-desktop",
            "tools/package", "tools/check-package"]


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

    def put(self, name, script):
        (self.root / name).write_text("#!/bin/sh\n" + script + "\n", encoding="utf-8")
        (self.root / name).chmod(0o755)

    def run_stages(self, *names):
        run = subprocess.run([self.root / ".ci/run", *names], capture_output=True, text=True,
                             timeout=60)
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

    def test_does_not_try_a_package_that_was_not_made(self):
        self.put("tools/package", '[ "$1" != --check ]')
        self.put("tools/check-package", "touch tried")
        _, results, _ = self.run_stages("package", "portable", "installed")
        self.assertEqual((results["package"], results["portable"]), ("FAILED", "passed"))
        self.assertTrue(results["installed"].startswith("NOT DONE"))
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
