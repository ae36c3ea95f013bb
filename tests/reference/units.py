#!/usr/bin/env python3
"""units.py >units.csv: the unit of each output variable and component in each unit system, by its dimension.

Written without a look at what the program calls them: a variable has a dimension, a system has units of length, force
and time, and torques are in metres in all metric systems. Angles are degrees whatever the variable. A comma in a name is written as a semicolon.
"""
SYSTEMS = [("in", "lb", "in"), ("ft", "lb", "ft"), ("m", "N", "m"), ("cm", "N", "m"), ("mm", "N", "m")]

ANGLES = ["Theta2", "Theta3", "Theta4", "Trans Ang"]
SPEEDS = ["Omega2", "Omega3", "Omega4"]
ACCELERATIONS = ["Alpha2", "Alpha3", "Alpha4"]
RATIOS = ["w4 / w2", "T4 / T2"]
TORQUES = ["Torque 12", "M Shaking", "Torque L3", "Torque L4", "MShk Balcd", "Flywl Torque"]
VECTORS = {
    "{L}/sec": ["Veloc I 2,3", "Veloc I 3,4", "Veloc CP", "Veloc CG 2", "Veloc CG 3", "Veloc CG 4"],
    "{L}/sec^2": ["Accel I 2,3", "Accel I 3,4", "Accel CP", "Accel CG 2", "Accel CG 3", "Accel CG 4"],
    "{L}": ["Coupler Pt"],
    "{F}": ["Force 12", "Force 32", "Force 43", "Force 14", "F Shaking", "F Inertia L2", "F Inertia L3",
            "F Inertia L4", "F Shk Balcd", "F12 Balcd", "F14 Balcd"],
}

print("system,variable,component,unit")
for system, (length, force, arm) in enumerate(SYSTEMS, 1):
    def row(variable, component, unit):
        text = unit.format(L=length, F=force, A=arm)
        print(f"{system},{variable.replace(',', ';')},{component},{text}")
    for names, unit in ((ANGLES, "deg"), (SPEEDS, "rad/sec"), (ACCELERATIONS, "rad/sec^2"), (RATIOS, "ratio"),
                        (TORQUES, "{F}-{A}")):
        for name in names:
            for component in ("X", "Y", "Mag", "Ang"):
                row(name, component, unit)
    for unit, names in VECTORS.items():
        for name in names:
            for component in ("X", "Y", "Mag"):
                row(name, component, unit)
            row(name, "Ang", "deg")
