"""What the walk through the program saw, and whether the manual says the same.

The account of the walk has a line for each deed of the hand and for each sight:

    example NAME           what follows belongs to the section of that name
    examples end           what follows belongs to none
    pressed WORDS          a button, a tick, a choice or an entry of a menu
    chose WORDS            an entry of a list
    typed TEXT             into a box
    file NAME              typed into a dialog that asks for a file
    cannot ...             what a hand would have found grey or missing
    saw NAME VALUE         what the screen showed

On a page `[shown:NAME VALUE]` stands for VALUE, which is to be what was seen, or that rounded to the digits written. In
the place of NAME may stand a sum of names and numbers without blanks. `read_deeds` and `check_deeds` compare the way that
a section tells with the one that was walked.
"""

import ast
import math
import operator
import re

MARK = re.compile(r"\[shown:(\S+) ([^\]]+)\]")
_OPERATORS = {ast.Add: operator.add, ast.Sub: operator.sub, ast.Mult: operator.mul, ast.Div: operator.truediv,
              ast.Pow: operator.pow}
_FUNCTIONS = {"radians": math.radians, "abs": abs, "max": max, "min": min}


class Untrue(Exception):
    """What the manual says and the program does not, in words."""


def read_sights(account):
    sights = {}
    for line in account.splitlines():
        if line.startswith("saw "):
            _, name, value = line.split(" ", 2)
            sights[name] = value
    return sights


def worked(words, sights):
    """The value of a sum of sights."""

    def value(node):
        if isinstance(node, ast.Constant):
            return float(node.value)
        if isinstance(node, ast.Name):
            if node.id not in sights:
                raise Untrue(f"the walk saw no {node.id}")
            return float(sights[node.id])
        if isinstance(node, ast.BinOp):
            return _OPERATORS[type(node.op)](value(node.left), value(node.right))
        if isinstance(node, ast.UnaryOp) and isinstance(node.op, ast.USub):
            return -value(node.operand)
        if isinstance(node, ast.Call):
            return _FUNCTIONS[node.func.id](*map(value, node.args))
        raise Untrue(f"{words} cannot be worked out")

    return value(ast.parse(words, mode="eval").body)


def is_number(text):
    return re.fullmatch(r"-?\d*\.?\d+", text) is not None


def agrees(said, words, sights):
    """Whether a text of the manual is what was seen; numbers may be rounded, to no more digits than were seen."""
    if words in sights and not is_number(sights[words]):
        return said == sights[words]
    if not is_number(said):
        return False
    digits = len(said.partition(".")[2])
    if words in sights and digits > len(sights[words].partition(".")[2]):
        return False
    return abs(float(said) - worked(words, sights)) <= 0.5000001 * 10**-digits


def put(text, sights):
    """The text with what was seen in the place of the marks."""

    def said(match):
        words, value = match.groups()
        if not agrees(value, words, sights):
            seen = sights.get(words) or f"{worked(words, sights):.6g}"
            raise Untrue(f"{words} is said to be {value}, and the program shows {seen}")
        return value

    return MARK.sub(said, text)


def read_deeds(account):
    """The deeds of each example by its name, as (kind, words)."""
    deeds, example = {}, None
    for line in account.splitlines():
        kind, _, words = line.partition(" ")
        if kind == "example":
            example = deeds.setdefault(words, [])
        elif kind == "examples":
            example = None
        elif example is not None and kind in ("pressed", "chose", "typed", "file", "cannot"):
            example.append((kind, words.rpartition("/")[2] if kind == "file" else words))
    return deeds


def check_deeds(section, deeds):
    """That a section tells these deeds, in their order: what is pressed in bold, the rest as it is typed or chosen."""
    at = 0
    for kind, words in deeds:
        if kind == "cannot":
            raise Untrue(f"the hand could not {words}")
        if words == "OK":  # pressed after each function, told for all of them
            if "**OK**" not in section:
                raise Untrue("it does not tell that OK is pressed")
            continue
        pattern = rf"\*\*{re.escape(words)}\*\*" if kind == "pressed" else rf"(?<![\w.\-]){re.escape(words)}(?![\w]|\.\d)"
        found = re.compile(pattern).search(section, at)
        if not found:
            raise Untrue(f"it does not tell that {words} is {kind}, or not in its place, behind: ...{section[max(0, at - 60):at]}")
        at = found.end()
