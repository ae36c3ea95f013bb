"""The manual for a browser: a page for each document with the contents beside it, and a page of contents."""

import json
import pathlib
import posixpath
import re
import shutil

from pages import across, escaped, numbered, target_of, text_of

HOME = "index.html"
# It needs scripts, and shows itself when there are.
SEARCH = ('<form class="search" role="search" hidden><label for="find">Find</label> <input id="find" type="search" '
          'autocomplete="off"><p id="told" aria-live="polite"></p><ol id="found"></ol></form>')


def _dressed(chapter, chapters, pictures):
    root = numbered(chapter.root, chapter)
    for element in root.iter():
        if element.tag == "img":
            name = posixpath.basename(element.get("src"))
            element.set("src", "pictures/" + name)
            if name.endswith(".png") and across(pictures / name):
                element.set("width", str(across(pictures / name) // 2))  # as large as on a screen
            element.set("loading", "lazy")
        if element.tag == "a":
            there = target_of(element.get("href"), chapter, chapters)
            if there:
                other, name = there
                page = "" if other is chapter else other.stem + ".html"
                element.set("href", page + ("#" + name if name else "") or other.stem + ".html")
    return root


def _list(chapters, here=None):
    lines, part = [], None
    for chapter in chapters.values():
        if chapter.part != part:
            part = chapter.part
            lines.append(f'<li class="part">{escaped(part)}</li>')
        current = ' aria-current="page"' if chapter is here else ""
        lines.append(f'<li><a href="{chapter.stem}.html"{current}><span class="number">{chapter.number}</span> '
                     f"{escaped(chapter.title)}</a>")
        if here is None or chapter is here:
            sections = "".join(f'<li><a href="{chapter.stem}.html#{heading.name}">{escaped(heading.title)}</a></li>'
                               for heading in chapter.headings if heading.level == 2)
            lines.append(f"<ul>{sections}</ul>" if sections else "")
        lines.append("</li>")
    return f"<ul>{''.join(lines)}</ul>"


def _sections(chapters):
    """[file, name, page, heading, text] of each part between headings, without formulas."""
    sections = []
    for chapter in chapters.values():
        here = None
        for element in chapter.root:
            words = re.sub(r"\ue000\d+\ue001", " ", text_of(element))
            if element.tag in ("h1", "h2", "h3"):
                name = "" if element.tag == "h1" else element.get("id")
                here = [chapter.stem + ".html", name, chapter.title, text_of(element), []]
                sections.append(here)
            elif here:
                here[4].append(words)
    return [section[:4] + [" ".join(" ".join(section[4]).split())] for section in sections]


def _write_search(chapters, folder):
    script = (pathlib.Path(__file__).parent / "search.js").read_text(encoding="utf-8")
    sections = json.dumps(_sections(chapters), ensure_ascii=False, separators=(",", ":"))
    (folder / "search.js").write_text(f"var SECTIONS = {sections};\n{script}", encoding="utf-8")


def _page(title, beside, body, version, date):
    return (f'<!DOCTYPE html>\n<html lang="en"><head><meta charset="utf-8"><title>{escaped(title)}</title>'
            f'<meta name="viewport" content="width=device-width, initial-scale=1">'
            f'<link rel="stylesheet" href="manual.css"><script src="search.js" defer></script></head><body>{beside}<main>{body}'
            f"<footer>Verlink {escaped(version)}, {escaped(date)}</footer></main></body></html>\n")


def _neighbours(order, at):
    links = []
    if at > 0:
        links.append(f'<a href="{order[at - 1].stem}.html">&larr; {escaped(order[at - 1].title)}</a>')
    links.append(f'<a href="{HOME}">Contents</a>')
    if at + 1 < len(order):
        links.append(f'<a href="{order[at + 1].stem}.html">{escaped(order[at + 1].title)} &rarr;</a>')
    return f'<nav class="neighbours">{" ".join(links)}</nav>'


def write(chapters, folder, pictures, version, date):
    """Writes the pages anew into the folder, with the pictures they show."""
    if folder.exists():
        shutil.rmtree(folder)
    (folder / "pictures").mkdir(parents=True)
    style = posixpath.join(posixpath.dirname(__file__), "web.css")
    shutil.copy(style, folder / "manual.css")
    _write_search(chapters, folder)
    order = list(chapters.values())
    for at, chapter in enumerate(order):
        for picture in chapter.root.iter("img"):
            name = posixpath.basename(picture.get("src"))
            if (pictures / name).is_file():
                shutil.copy(pictures / name, folder / "pictures" / name)
        beside = f'<nav class="beside"><p class="home"><a href="{HOME}">Verlink manual</a></p>{SEARCH}{_list(chapters, chapter)}</nav>'
        body = chapter.written(_dressed(chapter, chapters, pictures)) + _neighbours(order, at)
        text = _page(f"{chapter.title} - Verlink manual", beside, body, version, date)
        (folder / (chapter.stem + ".html")).write_text(text, encoding="utf-8")
    body = (f'<h1>Verlink: the manual</h1><p>Version {escaped(version)}, {escaped(date)}. The same as one document for '
            f'paper: <a href="../Program_Manual.pdf">Program_Manual.pdf</a>.</p>{SEARCH}<div class="all">{_list(chapters)}</div>')
    (folder / HOME).write_text(_page("Verlink manual", "", body, version, date), encoding="utf-8")
