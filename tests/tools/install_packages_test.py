"""tools/install-packages on machines whose package tools only say what they are asked."""

import os
import pathlib
import subprocess
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parent.parent.parent / "tools/install-packages"


class InstallPackages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.put("id", "echo 0")
        self.put("apt-get", f'echo "$@" >>"{self.folder}/asked"')
        self.installed("")
        self.offered("")

    def put(self, program, script):
        path = self.folder / program
        path.write_text(f"#!/bin/bash\n{script}\n", encoding="utf-8")
        path.chmod(0o755)

    def installed(self, lacking):
        """From now on all packages are there except for these."""
        self.put("dpkg-query", f'for name in "${{@:4}}"; do case " {lacking} " in '
                               '*" $name "*) status=1 ;; *) echo "ii " ;; esac; done; exit $status')

    def offered(self, lacking):
        """From now on the release has all packages except for these."""
        self.put("apt-cache", f'case " {lacking} " in *" $2 "*) echo "  Candidate: (none)" ;; '
                              '*) echo "  Candidate: 1.0" ;; esac')

    def asked(self, *words):
        """What is asked of apt-get, a line each."""
        environment = {**os.environ, "PATH": f"{self.folder}:{os.environ['PATH']}"}
        subprocess.run([TOOL, *words], env=environment, check=True, capture_output=True, timeout=60)
        asked = self.folder / "asked"
        return asked.read_text(encoding="utf-8").splitlines() if asked.exists() else []

    def test_asks_for_nothing_when_all_is_there(self):
        self.assertEqual(self.asked("test"), [])

    def test_installs_what_lacks(self):
        self.installed("lame valgrind")
        self.assertEqual(self.asked("test")[-1], "install -y -qq --no-install-recommends lame valgrind")

    def test_is_content_with_the_other_name_of_a_package(self):
        self.installed("libqt6opengl6-dev")
        self.assertEqual(self.asked(), [])

    def test_installs_the_name_that_the_release_has(self):
        self.installed("libqt6opengl6-dev qt6-base-dev")
        self.offered("libqt6opengl6-dev")
        self.assertEqual(set(self.asked()[-1].split()[4:]), {"qt6-base-dev"})


if __name__ == "__main__":
    unittest.main()
