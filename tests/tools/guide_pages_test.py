"""Tests of cmake/GuidePages.cmake: on a small guide of their own, and on the pages of this tree."""

import html.parser
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


def write_pages(docs, out):
    subprocess.run(["cmake", "-D", f"CMARK={shutil.which('cmark-gfm')}", "-D", f"DOCS={docs}",
                    "-D", f"OUT={out}", "-P", ROOT / "cmake/GuidePages.cmake"], check=True)


class Page(html.parser.HTMLParser):
    """What a web page refers to, and the places in it that can be referred to."""

    def __init__(self, path):
        super().__init__()
        self.tags, self.links, self.loaded, self.anchors = [], [], [], []
        self.text_links = []  # without those of the list above the text
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        known = dict(attributes)
        self.tags.append(tag)
        if "id" in known:
            self.anchors.append(known["id"])
        if tag == "a" and "href" in known:
            self.links.append(known["href"])
            if "main" in self.tags:
                self.text_links.append(known["href"])
        if tag in ("img", "link"):
            self.loaded.append(known.get("src") or known.get("href"))


class Guide(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.out = self.folder / "out"

    def broken(self, page):
        """The references of a page that lead nowhere."""
        found = []
        known = Page(page)
        for link in known.links + known.loaded:
            name, _, anchor = link.partition("#")
            target = page.parent / name if name else page
            if not target.is_file() or anchor and anchor not in Page(target).anchors:
                found.append(f"{page.name}: {link}")
        return found


class SmallGuide(Guide):
    """Two pages of a guide and a page about a format."""

    def setUp(self):
        super().setUp()
        docs = self.folder / "docs"
        (docs / "guide/pictures").mkdir(parents=True)
        (docs / "formats").mkdir()
        shutil.copytree(ROOT / "docs/html", docs / "html")
        (docs / "guide/README.md").write_text("# All\n\n1. [Songs; and more](songs.md): what\n")
        (docs / "guide/songs.md").write_text(
            "# Songs; & `more`\n\n## Is it *there*? (1)\n\n[up](README.md) [part](#is-it-there-1) "
            "[kept](../formats/kept.md#table) [why](../decisions/why.md) <b>raw</b>\n\n"
            "| a | b |\n|---|---|\n| 1; [2] | `@title@` |\n")
        (docs / "formats/kept.md").write_text(
            "# Kept\n\n## Table\n\n[songs](../guide/songs.md) [schema](kept.json)\n")
        (docs / "formats/kept.json").write_text("{}")
        write_pages(docs, self.out)
        self.songs = (self.out / "songs.html").read_text(encoding="utf-8")

    def test_leads_from_page_to_page(self):
        links = Page(self.out / "songs.html").links
        for link in ("index.html", "#is-it-there-1", "formats/kept.html#table"):
            self.assertIn(link, links)
        self.assertIn("../songs.html", Page(self.out / "formats/kept.html").links)
        for page in self.out.rglob("*.html"):
            self.assertEqual(self.broken(page), [])

    def test_leaves_links_to_other_documents_out(self):
        self.assertIn("<a>why</a>", self.songs)

    def test_keeps_all_signs_of_the_text(self):
        self.assertIn("<td>1; [2]</td>", self.songs)
        self.assertIn("<code>@title@</code>", self.songs)
        self.assertIn("<title>Songs; &amp; more - Repvolta</title>", self.songs)
        self.assertNotIn("<b>", self.songs)

    def test_names_all_pages_above_each_and_marks_the_one_that_is_read(self):
        self.assertIn('<li><a href="songs.html" aria-current="page">Songs; and more</a></li>',
                      self.songs)
        self.assertIn('<li><a href="index.html">Guide</a></li>', self.songs)


class TheGuide(Guide):
    def setUp(self):
        super().setUp()
        write_pages(ROOT / "docs", self.out)
        self.pages = sorted(self.out.rglob("*.html"))

    def test_has_a_page_for_each_page_of_the_sources(self):
        sources = list((ROOT / "docs/guide").glob("*.md")) + list((ROOT / "docs/formats").glob("*.md"))
        self.assertEqual(len(self.pages), len(sources))
        self.assertGreater(len(sources), 15)

    def test_has_no_reference_that_leads_nowhere(self):
        self.assertEqual([line for page in self.pages for line in self.broken(page)], [])

    def test_keeps_every_link_of_the_guide(self):
        for source in (ROOT / "docs/guide").glob("*.md"):
            with self.subTest(source.name):
                name = source.name.replace("README", "index").replace(".md", ".html")
                written = re.findall(r"(?<!!)\[[^]]+\]\(([^)]+)\)", source.read_text(encoding="utf-8"))
                self.assertEqual(len(Page(self.out / name).text_links), len(written))

    def test_needs_neither_scripts_nor_the_net(self):
        for page in self.pages:
            known = Page(page)
            self.assertNotIn("script", known.tags)
            self.assertEqual([one for one in known.loaded if ":" in one], [])
        self.assertNotIn("url(", (self.out / "guide.css").read_text(encoding="utf-8"))

    def test_helps_in_every_window(self):
        places = (ROOT / "src/editing/GuidePages.cpp").read_text(encoding="utf-8")
        for form in (ROOT / "src/ui").glob("*.ui"):
            text = form.read_text(encoding="utf-8")
            for name in re.findall(r'^ <widget class="QDialog" name="(\w+)"', text, re.MULTILINE):
                if name != "RepvoltaForm":  # whose tabs are places
                    self.assertIn(f'{{"{name}"', places)
            for name in re.findall(r'<widget class="QWidget" name="(\w+Page)"', text):
                self.assertIn(f'{{"{name}"', places)


if __name__ == "__main__":
    unittest.main()
