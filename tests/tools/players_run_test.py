"""tests/players/run on a machine that refuses to mount file systems says what is not tested."""

import os
import pathlib
import subprocess
import tempfile
import unittest

RUN = pathlib.Path(__file__).resolve().parent.parent / "players/run"
SKIPPED = 77


class PlayersRun(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def replace(self, program, script):
        """From now on a script stands in for a program of the system."""
        path = self.folder / program
        path.write_text(f"#!/bin/sh\n{script}\n", encoding="utf-8")
        path.chmod(0o755)

    def replace_tests(self, script):
        """A script stands in for all that runs in the name spaces."""
        self.replace("unshare", f'case "$*" in *main.py*) {script} ;; esac')

    def run_for(self, player):
        environment = dict(os.environ, PATH=f"{self.folder}:{os.environ['PATH']}",
                           TMPDIR=str(self.folder))
        return subprocess.run([RUN, self.folder, player], env=environment, capture_output=True,
                              text=True, timeout=60, check=False)

    def test_says_so_where_no_name_space_is_given(self):
        self.replace("unshare", "exit 1")
        done = self.run_for("ntfs")
        self.assertEqual(done.returncode, SKIPPED, done.stderr)
        self.assertTrue(done.stdout.startswith("NOT TESTED: updates on the file system \"ntfs\", "))
        self.assertEqual(done.stdout.count("\n"), 1)

    def test_says_so_where_mounting_is_refused(self):
        self.replace_tests("echo 'mount: permission denied'; exit 77")
        done = self.run_for("exfat")
        self.assertEqual(done.returncode, SKIPPED, done.stderr)
        self.assertEqual(done.stdout, "NOT TESTED: updates on the file system \"exfat\", because "
                         "mounting it is refused: mount: permission denied\n")

    def test_fails_where_mounting_fails_for_another_reason(self):
        self.replace_tests("exit 1")
        self.assertEqual(self.run_for("exfat").returncode, 1)

    def test_leaves_no_folder_behind(self):
        self.replace_tests("exit 1")
        self.run_for("fat")
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()),
                         ["unshare"])


if __name__ == "__main__":
    unittest.main()
