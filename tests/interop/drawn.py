"""drawn.py PROGRAM: what the drawing builder creates is read by ezdxf with the properties given, audits clean, and looks
the same."""
import math
import os
import subprocess
import sys
import tempfile
from pathlib import Path

import kxcad

try:
    import ezdxf
    from ezdxf import bbox
    import pictures
except ImportError:
    print("python3-ezdxf is not installed")
    sys.exit(kxcad.SKIPPED)

# Type, how many, and what the first one says.
EXPECTED = {
    "LINE": (1, {"start": (1, 2, 0), "end": (4, 6, 0)}),
    "LWPOLYLINE": (1, {"flags": 1, "color": 1}),
    "CIRCLE": (1, {"center": (5, 5, 0), "radius": 2}),
    "ARC": (1, {"radius": 2, "start_angle": 0, "end_angle": 90, "color": 4}),
    "TEXT": (1, {"text": "A", "height": 2.5, "insert": (1, 1, 0)}),
    "POINT": (1, {"location": (7, 8, 9)}),
    "XLINE": (1, {"unit_vector": (math.sqrt(0.5), math.sqrt(0.5), 0)}),
    "RAY": (1, {"unit_vector": (math.sqrt(0.5), math.sqrt(0.5), 0)}),
    "POLYLINE": (7, {}),
    "3DFACE": (1, {"vtx3": (0, 1, 3)}),
    "SOLID": (1, {"vtx1": (2, 0, 0)}),
    "TRACE": (1, {"vtx1": (2, 0, 0)}),
    "MLINE": (1, {"count": 3, "style_name": "双线"}),
    "MTEXT": (1, {"char_height": 2, "insert": (1, 1, 0)}),
    "HATCH": (1, {"pattern_name": "ANSI31", "associative": 1, "solid_fill": 0}),
    "LEADER": (1, {"has_arrowhead": 1}),
    "SPLINE": (1, {"degree": 3}),
    "ELLIPSE": (1, {"major_axis": (3, 0, 0), "ratio": 0.5}),
    "TOLERANCE": (1, {"content": "{\\Fgdt;j}%%v0.5%%vA"}),
    "ATTDEF": (1, {"tag": "编号", "prompt": "编号?", "text": "1"}),
    "DIMENSION": (6, {}),
}


def differs(found, expected):
    if isinstance(expected, tuple):
        return max(abs(a - b) for a, b in zip(found, expected)) > 1e-9
    return abs(found - expected) > 1e-9 if isinstance(expected, float) else found != expected


def properties(model, problems):
    for kind, (count, wanted) in EXPECTED.items():
        entities = list(model.query(kind))
        if len(entities) != count:
            problems.append(f"{kind}: {len(entities)} instead of {count}")
        for name, value in wanted.items() if entities else ():
            found = entities[0].dxf.get_default(name)
            if found is None or differs(found, value):
                problems.append(f"{kind}: {name} is {found} instead of {value}")


def shapes(document, model, problems):
    spline = model.query("SPLINE").first
    points = [(0, 0, 0), (4, 0, 0), (4, 4, 0)]
    if [tuple(p) for p in spline.fit_points] != points:
        problems.append(f"SPLINE: fit points {list(spline.fit_points)}")
    # The curve as ezdxf evaluates it: at the lengths of the chords it stands on the points.
    for place, point in zip((0, 4, 8), points):
        at = spline.construction_tool().point(place)
        if at.distance(ezdxf.math.Vec3(point)) > 1e-9:
            problems.append(f"SPLINE: {at} at {place} instead of {point}")
    hatch = model.query("HATCH").first
    sources = [handle for path in hatch.paths for handle in path.source_boundary_objects]
    if sources != [model.query("CIRCLE").first.dxf.handle]:
        problems.append(f"HATCH: boundary objects {sources}")
    if len(hatch.pattern.lines) != 1 or abs(hatch.pattern.lines[0].angle - 45) > 1e-9:
        problems.append("HATCH: pattern lines")
    for dimension in model.query("DIMENSION"):
        block = document.blocks.get(dimension.dxf.geometry)
        if block is None or not block.query("MTEXT"):
            problems.append(f"DIMENSION {dimension.dxf.handle}: block {dimension.dxf.geometry} without a text")


def extents(model, problems):
    """Boxes as ezdxf computes them, of what it draws without fonts."""
    boxes = {"LINE": (1, 2, 4, 6), "CIRCLE": (3, 3, 7, 7), "ARC": (0, 0, 2, 2), "ELLIPSE": (2, 3.5, 8, 6.5),
             "LWPOLYLINE": (0, 0, 2, 1), "SOLID": (0, 0, 2, 1), "MLINE": (0, -1, 5, 4)}
    for kind, expected in boxes.items():
        box = bbox.extents([model.query(kind).first], flatten=0.0001)
        found = (box.extmin.x, box.extmin.y, box.extmax.x, box.extmax.y) if box.has_data else None
        if found is None or max(abs(a - b) for a, b in zip(found, expected)) > 1e-2:
            problems.append(f"{kind}: box {found} instead of {expected}")


# Without endless lines (to the edge of the picture here), tags and frames of tolerances, which one of both leaves out.
SHOWN = sorted(set(EXPECTED) - {"XLINE", "RAY", "ATTDEF", "TOLERANCE", "POINT", "TEXT", "MTEXT"})


def shows(drawn, folder, problems):
    """Each kind of entity alone: its picture here beside ezdxf's."""
    for kind in SHOWN:
        document = ezdxf.readfile(drawn)
        model = document.modelspace()
        for entity in [entity for entity in model if entity.dxftype() != kind]:
            model.delete_entity(entity)
        for style in document.dimstyles:   # arrows that a style leaves at their usual size are larger there
            style.dxf.dimasz = style.dxf.dimasz if style.dxf.hasattr("dimasz") else 0.18
        alone = Path(folder, f"{kind}.dxf")
        document.saveas(alone)
        if difference := pictures.difference(alone, folder):
            problems.append(f"{kind}: {difference}")


def main(program):
    with tempfile.TemporaryDirectory() as folder:
        drawn = Path(folder, "drawn.dxf")
        subprocess.run([program, "--gtest_filter=KxAcDrawTest.CreatedDrawingIsSaved"], check=True, timeout=120,
                       stdout=subprocess.DEVNULL, env=dict(os.environ, KX_DRAWN_FILE=str(drawn)))
        document = ezdxf.readfile(drawn)
        problems = [f"{error.code}: {error.message}" for error in document.audit().errors]
        model = document.modelspace()
        properties(model, problems)
        shapes(document, model, problems)
        extents(model, problems)
        shows(drawn, folder, problems)
        if len(document.layout("Layout1").query("VIEWPORT")) < 1:
            problems.append("VIEWPORT: not on the layout")
    for problem in problems:
        print(problem)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
