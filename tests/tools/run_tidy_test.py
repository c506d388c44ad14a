"""tools/run-tidy with a clang-tidy that only notes what it is asked to check."""

import json
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

RUN = pathlib.Path(__file__).resolve().parent.parent.parent / "tools/run-tidy"
# Finds fault with each file that holds or includes the word FAULT, and cannot compile CLASH in one
# that includes others.
STAND_IN = r"""#!/bin/sh
for file; do :; done
echo "$file" >>asked
sources=$(sed -n 's/^#include "\(.*\)"/\1/p' "$file")
grep -q CLASH $file $sources && [ "$(echo $sources | wc -w)" -gt 1 ] &&
  echo "$file:1:1: error: redefinition [clang-diagnostic-error]" && exit 1
grep -q FAULT $file $sources && echo "a fault [bugprone-fault]" && exit 1
echo "7 warnings generated." >&2
"""


class RunTidy(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve()
        (self.root / "build").mkdir()
        (self.root / "clang-tidy-14").write_text(STAND_IN, encoding="utf-8")
        (self.root / "clang-tidy-14").chmod(0o755)
        self.sources, self.commands = [], []

    def add(self, name, text, options=""):
        source = self.root / name
        source.parent.mkdir(parents=True, exist_ok=True)
        source.write_text(text, encoding="utf-8")
        self.sources.append(name)
        self.commands.append({"directory": str(self.root), "file": str(source),
                              "command": f"c++ {options} -o {name}.o -c {source}"})

    def run_tidy(self):
        """How it ended, what it said, and the sources that were checked together."""
        (self.root / "build/compile_commands.json").write_text(json.dumps(self.commands),
                                                               encoding="utf-8")
        run = subprocess.run([RUN, "build", *self.sources], cwd=self.root, text=True, timeout=60,
                             capture_output=True, check=False,
                             env={**os.environ, "PATH": f"{self.root}:{os.environ['PATH']}"})
        asked = (self.root / "asked").read_text(encoding="utf-8").split()
        return run.returncode, run.stdout, sorted(self.checked(file) for file in asked)

    def checked(self, file):
        included = re.findall(r'#include ".*/(\w+)\.cpp"', pathlib.Path(file).read_text("utf-8"))
        return "+".join(included) or pathlib.Path(file).stem

    def test_checks_the_sources_of_a_folder_together(self):
        self.add("src/app/A.cpp", "int First() { return 1; }\n")
        self.add("src/app/B.cpp", "int Second() { return 1; }\n")
        self.add("src/ui/C.cpp", "int Third() { return 1; }\n")
        status, said, checked = self.run_tidy()
        self.assertEqual((status, checked), (0, ["A+B", "C"]))
        self.assertEqual(said, "clang-tidy checked 3 of 3 sources, as 2 files\n")

    def test_checks_sources_that_declare_the_same_name_apart(self):
        self.add("src/A.cpp", "namespace {\nconstexpr int kLimit = 1;\n}\n")
        self.add("src/B.cpp", "namespace {\nconstexpr int kLimit = 2;\n}\n")
        self.add("src/C.cpp", "std::string Said(int number) {\n  return {};\n}\n")
        self.add("src/D.cpp", "struct Said {};\n")
        self.assertEqual(self.run_tidy()[2], ["A+C", "B+D"])

    def test_checks_sources_that_are_compiled_otherwise_apart(self):
        self.add("src/A.cpp", "")
        self.add("src/B.cpp", "", "-DOTHER")
        self.assertEqual(self.run_tidy()[2], ["A", "B"])

    def test_fails_when_a_fault_is_found(self):
        self.add("src/A.cpp", "")
        self.add("src/B.cpp", "// FAULT\n")
        status, said, checked = self.run_tidy()
        self.assertEqual((status, checked), (1, ["A+B"]))
        self.assertIn("a fault [bugprone-fault]", said)

    def test_checks_one_by_one_what_cannot_be_compiled_together(self):
        self.add("src/A.cpp", "// CLASH\n")
        self.add("src/B.cpp", "")
        status, said, checked = self.run_tidy()
        self.assertEqual((status, checked), (0, ["A", "A+B", "B"]))
        self.assertNotIn("redefinition", said)


if __name__ == "__main__":
    unittest.main()
