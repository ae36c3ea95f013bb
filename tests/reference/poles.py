#!/usr/bin/env python3
"""Computes poles and the curvature of coupler curves to 40 digits, for core/joints_test.cpp to compare with.

Needs what kinematics.py needs, whose linkages and positions these are. Run it without arguments; it rewrites poles.csv
beside itself. The tests read that file and need no Python.

Nothing here is computed as the program computes it. A pole is where two links have the same velocity: for coupler and
ground where the coupler stands still, for crank and rocker the point of the line of the fixed pivots that their speeds
share. The curvature is that of the path itself, whose derivatives are differences of positions.
"""

from kinematics import LINKAGES, Position, digits, drive, single, write
from mpmath import diff, inf, mp, mpf, sqrt

HEAD = ["Name", "Step", "I13 X", "I13 Y", "I24 X", "I24 Y", "Centre X", "Centre Y", "Radius", "Sin34"]


def poles(at, ground):
    """Of coupler and ground, and of crank and rocker, for a crank at speed 1 and a ground link of that length; None at
    infinity."""
    coupler = rocker = None
    if abs(at.omega3) > mpf(10) ** -30:
        coupler = (at.a[0] - at.va[1] / at.omega3, at.a[1] + at.va[0] / at.omega3)
    if abs(at.omega4 - 1) > mpf(10) ** -30:
        # Both links move it alike: x = omega4 (x - L1).
        rocker = (at.omega4 * ground / (at.omega4 - 1), mpf(0))
    return coupler, rocker


def curvature(row, theta2):
    """Centre and radius of the circle that the path of P follows."""

    def path(axis, order):
        return diff(lambda theta: Position(row, theta, mpf(1), mpf(0)).p[axis], theta2, order)

    (x, y), (dx, dy), (ddx, ddy) = ((path(0, order), path(1, order)) for order in (0, 1, 2))
    bend = dx * ddy - dy * ddx
    pace = dx * dx + dy * dy
    if abs(bend) < mpf(10) ** -12 * pace * sqrt(pace):
        return None, inf
    return (x - dy * pace / bend, y + dx * pace / bend), pace * sqrt(pace) / abs(bend)


def results(row):
    shown = {4: 100, 5: 1000}.get(row["Units"], 1)
    for step, (theta2, _, _) in enumerate(drive(row)):
        at = Position(row, theta2, mpf(1), mpf(0))
        line = [row["Name"], step]
        centre, radius = curvature(row, theta2)
        for place in (*poles(at, single(row["L1"])), centre):
            line += [digits(shown * x) for x in place] if place else ["", ""]
        yield line + [digits(shown * radius), digits(at.sin34)]


def main():
    mp.dps = 40
    write("poles.csv", HEAD, [line for row in LINKAGES for line in results(row)])


if __name__ == "__main__":
    main()
