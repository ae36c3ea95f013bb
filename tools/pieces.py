"""Which compiler's call makes a source: where a few are compiled as one, that of the piece that includes it."""
import json
import pathlib
import re

INCLUDED = re.compile(r'^#include "(.+)"$', re.M)


def sources_of(entry):
    """What is compiled by a call of compile_commands.json: one source, or those of a piece."""
    path = pathlib.Path(entry["file"])
    if path.parent.name != "Unity":
        return [path]
    return [(path.parent / name).resolve() for name in INCLUDED.findall(path.read_text())]


def calls_of(build):
    """By source, the entry of compile_commands.json that makes it in this build tree."""
    entries = json.loads((pathlib.Path(build) / "compile_commands.json").read_text())
    return {source: entry for entry in entries for source in sources_of(entry)}
