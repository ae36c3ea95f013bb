#!/usr/bin/env python3
"""Computes dyads and cognates to 40 digits, for synthesis/reference_test.cpp to compare with.

Needs Python 3.8 or later and mpmath 1.1 or later (Debian: python3-mpmath). Run it without arguments; it rewrites
two_positions.csv, three_positions.csv, fixed_pivots.csv and cognates.csv beside itself. The tests read those files
and need no Python.

Vectors are complex numbers here, and nothing is solved as the program solves it. Two dyad vectors of given direction
are found by cross products, a dyad of three positions by two complex equations. For a given fixed pivot the positions
are turned back onto the first one: the pivot then takes three places around the moving pin, which is the centre of
their circle. Cognates are measured on the points of the diagram, which similar triangles put in their places. What is
given is rounded to single precision, as the record holds it; all else stays exact until it is written down.
"""

import csv
import pathlib
import random
import struct

from mpmath import arg, conj, expj, fabs, mp, mpc, mpf, pi

mp.dps = 40
DEG_TO_RAD = mpf("0.017453292522222223")


def single(value):
    """The nearest number of 32 bits, by way of one of 64."""
    return mpf(struct.unpack("<f", struct.pack("<f", float(value)))[0])


def digits(value):
    return mp.nstr(value, 12, strip_zeros=True)


def unit(degrees):
    return expj(single(degrees) * DEG_TO_RAD)


def turn(degrees):
    """By this factor a vector changes that turns by so many degrees."""
    return unit(degrees) - 1


def vector(x, y):
    return mpc(single(x), single(y))


def cross(a, b):
    return (conj(a) * b).imag


def degrees_of(z):
    """Of a direction, from -180 up to 180."""
    return arg(z) * 180 / pi


class Dice:
    """Decimals by chance, the same ones in every run of this script."""

    def __init__(self, seed):
        self.random = random.Random(seed)

    def pick(self, low, high, places=2):
        return f"{self.random.uniform(low, high):.{places}f}"

    def angle(self):
        return self.pick(-170, 170, 1)


# ---- Dyads of two positions ----

TWO = ["Method", "P21x", "P21y", "Alpha", "Beta", "Angle1", "Angle2", "Mag2"]
TWO_FOUND = ["W", "Wx", "Wy", "WAngle", "Z", "Zx", "Zy"]


def two_positions():
    dice = Dice(41)
    while True:
        row = dict(P21x=dice.pick(-4, 4), P21y=dice.pick(-4, 4), Alpha=dice.angle(), Beta=dice.angle(),
                   Angle1=dice.angle(), Angle2=dice.angle(), Mag2=dice.pick(0.5, 6))
        p = vector(row["P21x"], row["P21y"])
        u, v = turn(row["Beta"]), turn(row["Alpha"])
        z_unit = unit(row["Angle2"])
        a, b = u * unit(row["Angle1"]), v * z_unit
        if fabs(cross(a, b)) < 0.2 or fabs(u) < 0.3:
            continue
        w, z = cross(p, b) / cross(a, b), cross(a, p) / cross(a, b)
        W, Z = w * unit(row["Angle1"]), z * z_unit
        yield [1] + [row[name] for name in TWO[1:]] + [w, W.real, W.imag, "", z, Z.real, Z.imag]
        Z = single(row["Mag2"]) * z_unit
        W = (p - Z * v) / u
        yield ([2] + [row[name] for name in TWO[1:]] +
               [fabs(W), W.real, W.imag, degrees_of(W), single(row["Mag2"]), Z.real, Z.imag])


# ---- Dyads of three positions ----

THREE = ["P21x", "P21y", "P31x", "P31y", "Alpha2", "Alpha3", "Beta2", "Beta3"]
THREE_FOUND = ["Wx", "Wy", "Zx", "Zy"]


def three_positions():
    dice = Dice(42)
    while True:
        row = {name: dice.pick(-4, 4) for name in THREE[:4]}
        row.update({name: dice.angle() for name in THREE[4:]})
        p2, p3 = vector(row["P21x"], row["P21y"]), vector(row["P31x"], row["P31y"])
        a, b, c, d = (turn(row[name]) for name in ("Beta2", "Alpha2", "Beta3", "Alpha3"))
        det = a * d - b * c
        if fabs(det) < 0.3:
            continue
        W, Z = (p2 * d - p3 * b) / det, (a * p3 - c * p2) / det
        yield [row[name] for name in THREE] + [W.real, W.imag, Z.real, Z.imag]


# ---- The turns about a fixed pivot ----

PIVOT = ["Ox", "Oy", "P1x", "P1y", "P21x", "P21y", "P31x", "P31y", "Alpha2", "Alpha3"]
PIVOT_FOUND = ["Beta2", "Beta3"]


def center_through(a, b, c):
    """The point at equal distance from all three, or nothing where they lie in line."""
    b, c = b - a, c - a
    det = 2 * cross(b, c)
    if fabs(det) < mpf("0.05") * fabs(b) * fabs(c) * fabs(b - c):
        return None
    return a - mpc(0, 1) * (c * fabs(b) ** 2 - b * fabs(c) ** 2) / det


def fixed_pivots():
    dice = Dice(43)
    while True:
        row = {name: dice.pick(-4, 4) for name in PIVOT[:8]}
        row.update(Alpha2=dice.angle(), Alpha3=dice.angle())
        pivot, p1 = vector(row["Ox"], row["Oy"]), vector(row["P1x"], row["P1y"])
        moves = [(mpc(0), mpc(1)), (vector(row["P21x"], row["P21y"]), unit(row["Alpha2"])),
                 (vector(row["P31x"], row["P31y"]), unit(row["Alpha3"]))]
        seen = [p1 + (pivot - p1 - move) / turned for move, turned in moves]
        if min(fabs(seen[i] - seen[j]) for i, j in ((0, 1), (0, 2), (1, 2))) < 1:
            continue
        pin = center_through(*seen)
        if pin is None or fabs(pin) > 20:
            continue
        arms = [p1 + move + (pin - p1) * turned - pivot for move, turned in moves]
        assert max(fabs(arm) for arm in arms) - min(fabs(arm) for arm in arms) < mpf("1e-30")
        beta2, beta3 = degrees_of(arms[1] / arms[0]), degrees_of(arms[2] / arms[0])
        # Clear of the limits between which a turn is read in one way or another, and of turning with the coupler.
        if min(abs(fabs(beta2) - limit) for limit in (0, 90, 180)) < 4 or abs(fabs(beta3) - 180) < 4:
            continue
        if fabs(arms[2] / arms[0] - unit(row["Alpha3"])) < 0.1:
            continue
        yield [row[name] for name in PIVOT] + [beta2, beta3]


# ---- Cognates ----

LINKS = ["L1", "L2", "L3", "L4", "Rpa", "DeltaRad"]
COGNATES = (LINKS + [f"Row{n} {name}" for n in (2, 3) for name in LINKS] +
            [f"Cognate{n} {name}" for n in (2, 3) for name in LINKS])


def four_bar(ground, crank, coupler, rocker, point):
    """The lengths of a cognate by its points, each link as the pair of its ends; the coupler from its crank's pin."""
    start, end = coupler
    return [fabs(ground), *(fabs(b - a) for a, b in (crank, coupler, rocker)), fabs(point - start),
            arg((point - start) / (end - start))]


def cognates_of(l1, l2, l3, l4, rpa, delta):
    similar = rpa / l3 * expj(delta)
    # The diagram, with cognate 1 drawn out straight from O2 to O4.
    o2, o4 = mpc(0), mpc(l2 + l3 + l4)
    a, b = o2 + l2, o4 - l4
    p = a + similar * (b - a)
    o6 = o2 + similar * (o4 - o2)
    a2, b2 = o2 + (p - a), o6 - similar * (o4 - b)
    a3, b3 = o4 + (p - b), p + similar * (o4 - b)
    second = four_bar(similar * l1, (o6, b2), (b2, a2), (a2, o2), p)
    third = four_bar((similar - 1) * l1, (o4, a3), (a3, b3), (b3, o6), p)
    # With the shorter side link as the crank. The coupler's angle keeps its sign, as if seen in a mirror.
    second_other = four_bar(similar * l1, (o2, a2), (a2, b2), (b2, o6), p)
    third_other = four_bar((similar - 1) * l1, (o6, b3), (b3, a3), (a3, o4), p)
    for other in (second_other, third_other):
        other[5] = -other[5]
    return [second, third, second_other if second[3] <= second[1] else second,
            third_other if third[3] <= third[1] else third]


def cognates():
    dice = Dice(44)
    while True:
        row = [dice.pick(1, 5), dice.pick(0.5, 4), dice.pick(1, 5), dice.pick(0.5, 4), dice.pick(0.3, 5),
               dice.pick(-3, 3, 3)]
        values = [single(value) for value in row]
        longest = max(values[:4])
        if 2 * longest >= sum(values[:4]):
            continue
        # Clear of side links of equal length, of which either may be the crank.
        found = cognates_of(*values)
        if any(abs(item[1] - item[3]) < 0.05 for item in found) or min(found[0][1:5] + found[1][1:5]) < 0.05:
            continue
        yield row + [value for item in found for value in item]


def write(name, head, rows, count):
    path = pathlib.Path(__file__).with_name(name)
    with path.open("w", newline="") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(head)
        for _, row in zip(range(count), rows):
            writer.writerow([value if isinstance(value, (str, int)) else digits(value) for value in row])


def main():
    write("two_positions.csv", TWO + TWO_FOUND, two_positions(), 80)
    write("three_positions.csv", THREE + THREE_FOUND, three_positions(), 60)
    write("fixed_pivots.csv", PIVOT + PIVOT_FOUND, fixed_pivots(), 80)
    write("cognates.csv", COGNATES, cognates(), 60)


if __name__ == "__main__":
    main()
