#!/usr/bin/env python3
"""Writes the table of the model's fields for the manual, from the program's own table and the words beside its record.

    fields.py ROOT FILE

ROOT is the folder of the sources. A field that has no words, or whose kind is not known, is an error.
"""

import pathlib
import re
import sys

KINDS = {"Single": "number", "Integer": "whole number", "Long": "whole number", "bool": "yes or no",
         "std::string": "text"}
# Where the words beside the record are about several fields, or need its code around them.
TOLD_HERE = {
    "UserName": "name of the designer", "DateStr": "date of the model", "TimeStr": "time of the model",
    "P1x": "place of P in position 1, x", "P1y": "the same, y", "P21x": "displacement of P to position 2, x",
    "P21y": "the same, y", "P31x": "displacement of P to position 3, x", "P31y": "the same, y",
    "SynAlpha2": "turn of the coupler to position 2, degrees", "SynAlpha3": "to position 3",
    "SynBeta2": "turn of the left link to position 2, degrees", "SynBeta3": "to position 3",
    "SynGamma2": "turn of the right link to position 2, degrees", "SynGamma3": "to position 3",
    "O2x": "given pivot O2, x", "O2y": "the same, y", "O4x": "given pivot O4, x", "O4y": "the same, y",
    "SynTheta": "direction of W, degrees", "SynTheta2": "direction of the crank, degrees",
    "SynPhi": "direction of Z, degrees", "SynSigma": "direction of U, degrees", "SynXi": "direction of S, degrees",
    "TimeStart": "start of a time run, seconds", "TimeEnd": "its end, seconds", "TimeStep": "its step, seconds",
    "ThetaStartStr": "first limit of an angle run, degrees", "ThetaEndStr": "its last limit, degrees",
    "ThetaStepStr": "its step, degrees", "TraceFlag": "all positions stay in the drawing, Y or N",
    "RedrawFlag": "not used", "HideLinksFlag": "the links are not drawn, Y or N",
    "ShowCentrodesFlag": "the centrodes are drawn, Y or N", "Grashof_Code": "class of the linkage: Y, N, SC or NL",
    "LinkMass": "mass", "LinkInertia": "moment of inertia about the mass centre", "ExtForceMag": "size of the load",
    "ExtForceAng": "direction of the load from link 1, degrees", "ExtTorque": "torque of the load",
    "ForceDist3": "from the mass centre of link 3 to the point of the load",
    "ForceAng3": "its direction from the line of centres of link 3, degrees",
    "ForceDist4": "from the mass centre of link 4 to the point of the load",
    "ForceAng4": "its direction from the line of centres of link 4, degrees", "TorqueImported": "link 4 has a table of torques",
}
_ROW = re.compile(r'\{(?:\d+|k\w+), "([^"]+)", &m\.(\w+)(?:\(([^)]*)\))?')
_FIELD = re.compile(r"^\s*(?:Array<(\w+)[^>]*>|Table<(\w+)[^>]*>|([\w:]+)) ([\w ,={}.\"-]+);(?:\s*///<\s*(.*))?$")


def declared(root):
    """name -> (kind, words) of every field of the record."""
    fields, above = {}, ""
    for header in sorted((root / "core" / "record").glob("*.h")):
        for line in header.read_text(encoding="utf-8").splitlines():
            stripped = line.strip()
            if stripped.startswith("/// "):
                above = (above + " " + stripped[4:]).strip()
                continue
            match = _FIELD.match(line)
            if match:
                kind = match.group(1) or match.group(2) or match.group(3)
                for name in match.group(4).split(","):
                    fields[name.split("=")[0].split("{")[0].strip()] = (kind, match.group(5) or above)
            above = ""
    return fields


def words_of(name, at, words):
    """What a field is; an element of a table says which."""
    words = words.replace("`", "").replace("|", "/")
    if name == "CG":
        link, item = at.split(",")
        pivot = {"2": "O2", "3": "A", "4": "O4"}[link]
        if item.strip() == "0":
            return f"distance of the mass centre of link {link} from {pivot}"
        return f"its direction from the line of centres of link {link}, radians"
    if at:
        return f"of link {at}: {words}"
    return words


def main():
    root, file = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    fields = declared(root)
    rows, silent, before = [], [], {}
    for label, name, at in _ROW.findall((root / "files" / "model_file.cpp").read_text(encoding="utf-8")):
        kind, words = fields.get(name, ("", ""))
        words = TOLD_HERE.get(name, words)
        if words == "the same, radians" and before:
            words = f"{before['name']} in radians"
        words = words_of(name, at, words)
        if kind not in KINDS or not words:
            silent.append(label)
            continue
        before = {"name": label}
        rows.append(f"| `{label}` | {KINDS[kind]} | {words} |")
    if silent or len(rows) < 90:
        print(f"{len(rows)} fields are told, and these are not: {', '.join(silent)}", file=sys.stderr)
        return 1
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text("| Field | Kind | What it is |\n|---|---|---|\n" + "\n".join(rows) + "\n", encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
