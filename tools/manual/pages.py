"""The pages of the manual: Markdown in, chapters as trees of elements out, numbered and with their names known.

Beyond plain Markdown a page may hold

    $...$                     a formula in the line
    $$ ... $$ {#eq-name}      a formula of its own, numbered when it is named; `\\\\` parts its rows
    ![words](pictures/x.png)  a picture; a paragraph in italics behind it is its caption, and #fig-x its name
    [](page.md#eq-name)       a reference without words, which says the number
    [contents]                the headings that follow
    [made:name]               what the build has written to name.md
    [shown:name 1.5]          1.5, which the walk through the program has to have seen under that name

`order.txt` beside the pages has their order, and index.txt the words of the index.
"""

import copy
import dataclasses
import html
import pathlib
import posixpath
import re
import xml.etree.ElementTree as ET

import markdown

import formulas
import sights

OVERVIEW = "Program_Manual"
CARD = "quick_reference"  # stands on one page, closer than the others
_CODE_OR_FORMULA = re.compile(
    r"(?P<code>^```.*?^```$|^    [^\n]*$|`[^`\n]+`)"
    r"|^\$\$(?P<display>.+?)\$\$(?:[ ]*\{#(?P<name>[a-z0-9-]+)\})?[ ]*$"
    r"|\$(?P<inline>[^$\n]+)\$", re.MULTILINE | re.DOTALL)
_MARK = re.compile("\ue000(\\d+)\ue001")


class Trouble(Exception):
    """What is wrong with a page, in words."""


def name_of(title):
    """The name of a heading: its words in small letters with hyphens between them."""
    name = ""
    for letter in title.lower():
        if letter.isalnum():
            name += letter
        elif (letter.isspace() or letter == "-") and not name.endswith("-"):
            name += "-"
    return name


def text_of(element):
    return "".join(element.itertext())


@dataclasses.dataclass
class Heading:
    level: int
    number: str
    title: str
    name: str


@dataclasses.dataclass
class Chapter:
    page: str  # the path below the sources, without its ending
    part: str
    number: int
    root: ET.Element = None
    title: str = ""
    headings: list = dataclasses.field(default_factory=list)
    labels: dict = dataclasses.field(default_factory=dict)  # of what a reference without words may name
    figures: list = dataclasses.field(default_factory=list)
    controls: list = dataclasses.field(default_factory=list)  # (words, name): what tables explain
    drawings: list = dataclasses.field(default_factory=list)

    @property
    def stem(self):
        return posixpath.basename(self.page)

    def written(self, element=None):
        """The tree as HTML, formulas drawn."""
        text = ET.tostring(self.root if element is None else element, encoding="unicode", method="html")
        return _MARK.sub(lambda mark: self.drawings[int(mark.group(1))], text)


def read_order(sources):
    """(part, page) in the order of the book; a page that no line names stands at the end."""
    order, part = [], ""
    for line in (sources / "order.txt").read_text(encoding="utf-8").splitlines():
        if line.startswith("# "):
            part = line[2:].strip()
        elif line.strip():
            order.append((part, line.strip()))
    known = {page for _, page in order}
    there = sorted(str(file.relative_to(sources).with_suffix("")) for file in sources.rglob("*.md"))
    for page in known - set(there):
        raise Trouble(f"order.txt names {page}, which is not there")
    return order + [(part, page) for page in there if page not in known]


def across(picture):
    """The pixels across a PNG, 0 of what cannot be read."""
    try:
        return int.from_bytes(picture.read_bytes()[16:20], "big")
    except OSError:
        return 0


def _take_formulas(text, chapter):
    """Formulas become marks that Markdown leaves alone."""
    count = 0

    def drawn(tex):
        try:
            return formulas.drawing(tex.strip())
        except ValueError as trouble:
            raise Trouble(f"{chapter.page}: the formula {tex.strip()} cannot be read: {trouble}") from trouble

    def mark(svg):
        chapter.drawings.append(svg)
        return f"\ue000{len(chapter.drawings) - 1}\ue001"

    def take(match):
        nonlocal count
        if match.group("code"):
            return match.group("code")
        if match.group("inline"):
            return mark(drawn(match.group("inline")))
        number = name = ""
        if match.group("name"):
            count += 1
            number, name = f"({chapter.number}.{count})", match.group("name")
            chapter.labels[name] = number
        rows = "".join(f'<div class="row">{drawn(row)}</div>' for row in match.group("display").split("\\\\"))
        anchor = f' id="{name}"' if name else ""
        return f'\n<div class="display"{anchor}><div class="rows">{mark(rows)}</div><div class="number">{number}</div></div>\n'

    return _CODE_OR_FORMULA.sub(take, text)


def _with_pieces(text, made):
    def piece(match):
        file = made / (match.group(1) + ".md")
        if not file.is_file():
            raise Trouble(f"{file} was not made")
        return file.read_text(encoding="utf-8")

    return re.sub(r"^\[made:([a-z-]+)\]$", piece, text, flags=re.MULTILINE)


def numbered(root, chapter):
    """A copy of a part of the chapter, with the numbers before its headings."""
    root = copy.deepcopy(root)
    numbers = {heading.name: heading.number for heading in chapter.headings}
    for element in root.iter():
        number = numbers[element.get("id")] if element.tag in ("h1", "h2", "h3") else ""
        if number:
            span = ET.Element("span", {"class": "number"})
            span.text, span.tail = number, " " + (element.text or "")
            element.text = None
            element.insert(0, span)
    return root


def _number_headings(chapter):
    section = 0
    for element in chapter.root.iter():
        if element.tag not in ("h1", "h2", "h3"):
            continue
        title = text_of(element)
        level = int(element.tag[1])
        number = str(chapter.number)
        if level == 2:
            section += 1
            number = f"{chapter.number}.{section}"
        elif level == 3:
            number = ""
        element.set("id", name_of(title))
        chapter.headings.append(Heading(level, number, title, name_of(title)))
        if level == 1:
            chapter.title = title


def _frame_figures(chapter):
    """A picture with its caption becomes a numbered figure."""
    children = list(chapter.root)
    for element, following in zip(children, children[1:] + [None]):
        picture = element.find("img") if element.tag == "p" and len(element) == 1 else None
        if picture is None or (element.text or "").strip():
            continue
        name = "fig-" + pathlib.PurePosixPath(picture.get("src")).stem
        if name in chapter.labels:
            raise Trouble(f"{chapter.page} shows {picture.get('src')} twice")
        chapter.figures.append(name)
        label = f"Figure {chapter.number}.{len(chapter.figures)}"
        chapter.labels[name] = label
        element.tag = "figure"
        element.set("id", name)
        caption = ET.SubElement(element, "figcaption")
        strong = ET.SubElement(caption, "b")
        strong.text = label
        words = following.find("em") if following is not None and following.tag == "p" and len(following) == 1 else None
        if words is not None and not (following.text or "").strip():
            strong.tail = "  " + (words.text or "")
            caption.extend(list(words))
            chapter.root.remove(following)


def _note_controls(chapter):
    """Bold words in the first column of a table stand in the index."""
    for row in chapter.root.iter("tr"):
        cells = row.findall("td")
        if len(cells) < 2:
            continue
        for strong in cells[0].findall("strong"):
            words = text_of(strong)
            if "\ue000" in words or not any(letter.isalpha() for letter in words):
                continue
            name = f"control-{len(chapter.controls) + 1}"
            strong.set("id", name)
            chapter.controls.append((words, name))


def _lead(chapter):
    """What stands right before a table, a list of code or a formula stays with it."""
    children = list(chapter.root)
    for element, following in zip(children, children[1:]):
        if element.tag == "p" and (following.tag in ("table", "pre") or following.get("class") == "display"):
            element.set("class", "lead")
    for table in chapter.root.iter("table"):
        rows = len(table.findall(".//tr"))
        if rows <= 12 or rows > 30:
            table.set("class", "whole" if rows <= 12 else "dense")
    for code in chapter.root.iter("pre"):
        if text_of(code).count("\n") <= 25:
            code.set("class", "whole")


def _contents(chapter):
    for at, element in enumerate(list(chapter.root)):
        if element.tag == "p" and text_of(element) == "[contents]":
            element.tag, element.text = "ul", None
            element.set("class", "contents")
            for heading in chapter.headings:
                if heading.level == 2:
                    link = ET.SubElement(ET.SubElement(element, "li"), "a", href="#" + heading.name)
                    link.text = heading.title


def _as_walked(text, page, account):
    """The text with what the walk saw; a section that the walk has an example for is to tell its deeds."""
    try:
        deeds = sights.read_deeds(account)
        for section in re.split(r"^(?=## )", text, flags=re.MULTILINE):
            title = section.partition("\n")[0].removeprefix("## ")
            if sights.MARK.search(section) and name_of(title) not in deeds:
                raise sights.Untrue(f"nothing of {title} was walked")
            if sights.MARK.search(section):
                sights.check_deeds(section, deeds[name_of(title)])
        return sights.put(text, sights.read_sights(account))
    except sights.Untrue as untrue:
        raise Trouble(f"{page}: {untrue}") from untrue


def read_chapter(sources, made, part, page, number, account=""):
    chapter = Chapter(page, part, number)
    text = _as_walked((sources / (page + ".md")).read_text(encoding="utf-8"), page, account)
    text = _take_formulas(_with_pieces(text, made), chapter)
    body = markdown.markdown(text, extensions=["tables", "fenced_code", "sane_lists", "attr_list", "md_in_html"],
                             output_format="xhtml")
    try:
        chapter.root = ET.fromstring(f"<section>{body}</section>")
    except ET.ParseError as trouble:
        raise Trouble(f"{page}: {trouble}") from trouble
    chapter.root.set("class", "chapter card" if chapter.stem == CARD else "chapter")
    _number_headings(chapter)
    _frame_figures(chapter)
    _note_controls(chapter)
    _contents(chapter)
    _lead(chapter)
    return chapter


def target_of(href, chapter, chapters):
    """(chapter, name) that a reference of a chapter leads to; None for one that leads out of the manual."""
    if "://" in href:
        return None
    file, _, name = href.partition("#")
    page = chapter.page
    if file:
        page = posixpath.normpath(posixpath.join(posixpath.dirname(chapter.page), file))[:-len(".md")]
    there = chapters.get(page)
    if there is None:
        raise Trouble(f"{chapter.page} refers to {href}, which is not there")
    names = {heading.name for heading in there.headings} | set(there.labels)
    if name and name not in names:
        raise Trouble(f"{chapter.page} refers to {href}, and there is no such heading, figure or formula")
    return there, name


def read_manual(sources, made, account=""):
    """All chapters by their pages, in the order of the book; references without words say what they lead to."""
    chapters = {}
    for number, (part, page) in enumerate(read_order(sources), 1):
        chapters[page] = read_chapter(sources, made, part, page, number, account)
    for chapter in chapters.values():
        for link in chapter.root.iter("a"):
            there = target_of(link.get("href", ""), chapter, chapters)
            if there and not text_of(link):
                link.text = there[0].labels.get(there[1]) or there[0].title
                link.set("class", "label")
    return chapters


def read_index(sources, chapters):
    """(word, [(chapter, name)]) of index.txt and of the tables, by the alphabet."""
    entries = {}
    stems = {chapter.stem: chapter for chapter in chapters.values()}
    for line in (sources / "index.txt").read_text(encoding="utf-8").splitlines():
        if not line.strip():
            continue
        word, _, places = line.partition(":")
        for place in places.split(","):
            stem, _, name = place.strip().partition("#")
            chapter = stems.get(stem)
            if chapter is None or (name and name not in {h.name for h in chapter.headings} | set(chapter.labels)):
                raise Trouble(f"index.txt refers to {place.strip()}, which is not there")
            entries.setdefault(word.strip(), []).append((chapter, name))
    for chapter in chapters.values():
        for word, name in chapter.controls:
            entries.setdefault(word, []).append((chapter, name))
    return sorted(entries.items(), key=lambda entry: (entry[0].lower().lstrip("&-."), entry[0]))


def escaped(text):
    return html.escape(text, quote=True)
