"""The operator's pages of docs/ as one HTML file with its pictures in it, which opens without a network."""
import base64
import os
import re

import markdown

# In the order in which an operator comes to them; the first one begins the file. Those that are not there are left out.
PAGES = ("operators-guide.md", "randomizer.md", "upgrade.md", "command-line.md", "events.md", "fleet.md",
         "when-something-is-wrong.md", "nobody-logged-on.md")
# Its files lie beside the guide.
ENCLOSED = "fleet"
STYLE = """
body { font: 15px/1.5 "Segoe UI", sans-serif; max-width: 54em; margin: 2em auto; padding: 0 1em; color: #222; }
img { max-width: 100%; border: 1px solid #ccc; }
table { border-collapse: collapse; margin: 1em 0; }
th, td { border: 1px solid #ccc; padding: .3em .6em; text-align: left; vertical-align: top; }
pre, code { font-family: Consolas, monospace; background: #f4f4f4; }
pre { padding: .6em; overflow-x: auto; }
h1 { margin-top: 2em; border-bottom: 1px solid #ccc; }
"""


def read(folder, name):
    with open(os.path.join(folder, name), encoding="utf-8") as file:
        return file.read()


def with_pictures_inside(html, folder):
    def inside(match):
        with open(os.path.join(folder, match.group(1)), "rb") as file:
            return 'src="data:image/png;base64,' + base64.b64encode(file.read()).decode() + '"'
    return re.sub(r'src="([^":]+\.png)"', inside, html)


def enclosed_files(folder):
    """The paths, from the guide on, of the files that the pages name and an operator takes as they are."""
    within = os.path.join(folder, ENCLOSED)
    return [f"{ENCLOSED}/{name}" for name in sorted(os.listdir(within))] if os.path.isdir(within) else []


def with_links_inside(html, pages, enclosed):
    """Links between the pages lead to their places in the file, those to enclosed files stay, and those to other files of
    the sources become plain text."""
    def inside(match):
        page, anchor, text = match.groups()
        if page in pages:
            return f'<a href="#{anchor or page}">{text}</a>'
        return match.group(0) if page in enclosed else text
    return re.sub(r'<a href="([\w./-]+\.\w+)(?:#([\w-]+))?">(.*?)</a>', inside, html)


def guide_page(folder, version):
    """`folder` holds the pages as Markdown, with their pictures."""
    pages = [name for name in PAGES if os.path.exists(os.path.join(folder, name))]
    parts = []
    for name in pages:
        made = markdown.markdown(read(folder, name), extensions=["tables", "fenced_code", "sane_lists", "toc"])
        parts.append(f'<section id="{name}">\n{made}\n</section>\n')
    body = with_links_inside(with_pictures_inside("".join(parts), folder), pages, enclosed_files(folder))
    return ('<!DOCTYPE html>\n<html lang="en"><head><meta charset="utf-8">'
            f"<title>Tarvo Launcher {version}: the operator's guide</title><style>{STYLE}</style></head>\n"
            f"<body>\n{body}</body></html>\n")
