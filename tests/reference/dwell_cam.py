#!/usr/bin/env python3
"""The cam drive of samples/dwell_cam.sva: the arm rises over 80 degrees of the cam, dwells to 150, returns to 240.

    dwell_cam.py FILE

Rise and return are polynomials of degrees 3, 4 and 5, whose speed and acceleration vanish at both ends. The cam turns at
120 rev/min, a row for every 2 degrees of it. With the linkage that the arm drives, in millimetres, without masses.
"""

import math
import pathlib
import sys

LIFT, SPEED, STEP = 26.0, 4 * math.pi, 2  # degrees, rad/s, degrees of the cam
ARM, ROLLER, CAM = 40, 8, 30  # length of the arm, radius of the roller, size of the cam
LINKS = {"L2": 70, "L3": 120, "L4": 55, "L1": 110}
PHASE = 70  # of the arm at rest, degrees


def lift(angle):
    """(degrees, rad/s, rad/s^2) of the arm at an angle of the cam."""
    for start, end, sign in ((0, 80, 1), (150, 240, -1)):
        if start <= angle <= end:
            u, rate = (angle - start) / (end - start), SPEED / math.radians(end - start)
            place = 10 * u**3 - 15 * u**4 + 6 * u**5
            speed = 30 * u**2 - 60 * u**3 + 30 * u**4
            change = 60 * u - 180 * u**2 + 120 * u**3
            size = sign * math.radians(LIFT)
            return (LIFT if sign < 0 else 0) + sign * LIFT * place, size * speed * rate, size * change * rate**2
    return LIFT if angle < 150 else 0.0, 0.0, 0.0


def number(value):
    return f"{value + 0.0:.6g}"


def main():
    count = 360 // STEP + 1
    period = 2 * math.pi / SPEED
    blank = ['""']
    lines = ["4", "1", number(PHASE), number(ARM), number(CAM), number(ROLLER)]
    lines += ["0", number(period), f"{period / (count - 1):.9g}", '"Fourbar"', "5"] + 7 * blank
    lines += ["0", "-1"] + [number(length) for length in LINKS.values()] + ["0", number(LINKS["L1"]), "0", "6", "-55"]
    lines += 9 * blank + ["0"] + 12 * blank + 30 * blank + [str(count)]
    lines += [",".join(number(round(value, 6)) for value in lift(STEP * row)) for row in range(count)]
    pathlib.Path(sys.argv[1]).write_bytes(("\r\n".join(lines) + "\r\n").encode("ascii"))


if __name__ == "__main__":
    main()
