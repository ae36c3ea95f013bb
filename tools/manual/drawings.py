#!/usr/bin/env python3
"""Draws the vector pictures of the manual.

    drawings.py FOLDER

conventions.svg shows names, frames, angles, circuits, mass centres, forces and signs, of a linkage that is solved here.
"""

import cmath
import math
import pathlib
import sys

import matplotlib

matplotlib.use("svg")
matplotlib.rcParams.update({"svg.fonttype": "path", "svg.hashsalt": "verlink", "mathtext.fontset": "stix",
                            "font.family": "STIXGeneral", "font.size": 9})

import matplotlib.pyplot as plt  # noqa: E402
from matplotlib.patches import Arc, Circle, FancyArrowPatch, Polygon  # noqa: E402

DEG = math.pi / 180
LINK, GROUND, COUPLER, FORCE, QUIET, CENTRE = "#b0208f", "#1f3b8f", "#1e7d32", "#c0392b", "#777777", "#c77700"
L1, L2, L3, L4, R, DELTA, GROUND_ANGLE, CRANK = 9.0, 3.0, 8.2, 6.2, 5.6, 38 * DEG, 14 * DEG, 62 * DEG


def turn(angle):
    return cmath.exp(1j * angle)


def solved(sigma):
    """Angles of links 3 and 4 in the local frame; -1 is the open circuit."""
    k1, k2, k3 = L1 / L2, L1 / L4, (L1**2 + L2**2 - L3**2 + L4**2) / (2 * L2 * L4)
    c = math.cos(CRANK)
    a, b, cc = c - k1 - k2 * c + k3, -2 * math.sin(CRANK), k1 - (k2 + 1) * c + k3
    th4 = 2 * math.atan((-b + sigma * math.sqrt(b * b - 4 * a * cc)) / (2 * a))
    return cmath.phase(L1 + L4 * turn(th4) - L2 * turn(CRANK)), th4


class Paper:
    def __init__(self, axes):
        self.axes = axes
        axes.set_aspect("equal")
        axes.axis("off")

    def line(self, *points, **style):
        self.axes.plot([p.real for p in points], [p.imag for p in points], solid_capstyle="round", **style)

    def text(self, at, words, dx=0.0, dy=0.0, **style):
        style = {"ha": "center", "va": "center", **style}
        self.axes.text(at.real + dx, at.imag + dy, words, zorder=9, **style)

    def arrow(self, start, end, colour, width=1.2, size=9, style="-|>"):
        self.axes.add_patch(FancyArrowPatch((start.real, start.imag), (end.real, end.imag), arrowstyle=style, lw=width,
                                            mutation_scale=size, color=colour, shrinkA=0, shrinkB=0, zorder=6))

    def angle(self, at, radius, first, last, words, colour="black", out=0.42):
        """An arc with a head, from one direction to the other, counter-clockwise."""
        self.axes.add_patch(Arc((at.real, at.imag), 2 * radius, 2 * radius, theta1=first / DEG, theta2=last / DEG,
                                color=colour, lw=0.8))
        tip, before = at + radius * turn(last), at + radius * turn(last - 0.12 / radius)
        self.arrow(before, tip, colour, 0.8, 6)
        self.text(at + (radius + out) * turn((first + last) / 2), words, color=colour)

    def pin(self, at, fixed=False):
        if fixed:
            self.axes.add_patch(Polygon([(at.real, at.imag), (at.real - 0.35, at.imag - 0.6), (at.real + 0.35, at.imag - 0.6)],
                                        closed=True, fc="white", ec=GROUND, lw=1))
        self.axes.add_patch(Circle((at.real, at.imag), 0.14, fc="white", ec=GROUND if fixed else "black", lw=1, zorder=7))

    def centre(self, at, words, **where):
        self.axes.add_patch(Circle((at.real, at.imag), 0.17, fc="white", ec=CENTRE, lw=1.1, zorder=7))
        self.line(at - 0.17, at + 0.17, color=CENTRE, lw=0.8, zorder=8)
        self.line(at - 0.17j, at + 0.17j, color=CENTRE, lw=0.8, zorder=8)
        self.text(at, words, color=CENTRE, **where)


def geometry():
    th3, th4 = solved(-1)
    x3, x4 = solved(+1)
    frame = turn(GROUND_ANGLE)
    points = {"O2": 0j, "O4": L1 * frame, "A": L2 * turn(CRANK) * frame}
    points["B"] = points["O4"] + L4 * turn(th4) * frame
    points["X"] = points["O4"] + L4 * turn(x4) * frame
    points["P"] = points["A"] + R * turn(th3 + DELTA) * frame
    return points, th3 + GROUND_ANGLE, th4 + GROUND_ANGLE


def centres(p, th3, th4):
    return {2: p["O2"] + 1.7 * turn(CRANK + GROUND_ANGLE - 18 * DEG), 3: p["A"] + 4.6 * turn(th3 + 14 * DEG),
            4: p["O4"] + 3.6 * turn(th4 + 16 * DEG)}


def draw_linkage(axes):
    paper = Paper(axes)
    p, th3, th4 = geometry()
    th2 = CRANK + GROUND_ANGLE
    g = centres(p, th3, th4)
    paper.arrow(-1.2 + 0j, 12.3 + 0j, QUIET, 0.8, 8)
    paper.arrow(-1.2j, 9.6j, QUIET, 0.8, 8)
    paper.text(12.3 + 0j, "$x$, global", 0.1, -0.42, color=QUIET)
    paper.text(9.6j, "$y$, global", -0.15, 0.0, color=QUIET, ha="right")
    along = turn(GROUND_ANGLE)
    paper.line(0j, 12.2 * along, color=QUIET, lw=0.7, ls=(0, (6, 3)))
    paper.line(0j, 6.2j * along, color=QUIET, lw=0.7, ls=(0, (6, 3)))
    paper.text(12.2 * along, "$x$, local", 0.0, 0.38, color=QUIET)
    paper.text(6.2j * along, "$y$, local", -0.1, 0.3, color=QUIET, ha="right")
    paper.line(p["A"], p["X"], p["O4"], color=LINK, lw=0.9, ls=(0, (3, 3)))
    paper.text((p["X"] + p["O4"]) / 2, "crossed circuit", 0.35, -0.25, color=LINK, ha="left", size=8)
    paper.line(p["O2"], p["O4"], color=GROUND, lw=1.2)
    axes.add_patch(Polygon([(q.real, q.imag) for q in (p["A"], p["B"], p["P"])], closed=True, fc="#f7eaf4", ec=LINK, lw=1.3))
    paper.line(p["O2"], p["A"], color=LINK, lw=2)
    paper.line(p["A"], p["B"], color=LINK, lw=2)
    paper.line(p["B"], p["O4"], color=LINK, lw=2)
    # Directions that angles count from.
    paper.line(p["A"], p["A"] + 4.0, color=QUIET, lw=0.7)
    paper.line(p["O4"], p["O4"] + 2.6, color=QUIET, lw=0.7)
    paper.angle(p["O2"], 4.6, 0, GROUND_ANGLE, r"$\theta_1$", GROUND, 0.4)
    paper.angle(p["O2"], 1.1, 0, th2, r"$\theta_2$")
    paper.angle(p["A"], 3.4, 0, th3, r"$\theta_3$", out=0.4)
    paper.angle(p["O4"], 1.2, 0, th4, r"$\theta_4$")
    paper.angle(p["A"], 2.5, th3, th3 + DELTA, r"$\delta$", COUPLER, 0.38)
    paper.arrow(p["A"], p["P"], COUPLER, 0.9, 8)
    paper.text((p["A"] + p["P"]) / 2, "$R$", -0.3, 0.25, color=COUPLER)
    for link, (start, name) in {2: (p["O2"], "2"), 3: (p["A"], "3"), 4: (p["O4"], "4")}.items():
        paper.line(start, g[link], color=CENTRE, lw=0.8, ls=(0, (2, 2)))
    paper.centre(g[2], "$G_2$", dx=0.42, dy=-0.1)
    paper.centre(g[3], "$G_3$", dx=0.45, dy=0.15)
    paper.centre(g[4], "$G_4$", dx=-0.5, dy=0.1)
    paper.angle(p["O4"], 2.3, th4, th4 + 16 * DEG, r"$\varphi_4$", CENTRE, 0.4)
    for name, fixed, dx, dy in (("O2", True, -0.5, -0.35), ("O4", True, 0.1, -0.95), ("A", False, -0.45, 0.1),
                                ("B", False, 0.4, 0.2)):
        paper.pin(p[name], fixed)
        paper.text(p[name], name, dx, dy, weight="bold")
    axes.add_patch(Circle((p["P"].real, p["P"].imag), 0.12, fc=COUPLER, ec=COUPLER, zorder=7))
    paper.text(p["P"], "P", 0.0, 0.42, weight="bold", color=COUPLER)
    paper.text(0.62 * p["A"], "2", -0.16, 0.05, color=LINK, ha="right")
    paper.text(p["A"] + 0.72 * (p["B"] - p["A"]), "3", 0.1, -0.35, color=LINK)
    paper.text((p["B"] + p["O4"]) / 2, "4", 0.38, 0.1, color=LINK)
    paper.text(0.72 * p["O4"], "1", 0.0, -0.32, color=GROUND)
    paper.arrow(p["P"] + 0.2, p["P"] + 2.2 + 0.25j, "black", 1, 9)
    paper.text(p["P"] + 2.2 + 0.25j, "$v_P$", 0.35, 0.0)
    axes.set_xlim(-2.4, 13.4)
    axes.set_ylim(min(-1.6, p["X"].imag - 0.5), max(10.0, p["P"].imag + 0.8))


def draw_bodies(axes):
    """The three moving links and the ground apart, with what acts on each."""
    paper = Paper(axes)
    p, th3, th4 = geometry()
    g = centres(p, th3, th4)
    shift = {1: -1.6j, 2: -1.5 + 0.6j, 3: 0.6 + 3.2j, 4: 3.6 + 0.6j}
    on = {name: p[name] for name in p}

    def force(at, way, words, side, colour=FORCE):
        paper.arrow(at, at + 1.5 * turn(way * DEG), colour, 1.4, 10)
        paper.text(at + 1.5 * turn(way * DEG), words, *side, color=colour)

    axes.add_patch(Polygon([(q.real, q.imag) for q in (on["A"] + shift[3], on["B"] + shift[3], on["P"] + shift[3])],
                           closed=True, fc="#f7eaf4", ec=LINK, lw=1.2))
    for link, a, b in ((2, "O2", "A"), (4, "O4", "B")):
        paper.line(on[a] + shift[link], on[b] + shift[link], color=LINK, lw=2)
    paper.line(on["O2"] + shift[1], on["O4"] + shift[1], color=GROUND, lw=2)
    for link, names in ((1, ("O2", "O4")), (2, ("O2", "A")), (3, ("A", "B")), (4, ("O4", "B"))):
        for name in names:
            paper.pin(on[name] + shift[link])
            paper.text(on[name] + shift[link], name, -0.45 if name in ("O2", "A") else 0.5, 0.28, size=8)
        if link > 1:
            paper.centre(g[link] + shift[link], f"$G_{link}$", dx=0.5 if link == 2 else -0.5, dy=0.1)
    force(on["O2"] + shift[2], 205, r"$F_{12}$", (-0.45, -0.1))
    force(on["A"] + shift[2], 25, r"$F_{32}$", (0.5, 0.05))
    force(on["A"] + shift[3], 205, r"$-F_{32}$", (-0.55, -0.1))
    force(on["B"] + shift[3], 300, r"$F_{43}$", (0.5, 0.0))
    force(on["B"] + shift[4], 120, r"$-F_{43}$", (-0.1, 0.35))
    force(on["O4"] + shift[4], 300, r"$F_{14}$", (0.45, -0.1))
    force(on["O2"] + shift[1], 25, r"$-F_{12}$", (0.0, 0.35))
    force(on["O4"] + shift[1], 120, r"$-F_{14}$", (-0.6, 0.1))
    pushed = g[3] + shift[3] + 1.3 * turn(th3 + 50 * DEG)
    paper.line(g[3] + shift[3], pushed, color=FORCE, lw=0.8, ls=(0, (2, 2)))
    force(pushed, 80, r"$F_3$", (0.35, 0.0))
    paper.text((g[3] + shift[3] + pushed) / 2, r"$d_3$", -0.3, 0.12, color=FORCE)
    paper.angle(on["O2"] + shift[2], 0.75, -60 * DEG, 200 * DEG, "", FORCE, 0.4)
    paper.text(on["O2"] + shift[2], r"$T_{12}$", 1.25, -0.1, color=FORCE)
    paper.angle(g[3] + shift[3], 0.5, -120 * DEG, 130 * DEG, r"$T_3$", FORCE, 0.45)
    paper.text(on["O4"] / 2 + shift[1], r"$F_s=-F_{12}-F_{14}$", 0.9, -0.75, color=FORCE)
    for link, at, words in ((2, on["O2"] + shift[2] - 1.3 + 1.8j, "link 2"), (3, (on["A"] + on["B"]) / 2 + shift[3] + 0.9 - 0.4j, "link 3"),
                            (4, (on["O4"] + on["B"]) / 2 + shift[4] + 0.9, "link 4"), (1, on["O4"] / 2 + shift[1], "ground")):
        paper.text(at, words, 0.0, 0.32 if link == 1 else 0.0, color=QUIET, size=8)
    paper.text(on["O4"] + 2.4 - 3.6j, "Angles, speeds and torques:\ncounter-clockwise positive", color=QUIET, ha="left", size=8)
    axes.set_xlim(-4.6, 15.6)
    axes.set_ylim(-3.2, on["P"].imag + 4.4)


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    figure, axes = plt.subplots(2, 1, figsize=(6.3, 8.0), gridspec_kw={"height_ratios": [1.05, 1]})
    draw_linkage(axes[0])
    draw_bodies(axes[1])
    figure.subplots_adjust(0, 0, 1, 1, hspace=0.02)
    figure.savefig(folder / "conventions.svg", metadata={"Date": None})


if __name__ == "__main__":
    main()
