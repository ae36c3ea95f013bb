#!/usr/bin/env python3
"""Writes the table of worked cases for the manual, each computed anew by the program.

    verification.py VERLINK_BATCH FILE

A case that differs by more than it may is told and ends the build.
"""

import csv
import io
import math
import pathlib
import subprocess
import sys

PROGRAM = sys.argv[1]
SINGLE = 2e-6  # of the size of the numbers, where the case says nothing else


def rows(*arguments, **fields):
    sets = [word for name, value in fields.items() for word in ("--set", f"{name.replace('__', '')}={value}")]
    made = subprocess.run([PROGRAM, *arguments, *sets], check=True, capture_output=True, text=True)
    return list(csv.DictReader(io.StringIO(made.stdout)))


def linkage(L1, L2, L3, L4, R=1.0, delta=0.0, **more):
    return {"PolarCoords": "TRUE", "L1": L1, "L2": L2, "L3": L3, "L4": L4, "Rpa": R, "Delta": delta, "Link1Angle": 0,
            "Calctype": 1, "Alpha2": 0, "Omega2Input": 10, **more}


def massless(**more):
    fields = {f"LinkMass({j})": 0 for j in (2, 3, 4)}
    fields.update({f"LinkInertia({j})": 0 for j in (2, 3, 4)})
    fields.update({f"CG({j},{i})": 0 for j in (2, 3, 4) for i in (0, 1)})
    fields.update({f"{name}({j})": 0 for name in ("ExtForceMag", "ExtForceAng", "ExtTorque") for j in (3, 4)})
    return {**fields, "FrictionForce": 0, **more}


def value(row, name):
    return float(row[name])


def right_angles():
    row = rows("--example", "grashof", **linkage(4, 2, 5, 5, ThetaZero=90))[0]
    for name, worked in (("Theta3", math.atan2(3, 4) * 180 / math.pi), ("Theta4", 90), ("Omega3", 0), ("Omega4", 4),
                         ("Alpha3", 30), ("Alpha4", 18), ("w4 / w2", 0.4), ("T4 / T2", 2.5)):
        yield "right angles", "by hand", name, worked, value(row, name), 1e-4 if worked == 0 else SINGLE * max(10, abs(worked))


def power():
    row = rows("--example", "grashof", "--dynamics", **linkage(4, 2, 5, 5, ThetaZero=90),
               **massless(**{"LinkMass(4)": 0.1, "LinkInertia(4)": 0.375, "CG(4,0)": 2.5}))[0]
    yield "power", "by hand", "Torque 12", 7.2, value(row, "Torque 12"), 1e-4


def weight():
    row = rows("--example", "grashof", "--dynamics", **linkage(4, 2, 5, 5, ThetaZero=90, Omega2Input=0),
               **massless(**{"CG(4,0)": 2.5, "ExtForceMag(4)": 10, "ExtForceAng(4)": 270}))[0]
    yield "a weight that stands", "by hand", "Torque 12", 0.0, value(row, "Torque 12"), 1e-4
    yield "a weight that stands", "by hand", "Force 14 Y", 10.0, value(row, "Force 14 Y"), 1e-4


def parallelogram():
    row = rows("--example", "grashof", **linkage(4, 2, 4, 2, R=4, ThetaZero=60))[0]
    for name, worked in (("Trans Ang", 60), ("Theta4", 60), ("Omega3", 0), ("Omega4", 10), ("Alpha4", 0), ("Accel CP Mag", 200)):
        yield "parallelogram", "by hand", name, worked, value(row, name), max(2e-4, 5e-6 * worked)


def toggles():
    """The triple rocker 2, 1, 1, 1 reaches 75.52 degrees, where the cosine is a quarter."""
    worked = math.degrees(math.acos(0.25))
    low, high = worked - 1, worked + 1
    for _ in range(20):
        middle = (low + high) / 2
        made = subprocess.run([PROGRAM, "--example", "roberts", "--set", "Calctype=1", "--set", f"ThetaZero={middle!r}"],
                              capture_output=True, text=True)
        there = list(csv.DictReader(io.StringIO(made.stdout)))
        low, high = (middle, high) if there and there[0]["Assembled"] == "1" else (low, middle)
    yield "triple rocker 2, 1, 1, 1", "by hand", "greatest Theta2", worked, low, 1e-3


def counterweights():
    found = rows("--example", "grashof", "--balance-report", **linkage(18, 6, 16, 12, Calctype=3),
                 **massless(**{"LinkMass(3)": 0.02, "CG(3,0)": 8}))
    for row, length in zip(found, (6, 12)):
        yield "counterweights", "Berkof and Lowen 1969", f"MR product of link {row['Link']}", 0.01 * length, value(
            row, "MRNeeded"), 1e-6


def hoekens():
    run = rows("--example", "hoekens", ThetaStartStr=90, ThetaEndStr=270, ThetaStepStr=1)
    y = [value(row, "Coupler Pt Y") for row in run]
    yield "Hoekens' straight line", "proportions 1, 2, 2.5, 2.5, 5", "Coupler Pt Y at 90, 180, 270", 4.0, max(
        y[0], y[90], y[180], key=lambda place: abs(place - 4)), 1e-5
    yield "Hoekens' straight line", "by hand", "Veloc CP X at 180", -40 / 3, value(run[90], "Veloc CP X"), 1e-4


def cognates():
    second = rows("--example", "hoekens", "--cognates")[1]
    for name, worked in (("L1", 4), ("L2", 5), ("L3", 2), ("L4", 5), ("Rpa", 1)):
        yield "cognate 2 of Hoekens' linkage", "Chebyschev; Roberts 1875", name, float(worked), value(second, name), 1e-5


def synthesis():
    """The three positions of the worked example, reached by the linkage of the formulas."""
    run = rows("--example", "grashof", **linkage(9.370287, 1.998878, 8.620027, 6.996247, 4.304628, 40.11152, Calctype=3,
                                                 Link1Angle=0, ThetaStartStr=30.003359, ThetaEndStr=120.003359,
                                                 ThetaStepStr=45, Omega2Input=1))
    turned = [value(row, "Theta3") - value(run[0], "Theta3") for row in run]
    for at, worked in ((1, -8.686), (2, -10.961)):
        yield "three positions", "Sandor and Erdman 1984", f"turn of the coupler to {at + 1}", worked, turned[at], 1e-3


def transform():
    """A crank alone: the coupler point on A moves in a circle, whose x is one cosine."""
    made = rows("--example", "grashof", "--fft", "Coupler Pt:Mag", **linkage(
        18, 6, 16, 12, R=0, Calctype=3, ThetaStartStr=0, ThetaEndStr=360, ThetaStepStr=2))
    yield "transform of a constant", "by hand", "harmonic 0", 6.0, value(made[0], "Real"), 1e-4
    made = rows("--example", "grashof", "--fft", "Coupler Pt:X", **linkage(
        18, 6, 16, 12, R=0, Calctype=3, ThetaStartStr=0, ThetaEndStr=360, ThetaStepStr=2))
    yield "transform of 6 cos Theta2", "by hand", "harmonic 1, magnitude", 6.0, value(made[1], "Mag"), 1e-4
    yield "transform of 6 cos Theta2", "by hand", "harmonic 1, real part", 6 * math.cos(math.radians(2)), value(
        made[1], "Real"), 1e-4


def number(worked):
    return f"{worked + 0.0:.6g}"


def main():
    lines, off = [], []
    for case in (right_angles, power, weight, parallelogram, toggles, counterweights, hoekens, cognates, synthesis,
                 transform):
        for name, source, what, worked, found, allowed in case():
            lines.append(f"| {name} | {source} | {what} | {number(worked)} | {number(found)} | {allowed:.0e} |")
            if not abs(worked - found) <= allowed:
                off.append(f"{name}, {what}: {found} and not {worked}")
    for words in off:
        print(f"The verification is off: {words}", file=sys.stderr)
    if off:
        return 1
    head = "| Case | Worked | Quantity | Is to be | Verlink gives | May differ by |\n|---|---|---|---|---|---|\n"
    file = pathlib.Path(sys.argv[2])
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text(head + "\n".join(lines) + "\n", encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
