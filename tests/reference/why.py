#!/usr/bin/env python3
"""Finds to 40 digits what closes the loop of a four-bar and what does not, for core/why_test.cpp to compare with.

Needs Python 3.8 or later and mpmath 1.1 or later (Debian: python3-mpmath). Run it without arguments; it rewrites
why_positions.csv, why_lengths.csv and why_longest.csv beside itself. The tests read those files and need no Python.

Nothing here is solved as the program solves it. Whether coupler and rocker meet is asked of the circles about A and O4;
the nearest angle and the nearest length that close are found by walking outward from where the loop does not close, in
small steps, for which doubles are enough, and then by halving; the transmission angle is that between the two links as they lie.
"""

import csv
import math
import pathlib
import struct

from mpmath import acos, cos, mp, mpf, pi, sin, sqrt

mp.dps = 40
HERE = pathlib.Path(__file__).parent


def single(value):
    """The nearest number of 32 bits."""
    return mpf(struct.unpack("<f", struct.pack("<f", float(value)))[0])


LINKAGES = [  # L1, L2, L3, L4
    ("7", "4", "5", "4.5"),           # triple rocker, limits outward
    ("2.667", "1.115", "2.5", "2.5"),  # crank rocker
    ("4", "2.6", "2.2", "3"),         # triple rocker
    ("3", "3", "1", "3.5"),           # double rocker: limits on both sides
    ("1.2", "2.5", "2.2", "2.8"),     # double crank
    ("0.2", "0.06", "0.175", "0.14"),
    ("6", "5", "1.5", "3"),
    ("5", "2", "6.5", "1.2"),
    ("2", "5", "1.25", "3.5"),
    ("10", "9", "0.75", "4"),
    ("3", "1", "2", "4.5"),
    ("120", "95", "40", "130"),
    ("1", "4", "3.5", "2"),
    ("8", "3", "2.5", "3.25"),
]
ANGLES = ["-170", "-135.5", "-101.25", "-64", "-31.5", "-7", "3", "12.5", "29", "48.75", "77", "95.5", "110", "126.25",
          "149", "178", "215", "300", "415"]


def reach(l1, l2, degrees):
    a = degrees * pi / 180
    return sqrt((l2 * cos(a) - l1) ** 2 + (l2 * sin(a)) ** 2)


def closes(links, degrees):
    """Do the circle of the coupler about A and that of the rocker about O4 meet?"""
    l1, l2, l3, l4 = links
    gap = reach(l1, l2, degrees)
    # The point of the coupler's circle that is nearest to O4, and the one that is farthest from it.
    return abs(gap - l3) <= l4 <= gap + l3


def roughly_closes(links, degrees):
    l1, l2, l3, l4 = links
    a = math.radians(degrees)
    gap = math.hypot(l2 * math.cos(a) - l1, l2 * math.sin(a))
    return abs(gap - l3) <= l4 <= gap + l3


def halved(inside, outside, is_inside):
    assert is_inside(inside) and not is_inside(outside)
    for _ in range(140):
        middle = (inside + outside) / 2
        if is_inside(middle):
            inside = middle
        else:
            outside = middle
    return inside


def outward(start, step, last, wanted, roughly_wanted):
    """The value nearest to `start` for which `wanted` holds, and on which side of it; none within `last`."""
    rough_start, rough_step = float(start), float(step)
    for count in range(1, int(last / step) + 1):
        hits = []
        for side in (1, -1):
            if roughly_wanted(rough_start + side * rough_step * count):
                hits.append((halved(start + side * step * count, start + side * step * (count - 1), wanted), side))
        if hits:
            return min(hits, key=lambda hit: abs(hit[0] - start))
    return None


def transmission(links, degrees):
    l1, l2, l3, l4 = links
    a = degrees * pi / 180
    ax, ay = l2 * cos(a), l2 * sin(a)
    dx, dy = l1 - ax, -ay
    gap = sqrt(dx * dx + dy * dy)
    along = (gap * gap + l3 * l3 - l4 * l4) / (2 * gap)
    across = sqrt(l3 * l3 - along * along)
    bx, by = ax + (along * dx - across * dy) / gap, ay + (along * dy + across * dx) / gap
    ux, uy, vx, vy = bx - ax, by - ay, bx - l1, by
    angle = acos((ux * vx + uy * vy) / sqrt((ux * ux + uy * uy) * (vx * vx + vy * vy))) * 180 / pi
    return min(angle, 180 - angle)


def told(value):
    return mp.nstr(value, 20, strip_zeros=False) if value is not None else ""


def main():
    positions, lengths, longest = [], [], []
    for texts in LINKAGES:
        links = [single(text) for text in texts]
        for text in ANGLES:
            degrees = single(text)
            gap = reach(links[0], links[1], degrees)
            kind = "closed" if closes(links, degrees) else "short" if gap > links[2] + links[3] else "long"
            by = {"closed": None, "short": gap - links[2] - links[3], "long": abs(links[2] - links[3]) - gap}[kind]
            rough = [float(length) for length in links]
            found = outward(degrees, mpf("0.02"), 181, lambda x: closes(links, x) != (kind == "closed"),
                            lambda x: roughly_closes(rough, x) != (kind == "closed"))
            # From an angle that closes the limit is approached from inside, so the other side is the one that closes.
            angle, way = (found[0], found[1] if kind != "closed" else -found[1]) if found else (None, "")
            positions.append([*texts, text, kind, told(by), told(angle), way,
                              told(transmission(links, degrees)) if kind == "closed" else ""])
            if kind == "closed":
                continue
            for link in range(4):
                def fits(length, of=links, meet=closes):
                    return length > 0 and meet(of[:link] + [length] + of[link + 1:], degrees)
                hit = outward(links[link], sum(links) / 8000, 3 * sum(links), fits,
                              lambda x: fits(x, rough, roughly_closes))
                lengths.append([*texts, text, link + 1, told(hit[0]) if hit else "", hit[1] if hit else ""])
        for link in range(4):
            grown = [mpf(text) for text in texts]
            grown[link] = single(sum(grown) + mpf("0.25"))
            grown = [single(length) for length in grown]
            others = sum(grown) - grown[link]
            longest.append([*[mp.nstr(x, 12) for x in grown], link + 1, told(grown[link] - others), told(others)])
    for name, head, rows in (
            ("positions", ["L1", "L2", "L3", "L4", "Angle", "Is", "By", "Nearest", "Way", "Transmission"], positions),
            ("lengths", ["L1", "L2", "L3", "L4", "Angle", "Link", "Length", "Way"], lengths),
            ("longest", ["L1", "L2", "L3", "L4", "Link", "Excess", "Limit"], longest)):
        with open(HERE / f"why_{name}.csv", "w", newline="") as file:
            writer = csv.writer(file, lineterminator="\n")
            writer.writerow(head)
            writer.writerows(rows)


if __name__ == "__main__":
    main()
