#!/usr/bin/env python3
"""Computes the forces of a set of loaded four-bar linkages to 40 digits, for dynamics/reference_test.cpp.

Needs what kinematics.py needs, whose exact positions it takes. Run it without arguments; it rewrites
loaded_linkages.csv and dynamics.csv beside itself. The tests read those files and need no Python.

The program takes moments about the mass centres and solves nine equations at once. Here moments are taken about the
pivots: of link 4 about O4 and of link 3 about A, which leaves two unknowns; the other pins follow link by link. The
driving torque comes from the power of all inertia and external forces. What must then hold besides is checked at
every position, to 20 digits: the moments of link 2 about O2; that the shaking force of an unloaded linkage is the
loss of its momentum, differenced in time; and that with full counterweights, found by sharing link 3 between its
pins, no shaking force is left.
"""

from mpmath import arg, conj, cos, exp, mpc, mpf, sin

from kinematics import (DEFAULT, DEG_TO_RAD, DOUBLE_CRANK, INPUTS, PRESS_MM, RAD_TO_DEG, TRIPLE_ROCKER, Position,
                        digits, drive, linkage, single, write)

SMALL = mpf(10) ** -20
I = mpc(0, 1)


# ---- The linkages with their masses and loads. Lengths are stored ones, angles of mass centres radians. ----

PER_LINK = ["Mass", "Inertia", "CG", "CGAngle"]
PER_LOAD = ["Force", "ForceAngle", "ForceDist", "ForceDistAngle", "Torque"]
MASSES = ([f"{name}{link}" for link in (2, 3, 4) for name in PER_LINK] +
          [f"{name}{link}" for link in (3, 4) for name in PER_LOAD] + ["Friction"])

INCHES = dict(Mass2="0.003", Inertia2="0.028", CG2="0.5", CGAngle2="0.15", Mass3="0.006", Inertia3="0.22", CG3="0.9",
              CGAngle3="-0.87266463", Mass4="0.0075", Inertia4="0.129", CG4="1", CGAngle4="0.4")
METRES = dict(Mass2="1.2", Inertia2="0.0031", CG2="0.02", CGAngle2="3", Mass3="2.5", Inertia3="0.012", CG3="0.09",
              CGAngle3="0.5", Mass4="1.8", Inertia4="0.0055", CG4="0.075", CGAngle4="-0.2")
LOADS = dict(Force3="5", ForceAngle3="40", ForceDist3="0.8", ForceDistAngle3="35", Torque3="1.5", Force4="3",
             ForceAngle4="-115", ForceDist4="0.6", ForceDistAngle4="-50", Torque4="-2.25")
LOADS_METRES = dict(Force3="120", ForceAngle3="-70", ForceDist3="0.05", ForceDistAngle3="80", Torque3="-4",
                    Force4="95", ForceAngle4="160", ForceDist4="0.03", ForceDistAngle4="10", Torque4="6.5")
STEPS = dict(First="45", Last="405", Increment="20")


def loaded(name, lengths, *masses, **more):
    row = linkage(name, lengths)
    row.update({field: "0" for field in MASSES})
    for change in (*masses, more):
        row.update(change)
    assert set(row) == set(INPUTS + MASSES), set(row) ^ set(INPUTS + MASSES)
    return row


LOADED = [
    loaded("inches", DEFAULT, INCHES, STEPS),
    loaded("inches crossed", DEFAULT, INCHES, STEPS, Circuit=2),
    loaded("inches backwards with the ground turned", DEFAULT, INCHES, STEPS, Omega2="-7.5", Link1Angle="30"),
    loaded("inches with loads", DEFAULT, INCHES, LOADS, STEPS),
    loaded("inches crossed with loads and the ground turned", DEFAULT, INCHES, LOADS, STEPS, Circuit=2,
           Link1Angle="-110"),
    loaded("inches with friction", DEFAULT, INCHES, STEPS, Friction="2"),
    loaded("inches with friction backwards", DEFAULT, INCHES, STEPS, Friction="2", Omega2="-10"),
    loaded("loads alone", DEFAULT, LOADS, STEPS),
    loaded("feet with loads", DEFAULT, INCHES, LOADS, STEPS, Units=2),
    loaded("metres with loads", PRESS_MM, METRES, LOADS_METRES, STEPS, Units=3),
    loaded("centimetres with loads", PRESS_MM, METRES, LOADS_METRES, STEPS, Units=4),
    loaded("millimetres with loads and friction", PRESS_MM, METRES, LOADS_METRES, STEPS, Units=5, Friction="15"),
    loaded("millimetres crossed", PRESS_MM, METRES, STEPS, Units=5, Circuit=2, Link1Angle="30"),
    loaded("double crank with loads", DOUBLE_CRANK, INCHES, LOADS, STEPS),
    loaded("triple rocker with loads", TRIPLE_ROCKER, INCHES, LOADS, First="-90", Last="90", Increment="15",
           Omega2="3"),
    loaded("time steps", DEFAULT, INCHES, LOADS, Calctype=2, Last="1.9", Increment="0.1", Alpha2="-5"),
    loaded("one position", DEFAULT, INCHES, LOADS, Calctype=1, First="0", Last="0", Increment="0", ThetaZero="67.5",
           Alpha2="40", Friction="2"),
]


# ---- Vectors are complex numbers in the frame of the ground link, with O2 at 0. ----

def cross(a, b):
    return (conj(a) * b).imag


def dot(a, b):
    return (conj(a) * b).real


class Body:
    """A link that turns about a moving pivot, with its mass centre at an arm from there."""

    def __init__(self, mass, inertia, radius, angle, pivot, theta, omega, alpha):
        arm = radius * exp(I * (theta + angle))
        place, velocity, acceleration = pivot
        self.mass, self.inertia, self.omega, self.alpha, self.theta = mass, inertia, omega, alpha, theta
        self.place = place + arm
        self.relative = I * omega * arm
        self.velocity = velocity + self.relative
        self.acceleration = acceleration + (I * alpha - omega * omega) * arm
        self.force, self.moment = mass * self.acceleration, inertia * alpha

    def power(self):
        return dot(self.force, self.velocity) + self.moment * self.omega

    def moment_about(self, point):
        return cross(self.place - point, self.force) + self.moment


class Load:
    """Forces on a link that act together at an arm from its mass centre, and a torque."""

    def __init__(self, force=mpc(0), arm=mpc(0), torque=mpf(0), central=mpc(0)):
        self.force, self.arm, self.torque, self.central = force, arm, torque, central

    def total(self):
        return self.force + self.central

    def moment(self):
        return cross(self.arm, self.force) + self.torque

    def moment_about(self, body, point):
        return cross(body.place - point, self.total()) + self.moment()

    def power(self, body):
        return dot(self.total(), body.velocity) + self.moment() * body.omega


def bodies(row, at, masses):
    """`masses` gives mass, inertia, radius and angle of a link by its number."""
    still, a = (mpc(0), mpc(0), mpc(0)), (mpc(*at.a), mpc(*at.va), mpc(*at.aa))
    o4 = (mpc(single(row["L1"])), mpc(0), mpc(0))
    return (Body(*masses(2), still, at.theta2, at.omega2, at.alpha2),
            Body(*masses(3), a, at.theta3, at.omega3, at.alpha3), Body(*masses(4), o4, at.theta4, at.omega4, at.alpha4))


def loads(row, at, link3, link4):
    def of(link, body):
        angle = single(row[f"ForceAngle{link}"]) * DEG_TO_RAD
        magnitude = single(row[f"Force{link}"])
        force = mpc(single(magnitude * cos(angle)), single(magnitude * sin(angle)))
        arm = single(row[f"ForceDist{link}"]) * exp(
            I * (single(row[f"ForceDistAngle{link}"]) * DEG_TO_RAD + body.theta))
        return Load(force, arm, single(row[f"Torque{link}"]))

    on3, on4 = of(3, link3), of(4, link4)
    travel = mpc(*at.vp)
    on3.central = -single(row["Friction"]) * travel / abs(travel)
    return on3, on4


class Forces:
    """The nine unknowns."""

    def __init__(self, row, at, links, on3, on4):
        l2, l3, l4 = links
        a, b, o4 = mpc(*at.a), mpc(*at.b), mpc(single(row["L1"]))
        # (B - O4) x (-F43) and (B - A) x F43 are known.
        known4 = l4.moment_about(o4) - on4.moment_about(l4, o4)
        known3 = l3.moment_about(a) - on3.moment_about(l3, a)
        p, q = o4 - b, b - a
        det = cross(p, q)
        self.f43 = (q * known4 - p * known3) / det
        self.f32 = self.f43 + on3.total() - l3.force
        self.f12 = l2.force - self.f32
        self.f14 = l4.force + self.f43 - on4.total()
        power = sum(link.power() for link in links) - on3.power(l3) - on4.power(l4)
        self.t12 = power / l2.omega
        scale = sum(abs(f) for f in (self.f12, self.f32, self.f43, self.f14)) + SMALL
        assert abs(cross(p, self.f43) - known4) + abs(cross(q, self.f43) - known3) < SMALL * scale
        assert abs(cross(a, self.f32) + self.t12 - l2.moment_about(0)) < SMALL * scale * abs(a)
        self.scale = scale
        self.shaking = -self.f12 - self.f14


def check_momentum(row, at, links, forces, masses):
    """The shaking force without loads is minus the change of momentum, here from just before to just after."""
    h = mpf(10) ** -12

    def momentum(t):
        theta = at.theta2 + at.omega2 * t + at.alpha2 * t * t / 2
        then = bodies(row, Position(row, theta, at.omega2 + at.alpha2 * t, at.alpha2), masses)
        return sum(link.mass * link.velocity for link in then)

    change = (momentum(h) - momentum(-h)) / (2 * h)
    assert abs(forces.shaking + change) < SMALL * (forces.scale + 1), (row["Name"], forces.shaking + change)


def counterweights(row, masses):
    """Complex mass-radius products of links 2 and 4 in their own frames. Link 3 acts as a mass at A and one at B,
    both complex numbers in its frame; so does the product that must be 0 on each side."""
    l2, l3, l4 = (single(row[f"L{i}"]) for i in (2, 3, 4))

    def product(link):
        mass, _, radius, angle = masses(link)
        return mass * radius * exp(I * angle)

    at_b = product(3) / l3
    at_a = masses(3)[0] - at_b
    return {2: -at_a * l2 - product(2), 4: -at_b * l4 - product(4)}


def results(row):
    shown = {4: 100, 5: 1000}.get(row["Units"], 1)

    def masses(link):
        return tuple(single(row[f"{name}{link}"]) for name in PER_LINK)

    needed = counterweights(row, masses)

    def weights(link):
        if link == 3:
            return mpf(0), mpf(0), masses(3)[2], masses(3)[3]
        radius = single(row[f"L{link}"]) / 2
        mass = abs(needed[link]) / radius
        return mass, mass * radius ** 2, radius, arg(needed[link])

    for step, (theta2, omega2, alpha2) in enumerate(drive(row)):
        at = Position(row, theta2, omega2, alpha2)
        links = bodies(row, at, masses)
        on3, on4 = loads(row, at, links[1], links[2])
        f = Forces(row, at, links, on3, on4)
        unloaded = Forces(row, at, links, Load(), Load())
        check_momentum(row, at, links, unloaded, masses)
        balance = Forces(row, at, bodies(row, at, weights), Load(), Load())
        assert abs(unloaded.shaking + balance.shaking) < SMALL * (unloaded.scale + balance.scale), row["Name"]

        line = [row["Name"], step]
        for vector in (f.f12, f.f32, f.f43, f.f14, f.shaking):
            line += [digits(vector.real), digits(vector.imag)]
        link4 = links[2]
        arm = mpc(single(row["L1"])) - link4.place
        line += [digits(f.t12), digits(-links[1].moment + on3.torque + cross(on3.arm, on3.force)),
                 digits(-link4.moment + on4.moment()), digits(cross(arm, f.f14) - f.t12)]
        for link in links:
            velocity = shown * link.velocity
            line += [digits(velocity.real), digits(velocity.imag)]
            line += [digits(shown * link.acceleration.real), digits(shown * link.acceleration.imag)]
        for vector in (balance.f12, balance.f14):
            line += [digits(vector.real), digits(vector.imag)]
        line += [digits(balance.t12), digits(at.sin34), digits(f.scale)]
        yield line


RESULTS = (["Name", "Step"] + [f"{name} {axis}" for name in ("F12", "F32", "F43", "F14", "Shaking") for axis in "XY"] +
           ["T12", "T3", "T4", "Moment"] +
           [f"{name} CG{link} {axis}" for link in (2, 3, 4) for name in ("Veloc", "Accel") for axis in "XY"] +
           ["Balance F12 X", "Balance F12 Y", "Balance F14 X", "Balance F14 Y", "Balance T12", "Sin34", "Scale"])


def needs(row):
    found = counterweights(row, lambda link: tuple(single(row[f"{name}{link}"]) for name in PER_LINK))
    return [digits(x) for link in (2, 4) for x in (abs(found[link]), arg(found[link]) * RAD_TO_DEG)]


def main():
    head = INPUTS + MASSES
    write("loaded_linkages.csv", head + ["MR2", "MRAngle2", "MR4", "MRAngle4"],
          [[row[name] for name in head] + needs(row) for row in LOADED])
    write("dynamics.csv", RESULTS, [line for row in LOADED for line in results(row)])


if __name__ == "__main__":
    main()
