#!/usr/bin/python3
"""The operator's guide as one file: whole, and with nothing in it that has to be fetched."""
import os
import re
import sys
import tempfile
import unittest

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../..")
sys.path.insert(0, os.path.join(ROOT, "scripts/release"))
from guide import PAGES, enclosed_files, guide_page  # noqa: E402


class Guide(unittest.TestCase):
    def setUp(self):
        self.docs = os.path.join(ROOT, "docs")
        self.html = guide_page(self.docs, "9.8.7")

    def test_every_page_is_in_it(self):
        for name in PAGES:
            if os.path.exists(os.path.join(self.docs, name)):
                self.assertIn(f'<section id="{name}">', self.html)
        self.assertIn("Tarvo Launcher 9.8.7", self.html)

    def test_every_picture_of_the_pages_is_in_it(self):
        wanted = 0
        for name in PAGES:
            if os.path.exists(os.path.join(self.docs, name)):
                with open(os.path.join(self.docs, name), encoding="utf-8") as file:
                    wanted += len(re.findall(r"!\[[^\]]*\]\([^)]*\.png\)", file.read()))
        self.assertGreater(wanted, 3)
        self.assertEqual(wanted, self.html.count('src="data:image/png;base64,'))

    def test_nothing_is_fetched(self):
        self.assertEqual([], re.findall(r'src="(?!data:)[^"]*"', self.html))
        self.assertEqual([], re.findall(r"url\(|<link|<script", self.html))

    def test_every_link_leads_somewhere(self):
        places = set(re.findall(r'id="([^"]+)"', self.html))
        links = re.findall(r'href="([^"]+)"', self.html)
        self.assertTrue(links)
        for link in links:
            if not link.startswith("https://"):
                self.assertIn(link.removeprefix("#"), [*places, *enclosed_files(self.docs)])

    def test_files_that_an_operator_takes_lie_beside_it(self):
        self.assertIn('href="fleet/alerts.yml"', self.html)
        for name in enclosed_files(self.docs):
            self.assertIn(f"{name.rpartition('/')[2]}", self.html)
            self.assertTrue(os.path.exists(os.path.join(self.docs, name)))

    def test_a_link_out_of_the_guide_becomes_text(self):
        with tempfile.TemporaryDirectory() as folder:
            with open(os.path.join(folder, "operators-guide.md"), "w", encoding="utf-8") as file:
                file.write("# Guide\n\nSee [the tests](testing.md) and [below](#later).\n\n## Later\n")
            html = guide_page(folder, "1")
        self.assertIn("See the tests and <a href=\"#later\">below</a>", html)


if __name__ == "__main__":
    unittest.main()
