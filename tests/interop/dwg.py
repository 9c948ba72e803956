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


def of_dwg(found):
    """Layers, entities of each named block, texts."""
    blocks = {}
    for name, kinds in found["blocks"]:
        counts = counted(kind for kind, count in kinds.items() for _ in range(count))
        blocks[general(name)] = blocks.get(general(name), Counter()) + counts
    return set(found["layers"]), blocks, Counter(found["texts"])


def of_dxf(path):
    try:
        document = ezdxf.readfile(path)
    except Exception:   # what it only opens by repair it still can count
        document, _ = recover.readfile(path)
    blocks, texts = {}, Counter()
    for block in document.blocks:
        name = general(block.name)
        blocks[name] = blocks.get(name, Counter()) + counted(entity.dxftype() for entity in block)
        for entity in block:
            if entity.dxftype() == "TEXT":
                texts[entity.dxf.text] += 1
            elif entity.dxftype() == "MTEXT":
                texts[entity.text] += 1
            elif entity.dxftype() == "INSERT":
                texts.update(attribute.dxf.text for attribute in entity.attribs)
    names = {layer.dxf.name for layer in document.layers}
    return names, blocks, texts


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
    layers, blocks, texts = of_dwg(found)
    other_layers, other_blocks, other_texts = of_dxf(dxf)
    # ezdxf adds this layer to each drawing, and the three kinds of spaces under names of its own.
    other_layers.discard("Defpoints" if "Defpoints" not in layers else "")
    if layers != other_layers:
        problems.append(f"layers {sorted(layers)} instead of {sorted(other_layers)}")
    for name in sorted(set(blocks) | set(other_blocks)):
        ours, theirs = blocks.get(name), other_blocks.get(name)
        if ours != theirs:
            problems.append(f"block {name} has {ours} instead of {theirs}")
    if plain(texts) != plain(other_texts):
        lost, gained = plain(other_texts) - plain(texts), plain(texts) - plain(other_texts)
        problems.append(f"texts lost {list(lost)[:5]} of {len(lost)}, gained {list(gained)[:5]} of {len(gained)}")
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
