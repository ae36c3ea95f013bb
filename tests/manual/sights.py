#!/usr/bin/env python3
"""That the check of the manual against the walk can fail, and how.

    sights.py FOLDER_OF_THE_SETTER PAGES ACCOUNT
"""

import pathlib
import re
import sys
import unittest

sys.path.insert(0, sys.argv[1])
import sights  # noqa: E402

SEEN = {"most": "131.473", "least": "131.453", "words": "Linkage is Grashof"}
DEEDS = [("pressed", "File"), ("pressed", "New"), ("typed", "24"), ("typed", "0.5"), ("chose", "Coupler Pt"), ("file", "a.out")]
SECTION = "Choose **File**, **New**, type 24 and 0.5, take Coupler Pt, and save as `a.out`."


class Numbers(unittest.TestCase):
    def test_what_was_seen_stands_without_its_mark(self):
        self.assertEqual(sights.put("up to [shown:most 131.473] mm", SEEN), "up to 131.473 mm")

    def test_a_number_may_be_rounded(self):
        self.assertTrue(sights.agrees("131.5", "most", SEEN))
        self.assertTrue(sights.agrees("131", "most", SEEN))

    def test_a_number_that_was_not_seen_is_told(self):
        for said in ("131.474", "131.4", "132", "-131.473"):
            with self.assertRaises(sights.Untrue):
                sights.put(f"[shown:most {said}]", SEEN)

    def test_digits_that_nobody_saw_are_told(self):
        self.assertFalse(sights.agrees("131.4730", "most", SEEN))

    def test_sums_are_worked(self):
        self.assertTrue(sights.agrees("0.020", "most-least", SEEN))
        self.assertFalse(sights.agrees("0.021", "most-least", SEEN))
        self.assertTrue(sights.agrees("2.295", "radians(most)", SEEN))

    def test_words_are_the_same_to_the_letter(self):
        self.assertTrue(sights.agrees("Linkage is Grashof", "words", SEEN))
        self.assertFalse(sights.agrees("Linkage is Non-Grashof", "words", SEEN))

    def test_a_name_that_the_walk_does_not_have_is_told(self):
        with self.assertRaises(sights.Untrue):
            sights.put("[shown:mots 131.473]", SEEN)


class Deeds(unittest.TestCase):
    def test_deeds_in_their_order_are_told(self):
        sights.check_deeds(SECTION, DEEDS)

    def test_a_section_that_leaves_one_out_or_changes_it_is_told(self):
        for was, is_now in (("**New**", "New"), ("24", "240"), ("24", "24.5"), ("0.5", "5"), ("Coupler Pt", "Coupler"),
                            ("24 and 0.5", "0.5 and 24"), ("a.out", "b.out")):
            with self.assertRaises(sights.Untrue, msg=is_now):
                sights.check_deeds(SECTION.replace(was, is_now), DEEDS)

    def test_what_a_hand_finds_grey_is_told(self):
        with self.assertRaises(sights.Untrue):
            sights.check_deeds(SECTION, [("cannot", "press New")])


class Page(unittest.TestCase):
    """The worked examples as they were walked last."""

    @classmethod
    def setUpClass(cls):
        cls.page = (pathlib.Path(sys.argv[2]) / "general/worked_examples.md").read_text(encoding="utf-8")
        cls.account = pathlib.Path(sys.argv[3]).read_text(encoding="utf-8")

    def test_five_examples_were_walked(self):
        self.assertEqual(list(sights.read_deeds(self.account)), [
            "a-straight-line", "two-stages", "a-cam-drive", "a-lid-with-loads", "balance-and-flywheel"])

    def test_each_number_of_the_page_was_seen(self):
        seen = sights.read_sights(self.account)
        marks = sights.MARK.findall(self.page)
        self.assertGreater(len(marks), 60)
        for words, said in marks:
            self.assertTrue(sights.agrees(said, words, seen), f"{words} is said to be {said}")

    def test_each_number_with_its_last_digit_changed_is_found(self):
        seen = sights.read_sights(self.account)
        for words, said in sights.MARK.findall(self.page):
            if sights.is_number(said):
                digit = 10 ** -len(said.partition(".")[2])
                other = f"{float(said) + digit:.{len(said.partition('.')[2])}f}"
                self.assertFalse(sights.agrees(other, words, seen), f"{words} may be {said} and {other}")

    def test_nothing_was_seen_for_nobody(self):
        used = " ".join(words for words, _ in sights.MARK.findall(self.page))
        unused = [name for name in sights.read_sights(self.account)
                  if not re.search(rf"\b{name}\b", used) and not name.startswith("pulse_")]
        self.assertEqual(unused, [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
