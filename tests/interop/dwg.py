"""dwg.py DRAWING: saved as DWG, a drawing holds for another program what the same drawing holds as DXF."""
import re
import sys
import tempfile
from collections import Counter
from pathlib import Path

import kxcad

try:
    import ezdxf
    from ezdxf import recover
except ImportError:
    print("python3-ezdxf is not installed")
    sys.exit(kxcad.SKIPPED)
import dwgReader

VERSIONS = ("2000", "2010")
# Both readers know these, under names of their own.
# A table is an insert of the block that shows it where only the bits of another version are known.
FAMILIES = {"ACAD_TABLE": "INSERT", "POLYLINE2D": "POLYLINE", "POLYLINE3D": "POLYLINE", "MINSERT": "INSERT"}
KINDS = set("""3DFACE ARC ATTDEF CIRCLE DIMENSION ELLIPSE HATCH INSERT LINE LWPOLYLINE MLINE MTEXT POINT RAY SOLID SPLINE
    TEXT TOLERANCE VIEWPORT XLINE""".split())


def general(name):
    """Layouts and unnamed blocks lose their numbers in DWG files."""
    return name.upper().rstrip("0123456789") if name.startswith("*") else name.upper()


def counted(kinds):
    return Counter(kind for kind in (FAMILIES.get(kind, kind) for kind in kinds) if kind in KINDS)


class Held:
    """What a drawing holds: layers, entities of each named block, texts, texts of attributes, MINSERTs."""

    def __init__(self, layers, blocks, texts, attributes, minserts):
        self.layers, self.blocks, self.texts, self.attributes, self.minserts = layers, blocks, texts, attributes, minserts
        self.in_order = True   # the attributes of each insertion have handles in a row


def of_dwg(found):
    blocks = {}
    for name, kinds in found["blocks"]:
        counts = counted(kind for kind, count in kinds.items() for _ in range(count))
        blocks[general(name)] = blocks.get(general(name), Counter()) + counts
    return Held(set(found["layers"]), blocks, Counter(found["texts"]), Counter(found["attributes"]), found["minserts"])


def of_dxf(path):
    try:
        document = ezdxf.readfile(path)
    except Exception:   # what it only opens by repair it still can count
        document, _ = recover.readfile(path)
    held = Held({layer.dxf.name for layer in document.layers}, {}, Counter(), Counter(), 0)
    for block in document.blocks:
        multiple = [entity for entity in block if entity.dxftype() == "INSERT" and entity.mcount > 1]
        kinds = counted(entity.dxftype() for entity in block if entity not in multiple)
        name = general(block.name)
        held.blocks[name] = held.blocks.get(name, Counter()) + kinds
        held.minserts += len(multiple)
        for entity in block:
            if entity.dxftype() == "TEXT":
                held.texts[entity.dxf.text] += 1
            elif entity.dxftype() == "MTEXT":
                held.texts[entity.text] += 1
            elif entity.dxftype() == "INSERT" and entity not in multiple:
                held.attributes.update(attribute.dxf.text for attribute in entity.attribs)
    held.in_order = all(rising([int(attribute.dxf.handle, 16) for attribute in insert.attribs]) for insert in document.query("INSERT"))
    return held


def rising(handles):
    return handles == list(range(handles[0], handles[0] + len(handles))) if handles else True


def plain(texts):
    """Readers differ in escapes and in what they take for a blank: letters and digits are what must agree."""
    whole = (re.sub(r"\\U\+([0-9A-Fa-f]{4})", lambda found: chr(int(found[1], 16)), text) for text in texts.elements())
    whole = (re.sub(r"\^[@-_]", " ", text) for text in whole)   # a tab and the like, as DXF files spell them
    return Counter(filter(None, ("".join(letter for letter in text if letter.isalnum()) for text in whole)))


def problems_of(version, source, folder):
    dwg, dxf = folder / f"saved{version}.dwg", folder / f"saved{version}.dxf"
    script = "".join(f"SAVEAS\n{version}\n{path}\n" for path in (dxf, dwg))
    result = kxcad.run("--no-module", "--quiet", source, typed=script)
    if result.status != 0 or not dwg.is_file():
        return [str(result)]
    found = dwgReader.read(dwg)
    problems = []
    if found["error"] & ~dwgReader.ODD_VALUES:
        problems.append(f"the reader's error is {found['error']}: {found['said']}")
    held, other = of_dwg(found), of_dxf(dxf)
    # ezdxf adds this layer to each drawing, and the three kinds of spaces under names of its own.
    other.layers.discard("Defpoints" if "Defpoints" not in held.layers else "")
    if held.layers != other.layers:
        problems.append(f"layers {sorted(held.layers)} instead of {sorted(other.layers)}")
    for name in sorted(set(held.blocks) | set(other.blocks)):
        ours, theirs = held.blocks.get(name), other.blocks.get(name)
        if ours != theirs:
            problems.append(f"block {name} has {ours} instead of {theirs}")
    if held.minserts != other.minserts:
        problems.append(f"{held.minserts} MINSERT instead of {other.minserts}")
    pairs = [("texts", held.texts, other.texts)]
    # Of this version the reader goes from the first attribute of an insertion to the last by their handles.
    if version != "2000" or other.in_order:
        pairs.append(("attributes", held.attributes, other.attributes))
    for what, ours, theirs in pairs:
        lost, gained = plain(theirs) - plain(ours), plain(ours) - plain(theirs)
        if lost or gained:
            problems.append(f"{what} lost {list(lost)[:5]} of {len(lost)}, gained {list(gained)[:5]} of {len(gained)}")
    return [f"{version}: {problem}" for problem in problems]


def main(source):
    if not source.is_file():
        print(f"{source} is not here")
        return kxcad.SKIPPED
    if (reason := dwgReader.missing()) is not None:
        print(reason)
        return kxcad.SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        problems = [problem for version in VERSIONS for problem in problems_of(version, source, Path(folder))]
    for problem in problems[:40]:
        print(problem)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
