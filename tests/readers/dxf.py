"""dxf.py FILE...: what drawings hold, as an independent reader sees it, one entity a line.

Of each first the unit and the version, then "LAYER TYPE numbers", points as x and y; a polyline begins with whether it is
closed. Ends in an error where the reader finds fault with the file.
"""
import sys

import ezdxf

for path in sys.argv[1:]:
    drawing = ezdxf.readfile(path)
    audit = drawing.audit()
    if audit.has_errors:
        sys.exit("\n".join(error.message for error in audit.errors))
    print("unit", drawing.header.get("$INSUNITS"), drawing.dxfversion)
    declared = {layer.dxf.name for layer in drawing.layers}
    for entity in drawing.modelspace():
        kind, numbers = entity.dxftype(), []
        if entity.dxf.layer not in declared:
            sys.exit(f"layer {entity.dxf.layer} is not declared")
        if kind == "LINE":
            numbers = [*entity.dxf.start.vec2, *entity.dxf.end.vec2]
        elif kind == "CIRCLE":
            numbers = [*entity.dxf.center.vec2, entity.dxf.radius]
        elif kind == "POINT":
            numbers = [*entity.dxf.location.vec2]
        elif kind == "POLYLINE":
            numbers = [int(entity.is_closed)]
            for vertex in entity.vertices:
                numbers += [*vertex.dxf.location.vec2]
        print(entity.dxf.layer, kind, *(repr(float(number)) for number in numbers))
