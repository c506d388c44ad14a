"""tools/check-includes on small trees: one that is as planned, and some with one fault each."""

import contextlib
import importlib.machinery
import importlib.util
import io
import pathlib
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parent.parent.parent / "tools"
sys.dont_write_bytecode = True
sys.path.insert(0, str(TOOLS))
LOADER = importlib.machinery.SourceFileLoader("check_includes", str(TOOLS / "check-includes"))
check_includes = importlib.util.module_from_spec(
    importlib.util.spec_from_loader(LOADER.name, LOADER))
LOADER.exec_module(check_includes)

TREE = {
    "src/folders.txt": "# The plan.\nbase:\nmp3: base\nui: mp3\nmp3/display: mp3\n",
    "src/base/Bytes.h": "#pragma once\n",
    "src/mp3/Tag.h": '#include <vector>\n#include "base/Bytes.h"\n#include "mp3/Frame.h"\n',
    "src/mp3/Frame.h": "#pragma once\n",
    "src/mp3/display/Show.h": '#include "mp3/Tag.h"\n',
    "src/ui/Form.cpp": '#include "base/Bytes.h"\n#include "mp3/Tag.h"\n',
    "src/main.cpp": '#include "ui/Form.h"\n#include "mp3/display/Show.h"\n',
    ".clang-format": "IncludeCategories:\n  - Regex: '^\"(base|mp3|ui)/'\n    Priority: 2\n",
    "docs/architecture.md": "    base <- mp3 <- ui <- mains\n\n"
                            "| `src/base` | bytes |\n| `src/mp3` | tags |\n| `src/ui` | the window |\n",
    "CONTRIBUTING.md": "Look at `src/mp3/Tag.h`.\n",
}


class CheckIncludes(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        for name, text in TREE.items():
            self.put(name, text)

    def put(self, name, text):
        (self.root / name).parent.mkdir(parents=True, exist_ok=True)
        (self.root / name).write_text(text, encoding="utf-8")

    def complaints(self):
        with contextlib.redirect_stderr(io.StringIO()) as said:
            status = check_includes.main(self.root)
        self.assertEqual(status, 1 if said.getvalue() else 0)
        return said.getvalue().splitlines()

    def test_has_nothing_to_say_of_a_tree_that_is_as_planned(self):
        self.assertEqual(self.complaints(), [])

    def test_names_a_type_that_is_defined_twice(self):
        self.put("src/base/Bytes.h", "struct Item {\n};\nstruct Frame;\nclass Other;\n")
        self.put("src/mp3/Frame.h", "class Frame : public Item {\n  struct Other {\n  };\n};\n")
        self.put("src/mp3/Tag.h", "enum class Item { kOne };\n")
        self.assertEqual(self.complaints(),
                         ["src/mp3/Tag.h defines Item, as src/base/Bytes.h does"])

    def test_names_an_include_against_the_plan(self):
        self.put("src/mp3/Frame.h", '#include "ui/Form.h"\n')
        self.put("src/ui/Form.h", "\n")
        self.assertEqual(self.complaints(), ["src/mp3/Frame.h may not include ui/Form.h"])

    def test_takes_a_folder_within_a_folder_for_one_of_its_own(self):
        self.put("src/ui/Form.cpp", '#include "mp3/display/Show.h"\n')
        self.assertEqual(self.complaints(), ["src/ui/Form.cpp may not include mp3/display/Show.h"])

    def test_names_a_circle(self):
        self.put("src/mp3/Frame.h", '#include "mp3/Tag.h"\n')
        self.assertEqual(len(self.complaints()), 1)
        self.assertIn("circle: ", self.complaints()[0])

    def test_names_a_folder_that_is_not_planned(self):
        self.put("src/sound/Sound.cpp", "\n")
        self.assertEqual(self.complaints(),
                         ["src/folders.txt does not know the folder of src/sound/Sound.cpp"])

    def test_names_a_folder_that_stands_before_what_it_builds_on(self):
        self.put("src/folders.txt", "base:\nmp3: base later\nui: mp3\nmp3/display: mp3\n")
        self.assertEqual(self.complaints(), ["src/folders.txt: mp3 stands before later"])

    def test_names_settings_of_the_style_without_a_folder(self):
        self.put(".clang-format", TREE[".clang-format"].replace("|mp3", ""))
        self.assertIn(".clang-format", self.complaints()[0])

    def test_names_a_page_without_a_row_for_a_folder(self):
        self.put("docs/architecture.md",
                 TREE["docs/architecture.md"].replace("| `src/mp3` | tags |\n", ""))
        self.assertIn("base, mp3, ui", self.complaints()[0])

    def test_names_a_drawing_that_lacks_a_folder(self):
        self.put("docs/architecture.md", TREE["docs/architecture.md"].replace("mp3 <- ui", "mp3"))
        self.assertEqual(self.complaints(), ["docs/architecture.md: the drawing lacks ui"])

    def test_names_a_drawing_with_an_arrow_against_the_plan(self):
        self.put("docs/architecture.md",
                 TREE["docs/architecture.md"].replace("base <- mp3 <- ui", "base <- ui <- mp3"))
        self.assertEqual(self.complaints(),
                         ["docs/architecture.md: the drawing says that mp3 builds on ui"])

    def test_names_a_page_that_names_a_file_which_is_not_there(self):
        self.put("CONTRIBUTING.md", "Look at `src/mp3/Gone.h`, not at build/src/mp3/Gone.h.\n")
        self.assertEqual(self.complaints(), ["CONTRIBUTING.md: there is no src/mp3/Gone.h"])

    def test_names_a_source_and_a_header_that_are_too_long(self):
        self.put("src/ui/Form.cpp", "\n" * 401)
        self.put("tests/ui/Form.h", "\n" * 151)
        self.assertEqual(self.complaints(), ["src/ui/Form.cpp has 401 lines, more than 400",
                                             "tests/ui/Form.h has 151 lines, more than 150"])

    def test_is_content_with_a_function_of_fifty_lines(self):
        self.put("src/ui/Form.cpp", "void Long(int a) {\n" + "  ++a;\n" * 48 + "}\n")
        self.assertEqual(self.complaints(), [])

    def test_names_a_function_of_more_wherever_it_is(self):
        for before, behind, line in [
                ("void Long(int a) {\n", "}\n", 1),
                ("namespace {\n\nvoid Long(int a) {\n", "}\n\n}  // namespace\n", 3),
                ("class A {\n public:\n  void Long(int a) {\n", "  }\n};\n", 3),
                ("A::A(int a) : one_{1}, two_(2) {\n", "}\n", 1),
                ("int Short() { return 1; }\nTEST(A, B) {\n", "}\n", 2),
                ('extern "C" {\nint Long(int a) {\n', "}\n}\n", 2),
                ("const char* brace = \"{\";  // {\nvoid Long(int a) {\n", "}\n", 2)]:
            with self.subTest(before=before):
                self.put("src/ui/Form.cpp", before + "  ++a;\n" * 49 + behind)
                self.assertEqual(self.complaints(), [
                    f"src/ui/Form.cpp:{line}: a function of 51 lines, more than 50"])

    def test_counts_no_table_as_a_function(self):
        self.put("src/ui/Form.cpp", "const int kTable[] = {\n" + "    f(1),\n" * 60 + "};\n")
        self.assertEqual(self.complaints(), [])


if __name__ == "__main__":
    unittest.main()
