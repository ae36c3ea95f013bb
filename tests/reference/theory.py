#!/usr/bin/env python3
"""The numbered formulas of the manual's chapter on theory, computed as they stand there and compared with the program.

    theory.py VERLINK_BATCH

Needs nothing but Python. Each difference is measured against what single precision leaves; the names are those of the
formulas. Prints a line for each and ends with status 1 when one is off.
"""

import cmath
import csv
import io
import math
import subprocess
import sys

DEG = math.pi / 180
PROGRAM = sys.argv[1]
worst = {}


def run(*arguments):
    made = subprocess.run([PROGRAM, *arguments], check=True, capture_output=True, text=True)
    return [{name: float(value) if _is_number(value) else value for name, value in row.items()}
            for row in csv.DictReader(io.StringIO(made.stdout))]


def _is_number(text):
    try:
        float(text)
        return True
    except (TypeError, ValueError):
        return False


def same(name, ours, theirs, scale=1.0, bound=2e-5):
    """Complex or real; the difference over the scale of such numbers."""
    off = abs(ours - theirs) / max(scale, abs(ours), abs(theirs), 1e-30)
    worst[name] = max(worst.get(name, (0.0, bound)), (off, bound))


def same_angle(name, ours, theirs, bound=2e-5):
    same(name, math.remainder(ours - theirs, 360) / 360, 0, 1, bound)


def turn(radians):
    return cmath.exp(1j * radians)


def cross(r, f):
    return r.real * f.imag - r.imag * f.real


def pair(row, name):
    return complex(row[name + " X"], row[name + " Y"])


def solved(L1, L2, L3, L4, th2, sigma):
    """th3 and th4 by eq-constants, eq-quadratics and eq-angles."""
    K1, K2, K3 = L1 / L2, L1 / L4, (L1**2 + L2**2 - L3**2 + L4**2) / (2 * L2 * L4)
    K4, K5 = L1 / L3, (L4**2 - L1**2 - L2**2 - L3**2) / (2 * L2 * L3)
    c = math.cos(th2)
    A, B, C = c - K1 - K2 * c + K3, -2 * math.sin(th2), K1 - (K2 + 1) * c + K3
    D, E, F = c - K1 + K4 * c + K5, B, K1 + (K4 - 1) * c + K5
    th4 = 2 * math.atan((-B + sigma * math.sqrt(B * B - 4 * A * C)) / (2 * A))
    th3 = 2 * math.atan((-E + sigma * math.sqrt(E * E - 4 * D * F)) / (2 * D))
    same("eq-freudenstein", K1 * math.cos(th4) - K2 * c + K3, math.cos(th2 - th4), 1, 1e-10)
    same("eq-loop", L2 * turn(th2) + L3 * turn(th3) - L4 * turn(th4) - L1, 0, L1, 1e-10)
    return th3, th4


LINKAGE = dict(L1=18.0, L2=6.0, L3=16.0, L4=12.0, R=14.42, delta=33.7)
MASSES = {2: (0.0021, 0.031, 2.8, 30.0), 3: (0.0062, 0.45, 8.5, 20.0), 4: (0.0037, 0.29, 5.5, -25.0)}
LOADS = {3: (12.0, 250.0, 3.0, 40.0, -15.0), 4: (7.0, 80.0, 2.0, 110.0, 9.0)}
FRICTION = 1.5
GROUND = 20.0
OMEGA = 10.0


def fields():
    """Stored as a model keeps them: angles of mass centres are radians, the others degrees."""
    l = LINKAGE
    given = {"L1": l["L1"], "L2": l["L2"], "L3": l["L3"], "L4": l["L4"], "Rpa": l["R"], "Delta": l["delta"],
             "PolarCoords": "TRUE", "Link1Angle": GROUND, "Link1AngleRad": GROUND * DEG, "Calctype": 3,
             "Omega2Input": OMEGA, "ThetaStartStr": 45, "ThetaEndStr": 405, "ThetaStepStr": 6, "FrictionForce": FRICTION}
    for link, (mass, inertia, distance, angle) in MASSES.items():
        given.update({f"LinkMass({link})": mass, f"LinkInertia({link})": inertia, f"CG({link},0)": distance,
                      f"CG({link},1)": angle * DEG})
    for link, (force, angle, distance, at, torque) in LOADS.items():
        given.update({f"ExtForceMag({link})": force, f"ExtForceAng({link})": angle, f"ForceDist{link}": distance,
                      f"ForceAng{link}": at, f"ExtTorque({link})": torque})
    return [argument for name, value in given.items() for argument in ("--set", f"{name}={value}")]


def check_motion(row, circuit):
    l = LINKAGE
    L1, L2, L3, L4, R, delta = l["L1"], l["L2"], l["L3"], l["L4"], l["R"], l["delta"] * DEG
    out = turn(GROUND * DEG)
    th2 = (row["Theta2"] - GROUND) * DEG
    w2, a2 = row["Omega2"], row["Alpha2"]
    th3, th4 = solved(L1, L2, L3, L4, th2, -1 if circuit == 1 else 1)
    same_angle("eq-angles", th3 / DEG + GROUND, row["Theta3"])
    same_angle("eq-angles", th4 / DEG + GROUND, row["Theta4"])
    mu = abs(math.remainder(th4 - th3, 2 * math.pi)) / DEG
    same("transmission", 180 - mu if mu > 90 else mu, row["Trans Ang"], 90)
    P = L2 * turn(th2) + R * turn(th3 + delta)
    same("eq-points", P * out, pair(row, "Coupler Pt"), L1)
    w3 = w2 * L2 / L3 * math.sin(th4 - th2) / math.sin(th3 - th4)
    w4 = w2 * L2 / L4 * math.sin(th2 - th3) / math.sin(th4 - th3)
    same("eq-omegas", w3, row["Omega3"], OMEGA)
    same("eq-omegas", w4, row["Omega4"], OMEGA)
    same("ratios", w4 / w2, row["w4 / w2"], 1)
    same("ratios", w2 / w4, row["T4 / T2"], 1, 2e-3 if abs(w4) < 0.1 else 2e-4)
    vA, vB = 1j * w2 * L2 * turn(th2), 1j * w4 * L4 * turn(th4)
    vP = vA + 1j * w3 * R * turn(th3 + delta)
    for name, value in (("Veloc I 2,3", vA), ("Veloc I 3,4", vB), ("Veloc CP", vP)):
        same("eq-velocities", value * out, pair(row, name), OMEGA * L2)
    c1, c2, c4, c5 = L4 * math.sin(th4), L3 * math.sin(th3), L4 * math.cos(th4), L3 * math.cos(th3)
    c3 = L2 * a2 * math.sin(th2) + L2 * w2**2 * math.cos(th2) + L3 * w3**2 * math.cos(th3) - L4 * w4**2 * math.cos(th4)
    c6 = L2 * a2 * math.cos(th2) - L2 * w2**2 * math.sin(th2) - L3 * w3**2 * math.sin(th3) + L4 * w4**2 * math.sin(th4)
    a3, a4 = (c3 * c4 - c1 * c6) / (c1 * c5 - c2 * c4), (c3 * c5 - c2 * c6) / (c1 * c5 - c2 * c4)
    same("eq-alphas", a3, row["Alpha3"], OMEGA**2)
    same("eq-alphas", a4, row["Alpha4"], OMEGA**2)
    aA, aB = (1j * a2 - w2**2) * L2 * turn(th2), (1j * a4 - w4**2) * L4 * turn(th4)
    aP = aA + (1j * a3 - w3**2) * R * turn(th3 + delta)
    for name, value in (("Accel I 2,3", aA), ("Accel I 3,4", aB), ("Accel CP", aP)):
        same("eq-accelerations", value * out, pair(row, name), OMEGA**2 * L2)
    return (th2, th3, th4), (w2, w3, w4), (a2, a3, a4), vP, aA


def solve(matrix, right):
    """Gauss with pivots."""
    rows = [list(row) + [value] for row, value in zip(matrix, right)]
    n = len(rows)
    for i in range(n):
        pivot = max(range(i, n), key=lambda r: abs(rows[r][i]))
        rows[i], rows[pivot] = rows[pivot], rows[i]
        for r in range(n):
            if r != i:
                factor = rows[r][i] / rows[i][i]
                rows[r] = [x - factor * y for x, y in zip(rows[r], rows[i])]
    return [rows[i][n] / rows[i][i] for i in range(n)]


def check_forces(row):
    (th2, th3, th4), w, a, vP, aA = check_motion(row, 1)
    out = turn(GROUND * DEG)
    l = LINKAGE
    lines = {2: l["L2"] * turn(th2), 3: l["L3"] * turn(th3), 4: l["L4"] * turn(th4)}
    ths = {2: th2, 3: th3, 4: th4}
    r = {j: MASSES[j][2] * turn(ths[j] + MASSES[j][3] * DEG) for j in MASSES}
    centre = {2: (1j * a[0] - w[0]**2) * r[2], 3: aA + (1j * a[1] - w[1]**2) * r[3], 4: (1j * a[2] - w[2]**2) * r[4]}
    for j in MASSES:
        same("eq-centres", centre[j] * out, pair(row, f"Accel CG {j}"), 600)
    force = {j: LOADS[j][0] * turn(LOADS[j][1] * DEG) for j in LOADS}  # the angle as it is typed
    arm = {j: LOADS[j][2] * turn(ths[j] + LOADS[j][3] * DEG) for j in LOADS}
    friction = -FRICTION * vP / abs(vP)
    matrix, right = [], []

    def equation(coefficients, value):
        line = [0.0] * 9
        for at, number in coefficients.items():
            line[at] += number
        matrix.append(line)
        right.append(value)

    def moment(at, lever, sign=1):  # of the force whose x is unknown `at`
        return {at: -sign * lever.imag, at + 1: sign * lever.real}

    F12, F32, F43, F14, T12 = 0, 2, 4, 6, 8
    inertia = {j: MASSES[j][0] * centre[j] for j in MASSES}
    for axis in (0, 1):
        part = (lambda v: v.real) if axis == 0 else (lambda v: v.imag)
        equation({F12 + axis: 1, F32 + axis: 1}, part(inertia[2]))
        equation({F43 + axis: 1, F32 + axis: -1}, part(inertia[3] - force[3] - friction))
        equation({F14 + axis: 1, F43 + axis: -1}, part(inertia[4] - force[4]))
    equation({**moment(F12, r[2], -1), **moment(F32, lines[2] - r[2]), T12: 1}, MASSES[2][1] * a[0])
    equation({**moment(F32, r[3]), **moment(F43, lines[3] - r[3])},
             MASSES[3][1] * a[1] - cross(arm[3], force[3]) - LOADS[3][4])
    equation({**moment(F43, lines[4] - r[4], -1), **moment(F14, r[4], -1)},
             MASSES[4][1] * a[2] - cross(arm[4], force[4]) - LOADS[4][4])
    x = solve(matrix, right)
    vectors = {name: complex(x[at], x[at + 1]) for name, at in
               (("Force 12", F12), ("Force 32", F32), ("Force 43", F43), ("Force 14", F14))}
    for name, value in vectors.items():
        same("eq-link2 to eq-link4", value * out, pair(row, name), 10, 1e-4)
    same("eq-link2 to eq-link4", x[T12], row["Torque 12"], 50, 1e-4)
    same("eq-shaking", (-vectors["Force 12"] - vectors["Force 14"]) * out, pair(row, "F Shaking"), 10, 1e-4)
    same("eq-shaking", cross(-r[4], vectors["Force 14"]) - x[T12], row["M Shaking"], 50, 1e-4)
    return x[T12]


def check_pole(first, row):
    def local(r, name):
        return pair(r, name) / turn(GROUND * DEG)

    l = LINKAGE
    th2, th4 = ((row[name] - GROUND) * DEG for name in ("Theta2", "Theta4"))
    pole = l["L1"] * math.sin(th4) / math.sin(th4 - th2) * turn(th2)
    same("eq-pole", pole, local(row, "Fixed Centrode"), abs(pole), 3e-4)
    A0, A = (l["L2"] * turn((r["Theta2"] - GROUND) * DEG) for r in (first, row))
    moving = A0 + (pole - A) * turn((first["Theta3"] - row["Theta3"]) * DEG)
    same("eq-moving", moving, local(row, "Moving Centrode"), abs(pole), 3e-4)


def check_run():
    for circuit in (1, 2):
        base = ["--example", "grashof", *fields(), "--set", f"CircuitIndex={circuit}"]
        for row in run(*base):
            check_motion(row, circuit)
    base = ["--example", "grashof", *fields()]
    rows = run(*base, "--dynamics")
    for row in rows:
        check_forces(row)
        if abs(math.sin((row["Theta4"] - row["Theta2"]) * DEG)) > 0.05:
            check_pole(rows[0], row)
    start, rate, jerk = 30.0, 4.0, 1.5
    for row in run(*base, *[a for f, v in {"Calctype": 2, "TimeStart": 0, "TimeEnd": 1, "TimeStep": 0.05, "Alpha2": jerk,
                                           "ThetaZero": start, "Omega2Input": rate}.items() for a in ("--set", f"{f}={v}")]):
        t = row["Time"]
        same_angle("eq-time", start + (rate * t + jerk * t * t / 2) / DEG, row["Theta2"])
        same("eq-time", rate + jerk * t, row["Omega2"], rate)


def check_balance():
    base = ["--example", "grashof", *fields()]
    l = LINKAGE
    m3, _, r3, phi3 = MASSES[3]
    for row in run(*base, "--balance-report"):
        j = int(row["Link"])
        ratio = l[f"L{j}"] / l["L3"]
        need = m3 * (r3 * ratio * turn(phi3 * DEG) - l["L2"]) if j == 2 else -m3 * r3 * ratio * turn(phi3 * DEG)
        weight = need - MASSES[j][0] * MASSES[j][2] * turn(MASSES[j][3] * DEG)
        same("eq-balance", abs(weight), row["MRNeeded"], abs(need))
        same_angle("eq-counterweight", cmath.phase(weight) / DEG, row["MRAngleDegrees"])
    unloaded = [a for f in ("ExtForceMag(3)", "ExtForceMag(4)", "ExtTorque(3)", "ExtTorque(4)", "FrictionForce")
                for a in ("--set", f"{f}=0")]
    for row in run(*base, *unloaded, "--balance"):
        same("no shaking force is left", abs(pair(row, "F Shk Balcd")), 0, abs(pair(row, "F Shaking")), 1e-4)


def check_cognates():
    for name, (L1, L2, L3, L4, R, delta) in {"grashof": (18, 6, 16, 12, 14.42, 33.7),
                                             "roberts": (2, 1, 1, 1, 1.5, -70.529)}.items():
        rows = run("--example", name, "--cognates")
        Rb = math.sqrt(L3**2 + R**2 - 2 * L3 * R * math.cos(delta * DEG))
        for row, side in ((rows[1], R), (rows[2], Rb)):
            near, far = sorted((side, side * (L4 if side is R else L2) / L3))
            coupler = side * (L2 if side is R else L4) / L3
            for ours, theirs in ((near, "L2"), (far, "L4"), (coupler, "L3"), (L1 * side / L3, "L1")):
                same("eq-cognates", ours, row[theirs], L1, 1e-4)


def check_transform():
    samples = [row["Omega4"] for row in run("--example", "grashof", "--set", "ThetaStepStr=2")][1:]
    n = len(samples)
    for row in run("--example", "grashof", "--set", "ThetaStepStr=2", "--fft", "Omega4"):
        k = int(row["Harmonic"])
        if k > 20:
            continue
        X = sum(x * cmath.exp(-2j * math.pi * k * i / n) for i, x in enumerate(samples)) / n * (1 if k == 0 else 2)
        same("eq-transform", X, complex(row["Real"], row["Imag"]), 1, 1e-4)


def check_toggle():
    L1, L2, L3, L4 = 2.0, 1.0, 1.0, 1.0
    plus = (L1**2 + L2**2 - L3**2 - L4**2) / (2 * L1 * L2) + L3 * L4 / (L1 * L2)
    minus = plus - 2 * L3 * L4 / (L1 * L2)
    angle = math.acos(plus if abs(plus) <= 1 else minus) / DEG
    for degrees, closes in ((angle - 0.5, 1), (angle + 0.5, 0)):
        made = subprocess.run([PROGRAM, "--example", "roberts", "--set", f"ThetaZero={degrees}", "--set", "Calctype=1"],
                              capture_output=True, text=True)
        rows = list(csv.DictReader(io.StringIO(made.stdout)))
        assembled = int(rows[0]["Assembled"]) if rows else 0
        same("eq-toggle", assembled, closes, 1, 0.5)


def check_dyads():
    """The positions of the manual's worked example, and that what comes out takes them."""
    P = {2: complex(-0.575, 0.803), 3: complex(-1.928, 0.553)}
    alpha, beta, gamma = {2: -8.686, 3: -10.961}, {2: 45.0, 3: 90.0}, {2: 3.355, 3: 14.972}

    def dyad(b):
        e = {j: (turn(b[j] * DEG) - 1, turn(alpha[j] * DEG) - 1) for j in (2, 3)}
        det = e[2][0] * e[3][1] - e[3][0] * e[2][1]
        W = (P[2] * e[3][1] - P[3] * e[2][1]) / det
        Z = (P[3] * e[2][0] - P[2] * e[3][0]) / det
        for j in (2, 3):
            same("eq-dyad", W * e[j][0] + Z * e[j][1], P[j], 1, 1e-10)
        same("eq-vector", (P[2] - Z * e[2][1]) / e[2][0], W, 1, 1e-10)
        R = {1: W + Z, 2: W + Z + P[2], 3: W + Z + P[3]}
        a, g = {j: turn(alpha[j] * DEG) for j in alpha}, {j: turn(b[j] * DEG) for j in b}
        same("eq-pivots", R[1] * (a[3] * g[2] - a[2] * g[3]) + R[2] * (g[3] - a[3]) + R[3] * (a[2] - g[2]), 0, 1, 1e-10)
        return W, Z

    (W, Z), (U, S) = dyad(beta), dyad(gamma)
    L1 = W + Z - U - S
    L2, L3, L4, R = abs(W), abs(Z - S), abs(U), abs(Z)
    delta = (cmath.phase(Z) - cmath.phase(Z - S)) / DEG
    start = (cmath.phase(W) - cmath.phase(L1)) / DEG
    given = {"L1": abs(L1), "L2": L2, "L3": L3, "L4": L4, "Rpa": R, "Delta": delta, "Calctype": 3, "PolarCoords": "TRUE", "Link1Angle": 0,
             "ThetaStartStr": start, "ThetaEndStr": start + 90, "ThetaStepStr": 45, "Omega2Input": 1}
    rows = run("--example", "grashof", *[a for f, v in given.items() for a in ("--set", f"{f}={v if isinstance(v, str) else round(v, 7)}")])
    back = turn(cmath.phase(L1))
    at = [pair(row, "Coupler Pt") * back for row in rows]
    for j in (2, 3):
        same("eq-assembled", at[j - 1] - at[0], P[j], 1, 2e-4)
        same_angle("eq-assembled", rows[j - 1]["Theta3"] - rows[0]["Theta3"], alpha[j], 2e-5)


def main():
    for check in (check_run, check_balance, check_cognates, check_transform, check_toggle, check_dyads):
        check()
    failed = False
    for name, (off, bound) in worst.items():
        failed |= off > bound
        print(f"{'off ' if off > bound else 'good'}  {name:28} {off:.1e} of {bound:.0e}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
