"""Tests of tools/understood, without the recogniser itself."""

import contextlib
import importlib.machinery
import importlib.util
import io
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.dont_write_bytecode = True


def load():
    loader = importlib.machinery.SourceFileLoader("understood", str(ROOT / "tools" / "understood"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("understood", loader))
    loader.exec_module(module)
    return module


class Understood(unittest.TestCase):
    def setUp(self):
        self.tool = load()
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tool.MODELS = pathlib.Path(folder.name)

    def model(self, name, dictionary):
        folder = self.tool.MODELS / name
        folder.mkdir()
        (folder / "words.dict").write_text(dictionary, encoding="utf-8")

    def report(self, said, heard, names):
        """What is reported, and whether it was enough."""
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            enough = self.tool.print_report(said, heard, names)
        return output.getvalue().splitlines(), enough

    def test_reads_the_words_of_each_language(self):
        english = self.tool.read_words("english")
        self.assertEqual(english["300"], ["three", "hundred"])
        for language in ("french", "german", "spanish"):
            self.assertEqual(self.tool.read_words(language).keys(), english.keys())
        self.assertEqual(self.tool.read_words("german")["kph"], ["kilometer", "pro", "stunde"])
        self.assertEqual(self.tool.read_words("spanish")["and"], [])

    def test_knows_every_name_once(self):
        names = self.tool.read_names()
        self.assertEqual(len(names), len({self.tool.word_of(name) for name in names}))
        self.assertGreaterEqual(len(names), 136)

    def test_takes_the_model_of_the_language(self):
        self.model("en-us", "one W AH N\n")
        self.model("fr-fr", "un oe\n")
        self.assertEqual(self.tool.Recogniser("french").sounds["un"], ["oe"])

    def test_says_that_a_language_has_no_model(self):
        self.model("en-us", "one W AH N\n")
        with self.assertRaisesRegex(self.tool.NoModel, "^german: not judged.* only: en-us$"):
            self.tool.Recogniser("german")

    def test_gives_a_name_all_pronunciations_of_its_words(self):
        self.model("en-us", "leg L EH G\npress P R EH S\npress(2) P R IH S\none W AH N\n")
        recogniser = self.tool.Recogniser("english")
        self.assertEqual(recogniser.dictionary({"one"}, ["Leg Press"]),
                         ["name_leg_press L EH G P R EH S", "name_leg_press(2) L EH G P R IH S",
                          "one W AH N"])

    def test_asks_for_the_sounds_of_an_unknown_word(self):
        self.model("en-us", "one W AH N\n")
        with self.assertRaisesRegex(RuntimeError, "no pronunciation is known for zercher"):
            self.tool.Recogniser("english").dictionary({"one"}, ["Zercher"])

    def test_is_content_with_all_names_and_nearly_all_words(self):
        said = [["two", "sets"]] * 200
        heard = [["name_squat", "two", "sets"]] * 199 + [["name_squat", "two"]]
        lines, enough = self.report(said, heard, ["Squat"] * 200)
        self.assertEqual(lines, ['   1 x "sets" heard as ""',
                                 "200 names, 0 errors: 100.00% understood",
                                 "200 instructions, 400 words, 1 errors: 99.75% understood"])
        self.assertTrue(enough)

    def test_is_not_content_with_a_name_that_is_misheard(self):
        heard = [["name_chin_up", "two", "sets"], ["name_squat", "two", "sets"]]
        lines, enough = self.report([["two", "sets"]] * 2, heard, ["Sit Up", "Squat"])
        self.assertEqual(lines, ['   1 x "Sit Up" heard as "name_chin_up"',
                                 "2 names, 1 errors: 50.00% understood",
                                 "2 instructions, 4 words, 0 errors: 100.00% understood"])
        self.assertFalse(enough)

    def test_is_not_content_with_fewer_words(self):
        heard = [["two", "sets"]] * 98 + [["two"]] * 2
        self.assertFalse(self.report([["two", "sets"]] * 100, heard, [])[1])

    def test_judges_no_names_in_another_language(self):
        run = subprocess.run([ROOT / "tools" / "understood", "--names", "--language", "german"],
                             stderr=subprocess.PIPE, text=True, check=False)
        self.assertEqual(run.returncode, 2)
        self.assertIn("is judged without names", run.stderr)


if __name__ == "__main__":
    unittest.main()
