#!/usr/bin/env python3
"""seeds.py FOLDER: writes what the fuzz targets start from, a folder for each kind of file.

The samples and the fixtures of the tests, and small files of its own for the layouts that those do not show.
"""

import itertools
import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LAST_STEP = 2880
KINDS = ("vlk", "sva", "out", "trq", "vld")


def lines(*values):
    return "".join(f"{value}\r\n" for value in values)


def strings(count):
    return ['""'] * count


def rows(count):
    """Short rows of a drive."""
    return [f"{step % 7},{step % 3},{-(step % 5)}" for step in range(count)]


def sva(links=4, units=1, tag='"Cam"', circuit=-1, masses=0, count=3):
    head = [links, 1, 12.5, 2, 3.5, 0.75, 0, 1, 0.25, tag, units, *strings(7)]
    linkage = []
    if links >= 4:
        linkage = [5, circuit, 2, 6, 4, 7, 15, 6.5, 1.5, 0.25, -0.5, *strings(9), masses]
        for link in range(2, links + 1):
            linkage += [0.1 * link, 0.01 * link, 0.5 * link, 0.2] if masses else strings(4)
        linkage += strings(30)
    return lines(*head, *linkage, count, *rows(count))


def out(steps=3, padding=""):
    """Link drive data; with blanks as the free print form has them, or bare."""
    if padding:
        table = [f" {row.replace(',', padding)} " for row in rows(steps + 1)]
    else:
        table = rows(steps + 1)
    return lines(f" {steps} " if padding else steps, 0, 1, 0.25, *[""] * 12, *table)


def trq(steps, count=None):
    return lines(steps, *[step % 9 - 4.5 for step in range(steps + 1 if count is None else count)])


def vld(positions, **more):
    """A task of so many positions, with these fields too."""
    places = [{"x": 1.5 * place, "y": place % 2, "angle": 25 * place} for place in range(positions)]
    head = {"format": "verlink-design", "version": 1, "kind": "motion", "title": "lid", "units": 1, "relative": False}
    weights = {"transmission": 1, "proportion": 0.5, "room": 1, "rounding": 0}
    return json.dumps({**head, "positions": places, "weights": weights, **more}, indent=2)


def own(kind):
    if kind == "vlk":
        # A full table, one with a row too many, an editor's habits, and values that the reader puts right.
        sample = (ROOT / "samples" / "cam_driven.vlk").read_bytes().decode().split("\r\n")[:184]
        sample[83] = str(LAST_STEP)
        yield lines(*sample, *rows(LAST_STEP + 1))
        sample[83] = str(LAST_STEP + 1)
        yield lines(*sample, *rows(LAST_STEP + 2))
        yield "\ufeff" + lines(*sample).replace("\r\n", "\n")
        sample[83] = 1
        for line in (45, 53, 96):
            sample[line - 1] = 0
        sample[2] = '"12" press, "fast"'
        yield lines(*sample, *rows(2))
    if kind == "sva":
        for links, units, masses in itertools.product((3, 4, 5), (1, 4, 5), (0, -1)):
            yield sva(links=links, units=units, masses=masses, circuit=1 if masses else -1)
        yield sva(masses=65535)
        yield sva(links=6)
        yield sva(tag='"Glidemark"')
        yield sva(count=0)
        yield sva(links=3, count=LAST_STEP + 1)
        yield sva(links=3, count=LAST_STEP + 2)
    if kind == "vld":
        for count in range(2, 6):
            yield vld(count)
        yield vld(3, studies={"version": 1})
        yield vld(4, left={"fixed": {"within": [-3, -3, 1, 1]}, "moving": {}}, links={"shortest": 0.5, "longest": 9})
        yield vld(3, left={"fixed": {"points": [[0, 0], [1, 2]]}}, drive="left", full_turn=True, transmission=30)
        yield json.dumps({"format": "verlink-design", "version": 1, "studies": {"version": 1}})
    if kind == "out":
        for padding in ("", ",", " , ", "            "):
            yield out(padding=padding)
        yield out(0)
        yield out(LAST_STEP)
        yield out(LAST_STEP + 1)
    if kind == "trq":
        yield trq(3)
        yield trq(4)
        yield trq(3, count=2)
        yield trq(0)
        yield trq(LAST_STEP)


def main(folder):
    for kind in KINDS:
        seeds = folder / kind
        seeds.mkdir(parents=True, exist_ok=True)
        for old in seeds.iterdir():
            old.unlink()
        for source in sorted(itertools.chain((ROOT / "samples").rglob("*." + kind),
                                             (ROOT / "tests" / "fixtures").rglob("*." + kind))):
            (seeds / source.name).write_bytes(source.read_bytes())
        for at, text in enumerate(own(kind)):
            (seeds / f"own_{at}.{kind}").write_bytes(text.encode())


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
