"""tools/group-sources, as CMake calls it."""

import pathlib
import subprocess
import tempfile
import unittest

GROUP = pathlib.Path(__file__).resolve().parent.parent.parent / "tools/group-sources"


class GroupSources(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.targets = []

    def add(self, target, **sources):
        """A target whose sources have those names and texts; one without a text is there already."""
        for name, text in sources.items():
            if text is not None:
                (self.root / f"{name}.cpp").write_text(text, encoding="utf-8")
        self.targets.append(" ".join([target, *(str(self.root / f"{name}.cpp") for name in sources)]))

    def groups(self):
        """For each group its target and the names of its sources."""
        (self.root / "sources.txt").write_text("\n".join(self.targets) + "\n", encoding="utf-8")
        run = subprocess.run([GROUP, self.root / "sources.txt"], text=True, timeout=60,
                             capture_output=True, check=True)
        found = []
        for line in run.stdout.splitlines():
            words = line.removeprefix("set_source_files_properties(").removesuffix(")").split()
            end = words.index("TARGET_DIRECTORY")
            found.append((words[end + 1], "+".join(pathlib.Path(word).stem for word in words[:end])))
        return found

    def test_joins_the_sources_of_a_target(self):
        self.add("one", A="int First() { return 1; }\n", B="int Second() { return 1; }\n")
        self.add("two", C="int First() { return 1; }\n", D="int Second() { return 1; }\n")
        self.assertEqual(self.groups(), [("one", "A+B"), ("two", "C+D")])

    def test_keeps_apart_what_declares_a_name_twice(self):
        self.add("one", A="constexpr int kLimit = 1;\n", B="constexpr int kLimit = 2;\n",
                 C="int Third() { return 1; }\n")
        self.assertEqual(self.groups(), [("one", "A+C")])

    def test_keeps_alone_what_several_targets_compile(self):
        self.add("one", A="int First() { return 1; }\n", B="int Second() { return 1; }\n",
                 C="int Third() { return 1; }\n")
        self.add("two", A=None)
        self.assertEqual(self.groups(), [("one", "B+C")])

    def test_keeps_a_main_alone(self):
        self.add("one", A="int First() { return 1; }\n", B="int main() { return 0; }\n",
                 C="int Third() { return 1; }\n")
        self.assertEqual(self.groups(), [("one", "A+C")])

    def test_makes_no_group_too_large(self):
        self.add("one", **{f"S{i}": f"int Get{i}() {{ return 1; }}\n" for i in range(10)})
        self.assertEqual([names.count("+") + 1 for _, names in self.groups()], [8, 2])


if __name__ == "__main__":
    unittest.main()
