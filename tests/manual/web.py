#!/usr/bin/env python3
"""Follows every reference of the pages for a browser: files, places and pictures.

    web.py FOLDER
"""

import html.parser
import json
import pathlib
import sys


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.names, self.references = set(), []
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        given = dict(attributes)
        if "id" in given:
            self.names.add(given["id"])
        for key in ("href", "src"):
            if key in given:
                self.references.append(given[key])


def search_amiss(folder, pages):
    """The search knows every page and leads to places that there are."""
    first = (folder / "search.js").read_text(encoding="utf-8").split("\n", 1)[0]
    sections = json.loads(first[len("var SECTIONS = "):-1])
    amiss = [f"the search does not know {name}" for name in pages
             if name != "index.html" and name not in {section[0] for section in sections}]
    for file, name, _, heading, text in sections:
        if file not in pages or (name and name not in pages[file].names):
            amiss.append(f"the search leads to {file}#{name}, which is not there")
        if "\ue000" in heading + text:
            amiss.append(f"the search has the mark of a formula in {file}#{name}")
    if sum(len(section[4]) for section in sections) < 100000:
        amiss.append("the search has not the texts of the pages")
    for name in pages:
        text = (folder / name).read_text(encoding="utf-8")
        if 'src="search.js"' not in text or text.count('id="find"') != 1:
            amiss.append(f"{name} has no search")
    return amiss


def main():
    folder = pathlib.Path(sys.argv[1])
    pages = {file.name: Page(file.read_text(encoding="utf-8")) for file in folder.glob("*.html")}
    amiss = []
    for name, page in pages.items():
        for reference in page.references:
            if "://" in reference:
                continue
            file, _, place = reference.partition("#")
            file = file or name
            if not (folder / file).is_file():
                amiss.append(f"{name} refers to {reference}: no such file")
            elif place and place not in pages[file].names:
                amiss.append(f"{name} refers to {reference}: no such place")
        if name != "index.html" and f'{name}' not in pages["index.html"].references:
            amiss.append(f"the contents do not lead to {name}")
    amiss += search_amiss(folder, pages)
    for line in amiss:
        print(line, file=sys.stderr)
    count = sum(len(page.references) for page in pages.values())
    print(f"{len(pages)} pages, {count} references, {len(amiss)} amiss")
    return 1 if amiss or count < 500 else 0


if __name__ == "__main__":
    sys.exit(main())
