#!/usr/bin/env python3
"""Coefficients of core/trigonometry.h, and what its functions must give: trigonometry.csv, to 40 digits.

The polynomials are near-minimax: fitted at the extremes of a Chebyshev polynomial, in 60 digits.
"""

import csv
import pathlib
import random
import sys

import mpmath as mp

mp.mp.dps = 60


def fit(function, end, count):
    """Coefficients, lowest first, of the polynomial in z of so many terms that fits function(z) on 0 to end."""
    coefficients, error = mp.chebyfit(function, [mp.mpf(10) ** -25, end], count, error=True)
    return [float(c) for c in reversed(coefficients)], float(error)


def sine_tail(z):
    """sin(r) = r + r z S(z), z = r^2."""
    r = mp.sqrt(z)
    return (mp.sin(r) - r) / (r * z)


def cosine_tail(z):
    """cos(r) = 1 - z / 2 + z^2 C(z)."""
    return (mp.cos(mp.sqrt(z)) - 1 + z / 2) / (z * z)


def arc_tail(z):
    """atan(t) = t + t z A(z), z = t^2."""
    t = mp.sqrt(z)
    return (mp.atan(t) - t) / (t * z)


def high_part(x, bits):
    """x cut to so many significant bits."""
    scale = mp.mpf(2) ** (bits - 1 - int(mp.floor(mp.log(abs(x), 2))))
    return mp.floor(x * scale) / scale


def print_constants():
    quarter = (mp.pi / 4 * mp.mpf("1.000001")) ** 2
    for name, function, end, count in (
        ("Sine", sine_tail, quarter, 6),
        ("Cosine", cosine_tail, quarter, 6),
        ("Arc", arc_tail, mp.tan(mp.pi / 8) ** 2 * mp.mpf("1.000001"), 11),
    ):
        coefficients, error = fit(function, end, count)
        print(name, [repr(c) for c in coefficients], "error of the tail", error)
    rest = mp.pi / 2
    for part in range(2):
        cut = high_part(rest, 33)
        print("half pi, part", part + 1, float(cut).hex())
        rest -= cut
    print("half pi, part 3", float(rest).hex())
    for name, x in (("half pi", mp.pi / 2), ("quarter pi", mp.pi / 4)):
        print(name, float(x).hex(), "rest", float(x - mp.mpf(float(x))).hex())


def arguments(seed):
    """Doubles from everywhere: small, around the quarters of a turn, and of many turns."""
    generator = random.Random(seed)
    for _ in range(400):
        yield generator.uniform(-1, 1) * 10.0 ** generator.uniform(-12, 0)
        yield generator.uniform(-7, 7)
        yield generator.uniform(-1.5e6, 1.5e6)
        yield generator.randrange(-100, 100) * float(mp.pi / 4) + generator.uniform(-1, 1) * 10.0 ** generator.uniform(-15, -2)


def write_figures(path):
    with path.open("w", newline="", encoding="utf-8") as file:
        rows = csv.writer(file)
        rows.writerow(["x", "sine", "cosine", "arc_tangent"])
        for x in arguments(20260101):
            exact = mp.mpf(x)
            rows.writerow([repr(x)] + [mp.nstr(f(exact), 40) for f in (mp.sin, mp.cos, mp.atan)])


if __name__ == "__main__":
    if "--constants" in sys.argv:
        print_constants()
    else:
        write_figures(pathlib.Path(__file__).with_suffix(".csv"))
