"""The manual on paper: a document for each page, and all of them as one book, with the places of headings and links.

A layout is made, looked at, and made again until no picture leaves a gap before it: what does is moved behind the text
that follows, or shown a little smaller.
"""

import copy
import dataclasses
import math
import posixpath
import xml.etree.ElementTree as ET

import weasyprint

from pages import OVERVIEW, Trouble, across, escaped, numbered, target_of

POINTS = 0.75  # of a CSS pixel
UNKNOWN = 99  # stands for the number of a page in the first layout
FULL = 0.80  # a page that is fuller than this has no gap
HEADED = 62  # pixels that a heading takes with the room about it
FEW = 0.12  # a last page that is emptier than this has too few lines
ROUNDS, TOPIC_ROUNDS = 7, 16  # layouts until it is taken as it is; of a page by itself they cost little
COLUMN = 605  # pixels across the text
WIDE = 695  # pixels across a picture that goes beyond the text into both margins
# Pixels on paper for one of a picture of a screen, which is twice as dense as most displays. The interface's 9 points
# are 24 of them: as a rule they become 7.2 points in print, and never less than 7.
SCREEN, LEAST = 0.40, 7 / 18
DRAWING = 0.33  # the same of a picture of a drawing in which no word is to be read
DRAWINGS = {"cam-drive.png", "centrodes.png", "line-curve.png", "stage-two.png", "straight-line.png"}


@dataclasses.dataclass
class Look:
    """What a layout has found: figures that move down, and those that shrink to a height in pixels."""
    later: dict = dataclasses.field(default_factory=dict)
    smaller: dict = dataclasses.field(default_factory=dict)


def _bottom(box):
    """The lowest place that something is painted at, in pixels from the page's top."""
    from weasyprint.formatting_structure import boxes
    lowest = 0.0
    for child in getattr(box, "children", ()):
        if isinstance(child, boxes.MarginBox):
            continue
        if isinstance(child, (boxes.LineBox, boxes.ReplacedBox, boxes.TableCellBox)):
            lowest = max(lowest, child.position_y + child.margin_height())
        lowest = max(lowest, _bottom(child))
    return lowest


def _figures(box, found):
    element = getattr(box, "element", None)
    if element is not None and box.element_tag == "figure" and element.get("id"):
        found.setdefault(element.get("id"), box)
    for child in getattr(box, "children", ()):
        _figures(child, found)


def _arranged(root, look, names):
    """The tree with its figures where the look wants them."""
    root = copy.deepcopy(root)
    others = [child for child in root if child.tag != "figure"]
    for name, steps in look.later.items():
        for _ in range(steps if name in names else 0):
            children = list(root)
            at = next((i for i, child in enumerate(children) if child.get("id") == names[name]), None)
            if at is None or at + 1 >= len(children):
                break
            figure = children[at]
            root.remove(figure)
            root.insert(at + 1, figure)
    if others != [child for child in root if child.tag != "figure"]:
        raise Trouble("what is no figure has been moved")
    for element in root.iter("figure"):
        for name, height in look.smaller.items():
            if element.get("id") == names.get(name):
                element.find(".//img").set("style", f"width:auto;max-height:{height:.0f}px")
    return root


def _can_move(root, name):
    children = list(root)
    at = next((i for i, child in enumerate(children) if child.get("id") == name), None)
    return at is not None and at + 1 < len(children) and children[at + 1].tag in ("p", "ul", "ol") and not (
        children[at + 1].get("class") or "").startswith("lead")


def _look_again(document, arranged_roots, prefixes, look):
    """Finds the first gap of each chapter; true when something is to change."""
    changed = set()
    pages = document.pages
    for before, after in zip(pages, pages[1:]):
        page = after._page_box
        figures = {}
        _figures(page, figures)
        top, height = page.content_box_y(), page.height
        for name, box in figures.items():
            above = box.position_y - top  # a heading may stand there, which goes with its picture
            if above > HEADED:
                continue
            chapter = next((key for key, prefix in prefixes.items() if name.startswith(prefix + "fig-")), None)
            bottom = _bottom(before._page_box)
            if chapter is None or chapter in changed or (bottom - top) / height >= FULL:
                continue
            changed.add(chapter)
            plain = name[len(prefixes[chapter]):]
            room = top + height - bottom - above - 75  # a caption takes its part
            picture = _picture(box)
            if room >= _least(picture, 0.68) and (chapter, plain) not in look.smaller:
                look.smaller[chapter, plain] = room
            elif _can_move(arranged_roots[chapter], plain) and look.later.get((chapter, plain), 0) < 4:
                look.later[chapter, plain] = look.later.get((chapter, plain), 0) + 1
            elif (chapter, plain) not in look.smaller and room >= _least(picture, 0.5):
                look.smaller[chapter, plain] = room
            else:
                changed.discard(chapter)
    return bool(changed)


def _few_left(document, chapter, look):
    """Of a page that ends with a few lines on a sheet of their own, the largest picture gives way to them."""
    sheets = document.pages
    if len(sheets) < 2:
        return False
    last = sheets[-1]._page_box
    over = _bottom(last) - last.content_box_y()
    if over > FEW * last.height:
        return False
    figures = {}
    for sheet in sheets:
        _figures(sheet._page_box, figures)
    spare = {}
    for name, box in figures.items():
        if (chapter.page, name) not in look.smaller:
            picture = _picture(box)
            spare[name] = picture.height - _least(picture, 0.6), picture.height - over - 30
    name = max(spare, key=spare.get, default=None)
    if name is None or spare[name][0] < over + 30:
        return False
    look.smaller[chapter.page, name] = spare[name][1]
    return True


def _descend(box):
    for child in getattr(box, "children", ()):
        yield child
        yield from _descend(child)


def _picture(figure):
    return next(child for child in _descend(figure) if child.element_tag == "img")


def _least(picture, part):
    """The least height of a picture on paper: that part of the present one, and of a screen's what can be read."""
    read = float(picture.element.get("data-read", 0))
    return max(part, read / picture.width) * picture.height


def _width(name, pixels):
    """On paper, of a picture of a screen: in the column where its text is large enough there, else beyond it."""
    if name in DRAWINGS:
        return DRAWING * pixels
    if LEAST * pixels <= COLUMN:
        return min(COLUMN, SCREEN * pixels)
    return min(WIDE, LEAST * pixels)


def _html(title, language, css, body):
    return (f'<!DOCTYPE html><html lang="{language}"><head><meta charset="utf-8"><title>{escaped(title)}</title>'
            f'<meta name="author" content="Verlink"><meta name="generator" content="Verlink">'
            f"<style>{css}</style></head><body>{body}</body></html>")


class Setter:
    """Sets the chapters of a manual on paper."""

    def __init__(self, chapters, index, css, pictures, version, date):
        self.chapters, self.index, self.css, self.pictures = chapters, index, css, pictures
        self.version, self.date = version, date
        self.cache = {}
        self.look = Look()

    def _prefix(self, chapter, book):
        """What stands before the names of a chapter, so that they are alone of their kind in the book."""
        return "" if not book or chapter.stem == OVERVIEW else chapter.stem + "--"

    def _dressed(self, chapter, root, book, pages):
        """Names, references and pictures as this form has them, and numbers before headings."""
        root = numbered(root, chapter)
        prefix = self._prefix(chapter, book)
        for element in root.iter():
            name = element.get("id")
            if name:
                element.set("id", prefix + name)
            if element.tag == "img":
                file = self.pictures / posixpath.basename(element.get("src"))
                element.set("src", file.absolute().as_uri())
                if file.suffix == ".png":
                    pixels = across(file) or round(COLUMN / SCREEN)  # what cannot be read is as wide as the text
                    width = math.ceil(_width(file.name, pixels))
                    beyond = f"max-width:none;margin:0 {(COLUMN - width) / 2:.1f}px;" if width > COLUMN else ""
                    if file.name not in DRAWINGS:
                        element.set("data-read", f"{LEAST * pixels:.1f}")
                    element.set("style", f"width:{width}px;{beyond}" + element.get("style", ""))
            if element.tag == "a":
                there = target_of(element.get("href"), chapter, self.chapters)
                if there is None:
                    continue
                other, name = there
                if book or other is chapter:
                    target = self._prefix(other, book) + (name or other.headings[0].name)
                    element.set("href", "#" + target)
                    element.set("data-page", str(pages.get(target, UNKNOWN)))
                    if element.get("class") != "label" or other is not chapter:
                        element.set("class", "inside")
                else:
                    way = posixpath.relpath(other.page + ".pdf", posixpath.dirname(chapter.page) or ".")
                    element.set("href", way + ("#" + name if name else ""))
        return root

    def _body(self, chapters, look, book, pages):
        arranged, text = {}, []
        for chapter in chapters:
            names = {key: key[1] for key in list(look.later) + list(look.smaller) if key[0] == chapter.page}
            arranged[chapter.page] = _arranged(chapter.root, look, names)
            text.append(chapter.written(self._dressed(chapter, arranged[chapter.page], book, pages)))
        return arranged, text

    def _settled(self, chapters, book, around):
        """The layout without gaps, whose page numbers are those of its own pages."""
        look = self.look
        prefixes = {chapter.page: self._prefix(chapter, book) for chapter in chapters}
        if book:  # the overview has no prefix, so it is asked last
            prefixes = dict(sorted(prefixes.items(), key=lambda item: item[1] == ""))
        pages, settled = {}, False
        for _ in range(ROUNDS if book else TOPIC_ROUNDS):
            arranged, text = self._body(chapters, look, book, pages)
            document = self._laid_out(around(text, pages))
            known, pages = pages, {name: number for number, page in enumerate(document.pages, 1) for name in page.anchors}
            settled = settled or not _look_again(document, arranged, prefixes, look) and (
                book or not _few_left(document, chapters[0], look))
            if settled and (known == pages or not book):  # a document by itself shows no numbers of pages
                break
        return document

    def _laid_out(self, text):
        return weasyprint.HTML(string=text).render(image_cache=self.cache)

    def topic(self, chapter):
        """(document, places) of one page by itself."""
        css = self.css.replace("@@FOOT@@", f"Verlink {self.version}")
        document = self._settled([chapter], False,
                                    lambda text, _: _html(chapter.title, "en", css, f'<main class="topic">{text[0]}</main>'))
        return document, self._places(document, {"": chapter}, chapter.page)

    def book(self):
        """(document, places) of all pages as one."""
        css = self.css.replace("@@FOOT@@", f"Verlink {self.version}")
        chapters = list(self.chapters.values())

        def around(text, places):
            body = self._title() + self._contents(places) + "".join(text) + self._index(places)
            return _html("Verlink: the manual", "en", css, f'<main class="book">{body}</main>')

        document = self._settled(chapters, True, around)
        by_prefix = {self._prefix(chapter, True): chapter for chapter in chapters}
        return document, self._places(document, by_prefix, OVERVIEW)

    def _title(self):
        return (f'<section class="title"><p class="name">Verlink</p><p class="what">The manual</p>'
                f'<p class="about">Design, analysis and balancing of planar four-bar linkages: every screen, a worked '
                f"design, and the methods with their formulas and sources.</p>"
                f'<p class="version">Version {escaped(self.version)}</p><p class="date">{escaped(self.date)}</p></section>')

    def _contents(self, pages):
        lines, part = [], None
        for chapter in self.chapters.values():
            if chapter.part != part:
                part = chapter.part
                lines.append(f'<li class="part">{escaped(part)}</li>')
            for heading in chapter.headings:
                if heading.level > 2:
                    continue
                target = self._prefix(chapter, True) + heading.name
                lines.append(f'<li class="level{heading.level}"><a href="#{target}" data-page="{pages.get(target, UNKNOWN)}"><span class="number">{heading.number}</span> '
                             f"{escaped(heading.title)}</a></li>")
        return f'<nav class="contents"><h1 id="contents">Contents</h1><ul>{"".join(lines)}</ul></nav>'

    def _index(self, pages):
        """Words with their pages; places that share a page are one. Before the pages are known, all places."""
        lines, letter = [], ""
        for word, places in self.index:
            seen, links = set(), []
            targets = [self._prefix(chapter, True) + (name or chapter.headings[0].name) for chapter, name in places]
            if pages:
                targets.sort(key=lambda target: pages.get(target, 0))
            for target in targets:
                page = pages.get(target) if pages else target
                if page not in seen:
                    seen.add(page)
                    links.append(f'<a class="page" href="#{target}">{page if pages else UNKNOWN}</a>')
            first = next((sign for sign in word if sign.isalnum()), "#").upper()
            if first != letter and first.isalpha():
                letter = first
                lines.append(f'<p class="letter">{letter}</p>')
            lines.append(f"<p>{escaped(word)} {', '.join(links)}</p>")
        return f'<section class="index"><h1 id="index">Index</h1><div class="columns">{"".join(lines)}</div></section>'

    def _places(self, document, by_prefix, page):
        """The file of places: a line for each heading, label and link, its values parted by tabs."""
        known = {}
        for prefix, chapter in by_prefix.items():
            for heading in chapter.headings:
                number = heading.number + " " if heading.number and len(by_prefix) > 1 else ""
                known[prefix + heading.name] = (heading.level, number + heading.title)
            for label in chapter.labels:
                known[prefix + label] = (0, "")
            if len(by_prefix) > 1:  # the index refers to them
                known.update({prefix + name: (0, "") for _, name in chapter.controls})
        for name in ("contents", "index"):
            known.setdefault(name, (1, name.capitalize())) if len(by_prefix) > 1 else None
        lines, links = [], []
        for number, sheet in enumerate(document.pages):
            for name, (_, y) in sorted(sheet.anchors.items(), key=lambda anchor: anchor[1][1]):
                if name in known:
                    level, title = known[name]
                    top = f"{number}\t{max(y * POINTS, 0.1):.2f}\t{name}"
                    lines.append(f"heading\t{level}\t{top}\t{title}" if level else f"label\t{top}")
            for kind, target, (x, y, width, height), *_ in sheet.links:
                if kind == "internal":
                    target = f"helpfiles/{page}.pdf#{target}"
                elif "://" in target or kind != "external":
                    continue
                else:
                    target = "helpfiles/" + posixpath.normpath(posixpath.join(posixpath.dirname(page), target))
                links.append("\t".join(["link", str(number)] + [f"{value * POINTS:.2f}" for value in (x, y, width, height)] + [target]))
        return "\n".join(lines + links) + "\n"


def date_in_words(day):
    return f"{day.day} {day.strftime('%B %Y')}"

