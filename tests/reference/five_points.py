#!/usr/bin/env python3
"""All linkages on given fixed pivots whose coupler point passes through five points: five_points.csv.

Problem 7 of A. P. Morgan and C. W. Wampler, Solving a Planar Four-Bar Design Problem Using Continuation, 1990: five
points on a line, here in their order along it, and pivots at (0, 0) and (1, 0). For each, the body's turns and the moving joints in the first
position, found by Newton's method from many starts and polished to 30 digits, and a verdict by formulas of their own:
`circuit` where the positions lie on two circuits, `way` where no crank turning one way passes them in their order on
one branch, else `good`.
"""
import csv
import math
import pathlib
import random

from mpmath import conj, expj, lu_solve, matrix, mp, mpc, mpf

mp.dps = 30
POINTS = [mpc("-0.83", "-0.27"), mpc("-0.34", "0.22"), mpc("-0.13", "0.43"), mpc("0.22", "0.78"), mpc("0.50", "1.06")]
PIVOTS = [mpc(0), mpc(1)]
STARTS, SEED = 20000, 1


def conditions(number, turn, points, pivots, unknown):
    """The eight equations and their derivatives by four turns and two joints, as the coupler point sees them."""
    values, rows = [], []
    for side, pivot in enumerate(pivots):
        x, y = unknown[4 + 2 * side], unknown[5 + 2 * side]
        first = points[0] - pivot
        for j in range(1, 5):
            arm, turned = points[j] - pivot, turn(unknown[j - 1])
            m = arm * turned.conjugate() - first
            values.append(m.real * x + m.imag * y + (abs(arm) ** 2 - abs(first) ** 2) / 2)
            row = [number(0)] * 8
            slope = arm * turned.conjugate() * -1j
            row[j - 1] = slope.real * x + slope.imag * y
            row[4 + 2 * side], row[5 + 2 * side] = m.real, m.imag
            rows.append(row)
    return values, rows


def solved(rows, values):
    """Gauss with pivots; None for a singular system."""
    rows = [row + [value] for row, value in zip(rows, values)]
    for i in range(8):
        best = max(range(i, 8), key=lambda k: abs(rows[k][i]))
        if abs(rows[best][i]) < 1e-14:
            return None
        rows[i], rows[best] = rows[best], rows[i]
        for k in range(i + 1, 8):
            factor = rows[k][i] / rows[i][i]
            if factor:
                rows[k] = [a - factor * b for a, b in zip(rows[k], rows[i])]
    x = [0.0] * 8
    for i in reversed(range(8)):
        x[i] = (rows[i][8] - sum(rows[i][k] * x[k] for k in range(i + 1, 8))) / rows[i][i]
    return x


def roots():
    dice = random.Random(SEED)
    points, pivots = [complex(p) for p in POINTS], [complex(p) for p in PIVOTS]
    found = []
    for _ in range(STARTS):
        u = [dice.uniform(-math.pi, math.pi) for _ in range(4)] + [dice.uniform(-2, 2) for _ in range(4)]
        for _ in range(40):
            values, rows = conditions(float, lambda a: complex(math.cos(a), math.sin(a)), points, pivots, u)
            step = solved(rows, values)
            if step is None:
                break
            longest = max(abs(s) for s in step)
            u = [a - s * min(1, 1 / longest) for a, s in zip(u, step)]
            if longest < 1e-12:
                u[:4] = [math.remainder(a, 2 * math.pi) for a in u[:4]]
                joints = max(abs(a) for a in u[4:]) < 50
                if joints and all(max(abs(a - b) for a, b in zip(u, other)) > 1e-6 for other in found):
                    found.append(u)
                break
    return [polished(u) for u in sorted(found)]


def polished(u):
    u = [mpf(a) for a in u]
    for _ in range(5):
        values, rows = conditions(mpf, expj, POINTS, PIVOTS, u)
        step = lu_solve(matrix(rows), matrix(values))
        u = [a - s for a, s in zip(u, step)]
    return u


def turned_from(a, b):
    return (conj(a) * b).imag > 0


def verdict(u):
    turns = [mpf(0)] + u[:4]
    arms = [mpc(u[4], u[5]), mpc(u[6], u[7])]
    places = [[point + expj(turn) * arm for arm in arms] for point, turn in zip(POINTS, turns)]
    O2, O4 = PIVOTS
    ground, crank, coupler, rocker = abs(O4 - O2), abs(places[0][0] - O2), abs(arms[1] - arms[0]), abs(places[0][1] - O4)
    links = [ground, crank, coupler, rocker]
    # Of a linkage with a link that turns fully, the joints away from that link never straighten.
    if 2 * (min(links) + max(links)) < sum(links):
        shortest = links.index(min(links))
        rocks = [(lambda A, B: turned_from(B - A, B - O4)), (lambda A, B: turned_from(B - A, B - O4)),
                 (lambda A, B: turned_from(A - O2, O4 - O2)), (lambda A, B: turned_from(A - O2, B - A))][shortest]
        if len({rocks(A, B) for A, B in places}) == 2:
            return "circuit"
    return "good" if any(passes(places, side, way) for side in (0, 1) for way in (1, -1)) else "way"


def passes(places, side, way):
    """With the crank at that side turning that way: one branch, all in order within a turn, closed between them."""
    pivot, other = PIVOTS[side], PIVOTS[1 - side]
    branches = {turned_from(j[1 - side] - j[side], j[1 - side] - other) for j in places}
    if len(branches) == 2:
        return False
    angles = [float(mp.arg(j[side] - pivot)) for j in places]
    gone = [(way * (b - a)) % (2 * math.pi) for a, b in zip(angles, angles[1:])]
    if sum(gone) > 2 * math.pi:
        return False
    crank = float(abs(places[0][side] - pivot))
    coupler, rocker = float(abs(places[0][1] - places[0][0])), float(abs(places[0][1 - side] - other))
    ground = complex(other - pivot)
    for k in range(2001):
        angle = angles[0] + way * sum(gone) * k / 2000
        reach = abs(ground - crank * complex(math.cos(angle), math.sin(angle)))
        if not abs(coupler - rocker) < reach < coupler + rocker:
            return False
    return True


def main():
    with open(pathlib.Path(__file__).with_suffix(".csv"), "w", newline="") as file:
        out = csv.writer(file, lineterminator="\n")
        out.writerow(["Turn2", "Turn3", "Turn4", "Turn5", "Ax", "Ay", "Bx", "By", "Verdict"])
        for u in roots():
            joints = [POINTS[0].real + u[4], POINTS[0].imag + u[5], POINTS[0].real + u[6], POINTS[0].imag + u[7]]
            out.writerow([mp.nstr(a * 180 / mp.pi, 20) for a in u[:4]] + [mp.nstr(a, 20) for a in joints] + [verdict(u)])


main()
