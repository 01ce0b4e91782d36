#!/usr/bin/python3
"""Every link and every picture of the documents leads to something that is there."""
import os
import re
import sys
import unittest

ROOT = os.path.realpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "../.."))


def documents():
    names = ["README.md", "CHANGES.md"] + ["docs/" + name for name in os.listdir(os.path.join(ROOT, "docs"))]
    return [name for name in sorted(names) if name.endswith(".md")]


def text_of(name):
    with open(os.path.join(ROOT, name), encoding="utf-8") as file:
        return re.sub(r"```.*?```", "", file.read(), flags=re.S)


def anchors(name):
    """What the headings of a page can be reached by."""
    found = set()
    for heading in re.findall(r"^#+ (.*)$", text_of(name), re.M):
        found.add(re.sub(r"[^\w\- ]", "", heading.strip().lower()).replace(" ", "-"))
    return found


def broken(name):
    for target in re.findall(r"\]\(([^)\s]+)\)", text_of(name)):
        if re.match(r"https?://|mailto:", target):
            continue
        page, _, anchor = target.partition("#")
        path = os.path.normpath(os.path.join(os.path.dirname(name), page)) if page else name
        if not os.path.exists(os.path.join(ROOT, path)):
            yield f"{name}: there is no {target}"
        elif anchor and anchor not in anchors(path):
            yield f"{name}: {path} has no heading for #{anchor}"


class Documents(unittest.TestCase):
    def test_links(self):
        self.assertGreater(len(documents()), 10)
        self.assertEqual([], [fault for name in documents() for fault in broken(name)])

    def test_every_page_is_reached_from_the_readme(self):
        reached, open_pages = set(), ["README.md"]
        while open_pages:
            page = open_pages.pop()
            if page in reached:
                continue
            reached.add(page)
            for target in re.findall(r"\]\(([\w./-]+\.md)", text_of(page)):
                open_pages.append(os.path.normpath(os.path.join(os.path.dirname(page), target)))
        self.assertEqual(set(), set(documents()) - reached)


if __name__ == "__main__":
    sys.exit(unittest.main())
