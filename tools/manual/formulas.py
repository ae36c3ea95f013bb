"""Formulas as drawings: TeX's notation in, an SVG of outlines out, placed on the line it stands in.

What may be written is what matplotlib's mathtext knows: letters, indices, fractions, roots, accents, brackets that grow.
"""

import functools
import html
import re

import matplotlib

matplotlib.use("svg")
matplotlib.rcParams["mathtext.fontset"] = "stix"

from matplotlib.font_manager import FontProperties  # noqa: E402
from matplotlib.mathtext import MathTextParser  # noqa: E402
from matplotlib.path import Path  # noqa: E402
from matplotlib.textpath import TextPath  # noqa: E402

SIZE = 50.0  # the letters of a drawing before it is scaled to those around it
_FONT = FontProperties(family="STIXGeneral", size=SIZE)
_LETTERS = {Path.MOVETO: "M", Path.LINETO: "L", Path.CURVE3: "Q", Path.CURVE4: "C"}
_POINTS = {Path.MOVETO: 1, Path.LINETO: 1, Path.CURVE3: 2, Path.CURVE4: 3}


def _outline(path):
    """The path as SVG writes it, y downwards."""
    parts = []
    vertices, codes = path.vertices, path.codes
    at = 0
    while at < len(codes):
        if codes[at] == Path.CLOSEPOLY:
            parts.append("Z")
            at += 1
            continue
        count = _POINTS[codes[at]]
        numbers = " ".join(f"{x:.1f} {-y:.1f}" for x, y in vertices[at:at + count])
        parts.append(_LETTERS[codes[at]] + numbers)
        at += count
    return "".join(parts)


_TOKEN = re.compile(r"\\[A-Za-z]+|\\.|.", re.DOTALL)
_RELATIONS = {"=", "<", ">", r"\geq"}
_BINARY = {"+", "-", r"\times", r"\pm"}
_FUNCTIONS = {r"\sin", r"\cos", r"\arctan", r"\arg"}


def spaced(tex):
    """The formula with the room about its signs that mathtext leaves out; none in indices and exponents."""
    out, small, before = [], [], ""
    tokens = [token for token in _TOKEN.findall(tex)]
    for at, token in enumerate(tokens):
        if token == "{":
            small.append((before in ("^", "_")) or (bool(small) and small[-1]))
        elif token == "}" and small:
            small.pop()
        tight = bool(small) and small[-1]
        following = next((t for t in tokens[at + 1:] if t != " "), "")
        first = before in ("", "(", "{", "|", ",", "[") or before in _RELATIONS
        if not tight and token in _RELATIONS and not first:
            out.append(rf"\;{token}\;")
        elif not tight and token in _BINARY and not first:
            out.append(rf"\,{token}\,\,")
        elif token in ("+", "-") and first:
            out.append("{" + token + "}")
        elif not tight and token in _FUNCTIONS:
            lead = "" if first or before in _BINARY else r"\,"
            out.append(lead + token + ("" if following in ("(", "^") else r"\,"))
        else:
            out.append(token)
        if token != " ":
            before = token
    return "".join(out)


@functools.lru_cache(maxsize=None)
def drawing(tex):
    """An inline <svg> of the formula, sized in em and set on the base line. Raises ValueError for what cannot be read."""
    text = f"${spaced(tex)}$"
    width, height, depth, _, _ = MathTextParser("path").parse(text, dpi=72, prop=_FONT)
    path = TextPath((0, 0), text, size=SIZE, prop=_FONT)
    pad = 1.5  # strokes of letters may reach over their boxes
    box = f"{-pad:.2f} {-(height - depth) - pad:.2f} {width + 2 * pad:.2f} {height + 2 * pad:.2f}"
    style = (f"width:{(width + 2 * pad) / SIZE:.3f}em;height:{(height + 2 * pad) / SIZE:.3f}em;"
             f"vertical-align:{-(depth + pad) / SIZE:.3f}em;margin:0 {-pad / SIZE:.3f}em")
    return (f'<svg xmlns="http://www.w3.org/2000/svg" class="formula" role="img" viewBox="{box}" style="{style}" '
            f'aria-label="{html.escape(tex)}"><path d="{_outline(path)}"/></svg>')
