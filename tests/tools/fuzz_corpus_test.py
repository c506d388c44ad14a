"""tools/fuzz-corpus on archives of a tree of its own."""

import pathlib
import shutil
import subprocess
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parent.parent.parent / "tools/fuzz-corpus"


class FuzzCorpus(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        (self.root / "fuzz/corpus").mkdir(parents=True)
        (self.root / "tools").mkdir()
        shutil.copy(TOOL, self.root / "tools")
        self.archive = self.root / "fuzz/corpus/numbers.tar.gz"
        self.put("one", {"a": b"1.5", "with blank": b"", "c": b"\0\xff"})
        self.tool("--pack", "numbers", self.root / "one")

    def put(self, folder, inputs):
        (self.root / folder).mkdir()
        for name, content in inputs.items():
            (self.root / folder / name).write_bytes(content)

    def tool(self, *words, status=0):
        run = subprocess.run([self.root / "tools/fuzz-corpus", *words], capture_output=True,
                             text=True, timeout=60)
        self.assertEqual(run.returncode, status, run.stderr)

    def inputs(self):
        with tempfile.TemporaryDirectory() as folder:
            self.tool("--unpack", "numbers", folder)
            return {file.name: file.read_bytes() for file in pathlib.Path(folder).iterdir()}

    def test_gives_back_what_was_packed(self):
        self.assertEqual(self.inputs(), {"a": b"1.5", "with blank": b"", "c": b"\0\xff"})

    def test_makes_the_same_archive_of_the_same_inputs(self):
        before = self.archive.read_bytes()
        self.put("two", {"c": b"\0\xff", "with blank": b"", "a": b"1.5"})
        (self.root / "two/a").chmod(0o600)
        self.tool("--pack", "numbers", self.root / "two")
        self.assertEqual(self.archive.read_bytes(), before)

    def test_adds_an_input_and_keeps_the_others(self):
        self.put("new", {"d": b"-3"})
        self.tool("--add", "numbers", self.root / "new/d")
        self.assertEqual(self.inputs(),
                         {"a": b"1.5", "with blank": b"", "c": b"\0\xff", "d": b"-3"})

    def test_keeps_an_input_whose_name_another_one_takes(self):
        self.put("new", {"a": b"-3"})
        self.tool("--add", "numbers", self.root / "new/a")
        self.assertEqual(sorted(self.inputs().values()), [b"", b"\0\xff", b"-3", b"1.5"])

    def test_knows_its_targets(self):
        self.tool("--unpack", "letters", self.root / "out", status=2)


if __name__ == "__main__":
    unittest.main()
