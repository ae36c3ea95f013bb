#!/usr/bin/env python3
"""Computes the motion of a set of four-bar linkages to 40 digits, for core/reference_test.cpp to compare with.

Needs Python 3.8 or later and mpmath 1.1 or later (Debian: python3-mpmath). Run it without arguments; it rewrites
kinematics.csv, linkages.csv and straight_lines.csv beside itself. The tests read those files and need no Python.

Nothing here is solved as the program solves it. B is where two circles meet, speeds and accelerations come from the
loop closure, differentiated once and twice and solved as two linear equations, and the pole is where the lines of
crank and rocker meet. Only what drives the linkage is rounded to single precision, as the record holds it: lengths,
angles, speeds, and the crank angle that a run adds up step by step. All else stays exact until it is written down.
"""

import csv
import pathlib
import struct

from mpmath import acos, atan2, cos, floor, mp, mpf, sin, sqrt

mp.dps = 40

DEG_TO_RAD = mpf("0.017453292522222223")
RAD_TO_DEG = mpf("57.29577950560105")


def single(value):
    """The nearest number of 32 bits, by way of one of 64."""
    return mpf(struct.unpack("<f", struct.pack("<f", float(value)))[0])


# ---- The linkages. Lengths are stored ones: metres in unit systems 4 and 5. ----

DEFAULT = dict(L1="2.667", L2="1.115", L3="2.5", L4="2.5", Rpa="1.697", Delta="-92.66")
DOUBLE_CRANK = dict(L1="1.2", L2="2.5", L3="2.2", L4="2.8", Rpa="1.3", Delta="35")
TRIPLE_ROCKER = dict(L1="4", L2="2.6", L3="2.2", L4="3", Rpa="1.75", Delta="120.5")
DOUBLE_ROCKER = dict(L1="3", L2="3", L3="1", L4="3.5", Rpa="0.6", Delta="-20")
PRESS_MM = dict(L1="0.2", L2="0.06", L3="0.175", L4="0.14", Rpa="0.11", Delta="28.25")
PARALLELOGRAM = dict(L1="4", L2="2", L3="4", L4="2", Rpa="2.5", Delta="50")


def linkage(name, lengths, **drive):
    row = dict(Name=name, Units=1, Circuit=1, Link1Angle="0", ModuloMode="abs", Calctype=3, First="0", Last="360",
               Increment="15", ThetaZero="0", Omega2="10", Alpha2="0")
    row.update(lengths)
    row.update(drive)
    assert set(row) == set(INPUTS), set(row) ^ set(INPUTS)
    return row


INPUTS = ["Name", "Units", "L1", "L2", "L3", "L4", "Rpa", "Delta", "Link1Angle", "Circuit", "ModuloMode", "Calctype",
          "First", "Last", "Increment", "ThetaZero", "Omega2", "Alpha2"]

LINKAGES = [
    linkage("default", DEFAULT, First="45", Last="405", Increment="10"),
    linkage("default crossed", DEFAULT, Circuit=2, First="45", Last="405", Increment="10"),
    linkage("default by half turns the other way", DEFAULT, Omega2="-7.5", First="-180", Last="180"),
    linkage("default wrapped at 180", DEFAULT, ModuloMode="180"),
    linkage("default over two turns", DEFAULT, Last="720", Increment="22.5"),
    linkage("ground turned by 30", DEFAULT, Link1Angle="30"),
    linkage("ground turned by 30 and crossed", DEFAULT, Link1Angle="30", Circuit=2),
    linkage("ground turned by -110", DEFAULT, Link1Angle="-110"),
    linkage("ground turned by -110 and wrapped at 180 backwards", DEFAULT, Link1Angle="-110", ModuloMode="180",
            Omega2="-12"),
    linkage("double crank", DOUBLE_CRANK, First="5", Last="365", Increment="12"),
    linkage("double crank crossed", DOUBLE_CRANK, Circuit=2, First="5", Last="365", Increment="12"),
    linkage("double rocker", DOUBLE_ROCKER, First="55", Last="91", Increment="3"),
    linkage("double rocker crossed", DOUBLE_ROCKER, Circuit=2, First="55", Last="91", Increment="3"),
    linkage("triple rocker within its toggles", TRIPLE_ROCKER, First="-90", Last="90", Increment="7.5", Omega2="3"),
    linkage("triple rocker crossed", TRIPLE_ROCKER, Circuit=2, First="-90", Last="90", Increment="7.5", Omega2="3"),
    linkage("triple rocker up to its toggle", TRIPLE_ROCKER, First="101", Last="101.8", Increment="0.1", Omega2="3"),
    linkage("triple rocker crossed down to its toggle", TRIPLE_ROCKER, Circuit=2, First="-101.8", Last="-101",
            Increment="0.1", Omega2="-3"),
    linkage("parallelogram", PARALLELOGRAM, First="20", Last="160", Increment="10", Omega2="4"),
    linkage("one position", DEFAULT, Calctype=1, First="0", Last="0", Increment="0", ThetaZero="67.5", Alpha2="-5"),
    linkage("one position with the ground turned by 30", DEFAULT, Calctype=1, First="0", Last="0", Increment="0",
            ThetaZero="67.5", Alpha2="40", Link1Angle="30", Circuit=2),
    linkage("time steps slowing", DEFAULT, Calctype=2, Last="1.9", Increment="0.05", Alpha2="-5"),
    linkage("time steps gaining with the ground turned by 30", DEFAULT, Calctype=2, First="0.5", Last="1.5",
            Increment="0.025", ThetaZero="15", Omega2="2", Alpha2="8", Link1Angle="30"),
    linkage("time steps backwards and crossed", DEFAULT, Calctype=2, Last="1", Increment="0.04", Omega2="-6",
            Alpha2="-2.5", Circuit=2),
    linkage("feet", DEFAULT, Units=2),
    linkage("metres", DEFAULT, Units=3),
    linkage("centimetres", PRESS_MM, Units=4),
    linkage("millimetres", PRESS_MM, Units=5),
    linkage("millimetres crossed with the ground turned by 30", PRESS_MM, Units=5, Circuit=2, Link1Angle="30"),
    linkage("millimetres by time", PRESS_MM, Units=5, Calctype=2, Last="1", Increment="0.025", Alpha2="12"),
]


# ---- What drives them ----

def drive(row):
    """(crank angle in the local frame, speed, acceleration) of each step; the angle in radians."""
    first, last, increment, zero = (single(row[name]) for name in ("First", "Last", "Increment", "ThetaZero"))
    ground = single(row["Link1Angle"])
    ground_rad = single(ground * DEG_TO_RAD)
    speed, gain = single(row["Omega2"]), single(row["Alpha2"])
    if row["Calctype"] == 1:
        yield single((zero - ground) * DEG_TO_RAD), speed, gain
        return
    steps = int(floor((last - first) / increment + 0.5))
    if row["Calctype"] == 2:
        t = first
        for _ in range(steps + 1):
            yield (single(gain * t * t / 2 + speed * t + zero * DEG_TO_RAD - ground_rad), single(gain * t + speed),
                   gain)
            t = single(increment + t)
        return
    start, end, step = (single(value * DEG_TO_RAD) for value in (first, last, increment))
    sign = 1 if speed > 0 else -1
    theta, final = single((start if sign > 0 else end) - ground_rad), single((end if sign > 0 else start) - ground_rad)
    for _ in range(steps + 1):
        if sign * (theta - final) > 0:  # the position at the limit takes the place of the one beyond it
            yield final, speed, mpf(0)
            return
        yield theta, speed, mpf(0)
        theta = single(theta + sign * step)


# ---- One position, in the frame of the ground link ----

def turned(vector, angle):
    c, s = cos(angle), sin(angle)
    return (vector[0] * c - vector[1] * s, vector[0] * s + vector[1] * c)


def meeting(p, u, q, v):
    """Where the line through p along u meets that through q along v."""
    cross = u[0] * v[1] - u[1] * v[0]
    along = ((q[0] - p[0]) * v[1] - (q[1] - p[1]) * v[0]) / cross
    return (p[0] + along * u[0], p[1] + along * u[1])


def solve(a, b, c, d, e, f):
    """x and y of a x + b y = e, c x + d y = f."""
    det = a * d - b * c
    return (e * d - b * f) / det, (a * f - e * c) / det


class Position:
    """Everything of one position; `side` is +1 where B lies left of the line from A to O4, else -1."""

    def __init__(self, row, theta2, omega2, alpha2):
        l1, l2, l3, l4, rpa = (single(row[name]) for name in ("L1", "L2", "L3", "L4", "Rpa"))
        delta = single(single(row["Delta"]) * DEG_TO_RAD)
        side = 1 if row["Circuit"] == 1 else -1

        # B: the circle of radius L3 about A and that of radius L4 about O4.
        ax, ay = l2 * cos(theta2), l2 * sin(theta2)
        dx, dy = l1 - ax, -ay
        d = sqrt(dx * dx + dy * dy)
        foot = (d * d + l3 * l3 - l4 * l4) / (2 * d)
        if abs(foot) >= l3:
            raise ValueError(row["Name"] + " does not close")
        height = sqrt(l3 * l3 - foot * foot)
        bx = ax + (foot * dx - side * height * dy) / d
        by = ay + (foot * dy + side * height * dx) / d
        self.a, self.b = (ax, ay), (bx, by)
        r2, r3, r4 = self.a, (bx - ax, by - ay), (bx - l1, by)
        self.theta2, self.theta3, self.theta4 = theta2, atan2(r3[1], r3[0]), atan2(r4[1], r4[0])

        # P: turned from AB by delta, at its own distance from A.
        rp = turned((rpa * r3[0] / l3, rpa * r3[1] / l3), delta)
        self.p = (ax + rp[0], ay + rp[1])

        # r2 + r3 = r4 + const. A vector that turns at w has the derivative w (-y, x).
        def quarter(r):
            return (-r[1], r[0])

        q2, q3, q4 = quarter(r2), quarter(r3), quarter(r4)
        self.omega2, self.alpha2 = omega2, alpha2
        self.omega3, self.omega4 = solve(q3[0], -q4[0], q3[1], -q4[1], -omega2 * q2[0], -omega2 * q2[1])

        def second(r, omega, alpha):
            return tuple(alpha * quarter(r)[i] - omega * omega * r[i] for i in (0, 1))

        # The same once more: alpha enters linearly, the rest is known.
        known = [second(r2, omega2, alpha2)[i] - self.omega3 ** 2 * r3[i] + self.omega4 ** 2 * r4[i] for i in (0, 1)]
        self.alpha3, self.alpha4 = solve(q3[0], -q4[0], q3[1], -q4[1], -known[0], -known[1])

        self.va = tuple(omega2 * x for x in q2)
        self.vb = tuple(self.omega4 * x for x in q4)
        self.vp = tuple(v + self.omega3 * x for v, x in zip(self.va, quarter(rp)))
        self.aa = second(r2, omega2, alpha2)
        self.ab = second(r4, self.omega4, self.alpha4)
        self.ap = tuple(a + x for a, x in zip(self.aa, second(rp, self.omega3, self.alpha3)))
        self.rocker = (-l4 * self.omega4 ** 2, l4 * self.alpha4)
        self.ap_on_coupler = turned(self.ap, -self.theta3)

        # 0 where coupler and rocker lie in line, and where crank and rocker do: there small errors grow.
        self.sin34 = abs(sin(self.theta3 - self.theta4))
        self.sin24 = abs(sin(self.theta2 - self.theta4))
        parallelogram = l2 == l4 and l3 == l1
        self.pole = None if parallelogram else meeting((mpf(0), mpf(0)), r2, (l1, mpf(0)), r4)

    def pole_on(self, start):
        """The pole as a point of the coupler, with the coupler where it lay at the start."""
        if self.pole is None:
            return None
        arm = (self.pole[0] - self.a[0], self.pole[1] - self.a[1])
        arm = turned(arm, start.theta3 - self.theta3)
        return (start.a[0] + arm[0], start.a[1] + arm[1])

    def transmission(self):
        """The acute angle between coupler and rocker, in degrees."""
        turn = abs(self.theta3 - self.theta4) * RAD_TO_DEG
        if turn > 180:
            turn = 360 - turn
        return 180 - turn if turn > 90 else turn


def shown_angle(row, theta, ground, very_first):
    degrees = theta * RAD_TO_DEG + ground
    if row["ModuloMode"] == "abs":
        if degrees < 0:
            degrees += 360
        if very_first and single(degrees) == 360:
            degrees = mpf(0)
    elif degrees > 180:
        degrees -= 360
    return degrees


VECTORS = ["A", "B", "P", "Veloc A", "Veloc B", "Veloc P", "Accel A", "Accel B", "Accel P"]
RESULTS = (["Name", "Step", "Theta2", "Theta3", "Theta4", "Transmission", "Omega2", "Omega3", "Omega4", "Alpha2",
            "Alpha3", "Alpha4"] + [f"{name} {axis}" for name in VECTORS for axis in "XY"] +
           ["Rocker Normal", "Rocker Tangential", "Accel P Along", "Accel P Across", "OmegaRatio", "MechAdvantage",
            "Fixed Centrode X", "Fixed Centrode Y", "Moving Centrode X", "Moving Centrode Y", "Sin34", "Sin24"])


def digits(value):
    return mp.nstr(value, 12, strip_zeros=True)


def results(row):
    shown = {4: 100, 5: 1000}.get(row["Units"], 1)
    ground = single(row["Link1Angle"])
    start = None
    for step, (theta2, omega2, alpha2) in enumerate(drive(row)):
        at = Position(row, theta2, omega2, alpha2)
        start = start or at
        line = [row["Name"], step]
        line += [digits(shown_angle(row, theta, ground, step == 0 and theta is at.theta2))
                 for theta in (at.theta2, at.theta3, at.theta4)]
        line.append(digits(at.transmission()))
        line += [digits(x) for x in (at.omega2, at.omega3, at.omega4, at.alpha2, at.alpha3, at.alpha4)]
        for vector in (at.a, at.b, at.p, at.va, at.vb, at.vp, at.aa, at.ab, at.ap, at.rocker, at.ap_on_coupler):
            line += [digits(shown * x) for x in vector]
        line += [digits(at.omega4 / at.omega2), digits(at.omega2 / at.omega4) if at.omega4 else ""]
        for vector in (at.pole, at.pole_on(start)):
            line += [digits(x) for x in vector] if vector else ["0", "0"]
        line += [digits(at.sin34), digits(at.sin24)]
        yield line


def toggle(row):
    """How far the crank of a linkage that cannot turn swings from the ground link, in degrees: A and O4 are then
    as far apart as coupler and rocker reach, or as near as they fold."""
    l1, l2, l3, l4 = (single(row[name]) for name in ("L1", "L2", "L3", "L4"))
    lengths = sorted((l1, l2, l3, l4))
    if lengths[0] + lengths[3] <= lengths[1] + lengths[2]:
        return ""
    for reach in (l3 + l4, l3 - l4):
        c = (l1 * l1 + l2 * l2 - reach * reach) / (2 * l1 * l2)
        if abs(c) <= 1:
            return digits(acos(c) * RAD_TO_DEG)
    raise ValueError(row["Name"])


# ---- Straight lines ----

LAMBDA = dict(L1="2", L2="1", L3="2.5", L4="2.5", Rpa="5", Delta="0")
CHEBYCHEV = dict(L1="2", L2="2.5", L3="1", L4="2.5", Rpa="0.5", Delta="0")
ROBERTS = dict(L1="2", L2="1", L3="1", L4="1", Rpa="1.5", Delta="-70.529")
ROBERTS_EQUILATERAL = dict(L1="2", L2="1", L3="1", L4="1", Rpa="1", Delta="-60")
WATT = dict(L1="2.5", L2="1.25", L3="0.625", L4="1.25", Rpa="0.3125", Delta="0")
WATT_LONG_BEAMS = dict(L1="6.08276253", L2="3", L3="1", L4="3", Rpa="0.5", Delta="0")

STRAIGHT = [
    linkage("Hoekens over half a turn", LAMBDA, First="90", Last="270", Increment="5"),
    linkage("Chebychev from end to end", CHEBYCHEV, Circuit=2, First="37", Last="90", Increment="1", Omega2="1"),
    linkage("Roberts", ROBERTS, First="49", Last="69", Increment="1", Omega2="1"),
    linkage("Roberts with an equilateral coupler", ROBERTS_EQUILATERAL, First="50", Last="70", Increment="1",
            Omega2="1"),
    linkage("Watt", WATT, First="-40", Last="20", Increment="2", Omega2="1"),
    linkage("Watt with long beams", WATT_LONG_BEAMS, First="-18", Last="0", Increment="0.5", Omega2="1"),
]


def straightness(row):
    """The distance between the ends of the coupler point's path, and the width of the narrowest strip that holds it.

    One side of that strip always goes through two of the points."""
    points = [Position(row, *at).p for at in drive(row)]
    (x0, y0), (x1, y1) = points[0], points[-1]
    width = None
    for i, (px, py) in enumerate(points):
        for qx, qy in points[:i]:
            ux, uy = qx - px, qy - py
            away = [((x - px) * uy - (y - py) * ux) for x, y in points]
            strip = (max(away) - min(away)) / sqrt(ux * ux + uy * uy)
            width = strip if width is None else min(width, strip)
    return sqrt((x1 - x0) ** 2 + (y1 - y0) ** 2), width


def write(name, head, rows):
    path = pathlib.Path(__file__).with_name(name)
    with path.open("w", newline="") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(head)
        writer.writerows(rows)


def main():
    write("linkages.csv", INPUTS + ["Toggle"], [[row[name] for name in INPUTS] + [toggle(row)] for row in LINKAGES])
    write("kinematics.csv", RESULTS, [line for row in LINKAGES for line in results(row)])
    write("straight_lines.csv", INPUTS + ["Stroke", "Width"],
          [[row[name] for name in INPUTS] + [digits(x) for x in straightness(row)] for row in STRAIGHT])


if __name__ == "__main__":
    main()
