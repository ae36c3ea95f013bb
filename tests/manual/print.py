#!/usr/bin/env python3
"""That the text in pictures of screens can be read in print.

    print.py PAGES PICTURES DOCUMENTS

Measured in the PDF files as they are: each picture's pixels to an inch of paper.
"""

import pathlib
import re
import subprocess
import sys
import unittest

PAGES, PICTURES, DOCUMENTS = (pathlib.Path(argument) for argument in sys.argv[1:4])
BOOK = "Program_Manual"
LEAST = 7  # points
TALL = 24  # pixels of the interface's 9 points, as pictures are twice as dense as 96 to the inch
ACROSS = 185  # millimetres; a sheet has 210
# Nothing is written in these but numbers in circles.
NO_TEXT = {"cam-drive", "centrodes", "line-curve", "stage-two", "straight-line"}


def points(dense):
    """The height of the interface's text in print, at so many pixels to the inch."""
    return TALL / dense * 72


def too_small(name, dense):
    return dense > round(TALL * 72 / LEAST) and name not in NO_TEXT  # densities are whole numbers


def shown_on(page):
    """The names of a page's pictures, in their order."""
    return re.findall(r"!\[[^]]*\]\([^)]*?([\w-]+)\.png\)", (PAGES / (page + ".md")).read_text(encoding="utf-8"))


def pages():
    """All of them, in the order of the book."""
    named = re.findall(r"^[\w/]+$", (PAGES / "order.txt").read_text(encoding="utf-8"), re.MULTILINE)
    return named + [page for page in (DOCUMENTS / "made.txt").read_text().split() if page not in named]


def size_of(name):
    head = (PICTURES / (name + ".png")).read_bytes()[16:24]
    return int.from_bytes(head[:4], "big"), int.from_bytes(head[4:], "big")


def printed(document):
    """(width, height, pixels to the inch) of the pictures in a document, in their order."""
    lines = subprocess.run(["pdfimages", "-list", DOCUMENTS / (document + ".pdf")], capture_output=True, text=True,
                           check=True).stdout.splitlines()[2:]
    rows = [line.split() for line in lines]
    return [(int(row[3]), int(row[4]), int(row[12])) for row in rows if row[2] == "image"]


class Limit(unittest.TestCase):
    def test_a_picture_that_is_too_small_is_found(self):
        self.assertAlmostEqual(points(240), 7.2)
        self.assertFalse(too_small("input", 247))
        self.assertTrue(too_small("input", 248))

    def test_a_drawing_without_text_may_be_smaller(self):
        self.assertFalse(too_small("stage-two", 300))


class Documents(unittest.TestCase):
    def compare(self, document, names):
        pictures = printed(document)
        self.assertEqual([size_of(name) for name in names], [picture[:2] for picture in pictures], document)
        for name, (width, _, dense) in zip(names, pictures):
            with self.subTest(document=document, picture=name):
                self.assertFalse(too_small(name, dense), f"its text is {points(dense):.1f} points tall")
                self.assertLessEqual(width / dense * 25.4, ACROSS)

    def test_each_page_by_itself_can_be_read(self):
        for page in pages():
            if page != BOOK:
                self.compare(page, shown_on(page))

    def test_the_book_can_be_read(self):
        names = [name for page in pages() for name in shown_on(page)]
        self.assertGreater(len(names), 40)
        self.compare(BOOK, names)

    def test_each_exception_is_shown(self):
        names = {name for page in pages() for name in shown_on(page)}
        self.assertEqual(NO_TEXT - names, set())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
