#!/usr/bin/env python3
"""Ratios of benchmarks to their floors: kept for a machine and a release, and compared.

bench/results.py keep MEASURED.json KEPT.csv
bench/results.py compare MEASURED.json KEPT.csv

A benchmark that measures a floor of its own in turns with the work ("own") is hardly moved by what else the machine does.
The others are told in times of Floor_2881_Steps of the same call, so that a busy machine moves them: they count as slower
by half only.
"""
import csv
import json
import sys

COMMON = "Floor_2881_Steps"
OWN = ("ratio_to_floor", "frame_to_floor")
SLOWER = {"own": 1.2, COMMON: 1.5}
UNITS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}


def ratios(path):
    """{name: (ratio, floor)}; without the common floor, those alone that have their own."""
    with open(path) as file:
        rows = [row for row in json.load(file)["benchmarks"] if row.get("run_type") == "iteration" and "real_time" in row]
    milliseconds = {row["name"]: row["real_time"] * UNITS[row["time_unit"]] for row in rows}
    found = {}
    for row in rows:
        own = next((row[key] for key in OWN if key in row), None)
        if own is None and "floor_us" in row:
            own = row["us_a_linkage"] / row["floor_us"]
        if own is not None:
            found[row["name"]] = (own, "own")
        elif COMMON in milliseconds and row["name"] != COMMON:
            found[row["name"]] = (milliseconds[row["name"]] / milliseconds[COMMON], COMMON)
    return found


def keep(measured, kept):
    with open(kept, "w", newline="") as file:
        table = csv.writer(file, lineterminator="\n")
        table.writerow(["benchmark", "ratio", "floor"])
        for name, (ratio, floor) in sorted(ratios(measured).items()):
            table.writerow([name, f"{ratio:.4g}", floor])
    return 0


def compare(measured, kept):
    with open(kept, newline="") as file:
        before = {row["benchmark"]: (float(row["ratio"]), row["floor"]) for row in csv.DictReader(file)}
    now, slower, compared = ratios(measured), 0, 0
    for name, (ratio, floor) in sorted(now.items()):
        if name not in before or before[name][1] != floor:
            print(f"new     {name}: {ratio:.4g}")
            continue
        compared += 1
        times = ratio / before[name][0]
        if times > SLOWER[floor]:
            slower += 1
            print(f"slower  {name}: {ratio:.4g} of its floor, {before[name][0]:.4g} before, {times:.2f} times")
        elif times < 1 / SLOWER[floor]:
            print(f"faster  {name}: {ratio:.4g} of its floor, {before[name][0]:.4g} before, {times:.2f} times")
    print(f"{compared} compared, {slower} slower, {len(before.keys() - now.keys())} not measured")
    return 1 if slower or not compared else 0


if __name__ == "__main__":
    if len(sys.argv) != 4 or sys.argv[1] not in ("keep", "compare"):
        sys.exit(__doc__)
    sys.exit({"keep": keep, "compare": compare}[sys.argv[1]](sys.argv[2], sys.argv[3]))
