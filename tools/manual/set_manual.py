#!/usr/bin/env python3
"""Sets the manual in its three forms.

    set_manual.py SOURCES PICTURES DOCUMENTS [--made FOLDER] [--version VERSION]

Every Markdown file below SOURCES becomes a PDF below DOCUMENTS, with its places beside it; all of them together become
Program_Manual.pdf; and DOCUMENTS/html has them as pages for a browser. FOLDER has what the build wrote for them, and
chapters.txt in PICTURES what was seen on the walk that took them.
The date on the title is today's, or that of SOURCE_DATE_EPOCH.
"""

import argparse
import concurrent.futures
import datetime
import gc
import logging
import os
import pathlib
import sys

import pages
import paper
import web

HERE = pathlib.Path(__file__).resolve().parent


def today():
    epoch = os.environ.get("SOURCE_DATE_EPOCH")
    return datetime.datetime.fromtimestamp(int(epoch), datetime.timezone.utc).date() if epoch else datetime.date.today()


def write(document, places, file):
    file.parent.mkdir(parents=True, exist_ok=True)
    document.write_pdf(str(file))
    file.with_suffix(".places").write_text(places, encoding="utf-8")


_setter = None


def set_topics(task):
    """Runs in a process of its own; gives back where pictures went, for the book to put them there too."""
    documents, parts = task
    for part in parts:
        document, places = _setter.topic(_setter.chapters[part])
        if part != pages.OVERVIEW:  # its document is the book
            write(document, places, documents / (part + ".pdf"))
    return _setter.look


def main():
    global _setter
    parser = argparse.ArgumentParser()
    parser.add_argument("sources", type=pathlib.Path)
    parser.add_argument("pictures", type=pathlib.Path)
    parser.add_argument("documents", type=pathlib.Path)
    parser.add_argument("--made", type=pathlib.Path, default=pathlib.Path("."))
    parser.add_argument("--version", default="")
    options = parser.parse_args()

    gc.disable()  # a seventh of the time, and the memory is there
    logging.getLogger("weasyprint").setLevel(logging.ERROR)
    logging.getLogger("fontTools").setLevel(logging.ERROR)
    try:
        account = (options.pictures / "chapters.txt").read_text(encoding="utf-8")
        chapters = pages.read_manual(options.sources, options.made, account)
        index = pages.read_index(options.sources, chapters)
        css = (HERE / "paper.css").read_text(encoding="utf-8")
        date = paper.date_in_words(today())
        _setter = paper.Setter(chapters, index, css, options.pictures, options.version, date)
        web.write(chapters, options.documents / "html", options.pictures, options.version, date)
        topics = list(chapters)
        with concurrent.futures.ProcessPoolExecutor(max_workers=2) as workers:
            for look in workers.map(set_topics, [(options.documents, topics[i::2]) for i in (0, 1)]):
                _setter.look.later.update(look.later)
                _setter.look.smaller.update(look.smaller)
        write(*_setter.book(), options.documents / (pages.OVERVIEW + ".pdf"))
    except pages.Trouble as trouble:
        print(f"The manual cannot be set: {trouble}", file=sys.stderr)
        return 1
    (options.documents / "made.txt").write_text("\n".join(sorted(chapters)) + "\n", encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
