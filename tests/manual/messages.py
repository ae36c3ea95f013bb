#!/usr/bin/env python3
"""Compares the manual's page of messages with the texts in the sources.

    messages.py ROOT

Every message that the program tells by a text of its own stands on the page, and every message of the page stands in
the sources. What is told is found at the calls of Tell and Show_Message; a text without three words of its own (a name
or number with little around it) is left out.
"""

import pathlib
import re
import sys

ROOMS = "core dynamics files synthesis output screens shell platform".split()
LITERAL = r'"(?:[^"\\]|\\.)*"'
CALL = re.compile(r"(?<![\w.])(?:platform::)?Tell\(|\.text = |\b(?:std::string )?text = ")
CONSTANT = re.compile(r"\b(k[A-Z]\w*)(?:\[\])?\s*=\s*((?:std::string\()?" + LITERAL + r"[^;]*);")


def plain(text):
    """The words alone, for two writings of a text are one."""
    text = text.replace('\\"', " ").replace("\\r", " ").replace("\\n", " ")
    return " ".join(re.findall(r"[a-z0-9'>]+", text.lower()))


def joined(code):
    """The literals of a piece of code, each row of neighbours as one text."""
    code = re.sub(r'"\s*(?:\+\s*(?:std::string\()?(?:platform::)?CR(?:LF)?\)?\s*)+(?:\+\s*)?"', " ", code)
    code = re.sub(r'"\s*\n?\s*"', "", code)
    return [literal[1:-1] for literal in re.findall(LITERAL, code)]


def argument(code, start):
    """The code up to where a call, an initialiser or a statement ends."""
    depth, at = 0, start
    while at < len(code):
        if code[at] == '"':
            at = re.compile(LITERAL).match(code, at).end()
            continue
        depth += (code[at] in "({[") - (code[at] in ")}]")
        if depth < 0 or code[at] == ";" or (code[at] == "," and depth == 0):
            break
        at += 1
    return code[start:at]


def main():
    root = pathlib.Path(sys.argv[1])
    page = (root / "helpfiles/general/messages_help.md").read_text(encoding="utf-8")
    quoted = re.findall(r'^\| "(.*?)" \|', page, re.MULTILINE)
    parts = [plain(part) for text in quoted for part in text.split("...")]
    everything, amiss = [], []
    for file in sorted(file for room in ROOMS for file in (root / room).glob("*.cpp")):
        code = file.read_text(encoding="utf-8")
        everything += [plain(text) for text in joined(code)]
        constants = {name: value for name, value in CONSTANT.findall(code)}
        for call in CALL.finditer(code):
            told = argument(code, call.end())
            for name in re.findall(r"\bk[A-Z]\w*", told):
                told += " " + constants.get(name, "")
            texts = [plain(text) for text in joined(told)]
            texts = [text for text in texts if len(text.split()) > 2]
            if texts and not any(part in text or text in part for text in texts for part in parts if len(part) > 7):
                amiss.append(f"{file.relative_to(root)} tells what is not on the page: {texts[0]}")
    for text in quoted:
        for part in text.split("..."):
            if plain(part) and not any(plain(part) in known for known in everything):
                amiss.append(f"the page has a message that no source has: {part}")
    for line in amiss:
        print(line, file=sys.stderr)
    print(f"{len(quoted)} messages, {len(amiss)} amiss")
    return 1 if amiss or len(quoted) < 60 else 0


if __name__ == "__main__":
    sys.exit(main())
