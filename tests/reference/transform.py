#!/usr/bin/env python3
"""Computes harmonics of functions of linkages to 40 digits, for output/transform_reference_test.cpp to compare with.

Needs what kinematics.py needs, and takes the motion from there: no sample comes from the program. Run it without
arguments; it rewrites transform_functions.csv and transform.csv beside itself.

The sums are plain ones over the samples 1 to N, each harmonic by itself, with pi to all digits and with no sum cut
off. The mean stands as it is; of every other harmonic all four figures are doubled. The phase is a plain arc tangent;
where the real part is next to nothing, so that it could be of either sign, it is left open.
"""

from mpmath import atan, cos, mpf, pi, sin, sqrt

from kinematics import (DEFAULT, DOUBLE_CRANK, INPUTS, PRESS_MM, RAD_TO_DEG, Position, digits, drive, linkage,
                        shown_angle, single, turned, write)

HARMONICS = 25  # the mean among them


def shown(row):
    return {4: 100, 5: 1000}.get(row["Units"], 1)


def in_the_global_frame(row, vector):
    x, y = turned(vector, single(row["Link1Angle"]) / RAD_TO_DEG)
    return shown(row) * x, shown(row) * y


FUNCTIONS = {
    ("Omega4", "Mag"): lambda row, at: at.omega4,
    ("Alpha3", "Mag"): lambda row, at: at.alpha3,
    ("Theta4", "Mag"): lambda row, at: shown_angle(row, at.theta4, single(row["Link1Angle"]), False),
    ("Trans Ang", "Mag"): lambda row, at: at.transmission(),
    ("Coupler Pt", "Y"): lambda row, at: in_the_global_frame(row, at.p)[1],
    ("Veloc CP", "X"): lambda row, at: in_the_global_frame(row, at.vp)[0],
    ("Accel CP", "Mag"): lambda row, at: sqrt(sum(x * x for x in in_the_global_frame(row, at.ap))),
}

BY_DEGREES = dict(First="0", Last="360", Increment="1")

CASES = [
    (linkage("rocker speed by degrees", DEFAULT, **BY_DEGREES), "Omega4", "Mag"),
    (linkage("coupler acceleration crossed and backwards", DEFAULT, Circuit=2, Omega2="-4", **BY_DEGREES),
     "Alpha3", "Mag"),
    (linkage("rocker angle by two degrees", DEFAULT, Last="360", Increment="2"), "Theta4", "Mag"),
    (linkage("transmission angle of a double crank", DOUBLE_CRANK, First="5", Last="365", Increment="3"),
     "Trans Ang", "Mag"),
    (linkage("height of the coupler point on a turned ground", DEFAULT, Link1Angle="30", **BY_DEGREES),
     "Coupler Pt", "Y"),
    (linkage("velocity across on a turned ground", DEFAULT, Link1Angle="-110", Last="360", Increment="4"),
     "Veloc CP", "X"),
    (linkage("acceleration in millimetres", PRESS_MM, Units=5, Omega2="2", **BY_DEGREES), "Accel CP", "Mag"),
    (linkage("an odd number of time steps slowing", DEFAULT, Calctype=2, Last="1.85", Increment="0.05", Alpha2="-5"),
     "Omega4", "Mag"),
]


def harmonics(samples):
    count = len(samples)
    half = (count + 1) // 2
    circle = [(cos(2 * pi * i / count), sin(2 * pi * i / count)) for i in range(count)]
    rows = []
    for k in range(min(half, HARMONICS)):
        re = sum(x * circle[k * n % count][0] for n, x in enumerate(samples)) / count
        im = -sum(x * circle[k * n % count][1] for n, x in enumerate(samples)) / count
        times = 1 if k == 0 else 2
        rows.append((k, times * re, times * im, times * sqrt(re * re + im * im),
                     times * atan(im / re) * RAD_TO_DEG if abs(re) > mpf("0.001") * abs(im) else None))
    largest = max(row[3] for row in rows)
    # The phase of what is hardly there means nothing.
    return [row if row[3] > mpf("1e-4") * largest and row[0] > 0 else row[:4] + (None,) for row in rows]


def main():
    functions, lines = [], []
    for row, function, component in CASES:
        motion = [Position(row, *at) for at in drive(row)]
        samples = [FUNCTIONS[function, component](row, at) for at in motion[1:]]
        functions.append([row[name] for name in INPUTS] +
                         [function, component, len(samples), digits(max(abs(x) for x in samples))])
        lines += [[row["Name"], k] + ["" if x is None else digits(x) for x in figures]
                  for k, *figures in harmonics(samples)]
    write("transform_functions.csv", INPUTS + ["Function", "Component", "Samples", "Largest"], functions)
    write("transform.csv", ["Name", "Harmonic", "Real", "Imag", "Mag", "Phase"], lines)


if __name__ == "__main__":
    main()
