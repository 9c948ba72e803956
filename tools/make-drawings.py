#!/usr/bin/env python3
"""Makes the drawings of the repository anew: samples/floorplan.dxf and tests/data/*.dxf, with their facts.

usage: make-drawings.py [FOLDER]     (default: the tree this script stands in)

Needs ezdxf. The same versions of Python and ezdxf give the same bytes.
"""
import json
import os
import sys
from pathlib import Path

if os.environ.get("PYTHONHASHSEED") != "0":   # some lists of ezdxf come out in the order of a set
    os.execve(sys.executable, [sys.executable, *sys.argv], {**os.environ, "PYTHONHASHSEED": "0"})

import ezdxf

from drawings import facts, floorplan, handmade, houses

HOUSES = [("house_r12.dxf", "R12", None, True, "asc"), ("house_r12_binary.dxf", "R12", None, True, "bin"),
          ("house_r2000_gbk.dxf", "R2000", "gbk", False, "asc"), ("house_r2000_binary.dxf", "R2000", "gbk", False, "bin"),
          ("house_r2004_latin.dxf", "R2004", "cp1252", True, "asc"), ("house_r2007.dxf", "R2007", None, False, "asc"),
          ("house_r2010.dxf", "R2010", None, False, "asc"), ("house_r2013_binary.dxf", "R2013", None, False, "bin"),
          ("house_r2018.dxf", "R2018", None, False, "asc")]


def main(root):
    ezdxf.options.write_fixed_meta_data_for_testing = True
    data = root / "tests" / "data"
    (root / "samples").mkdir(parents=True, exist_ok=True)
    data.mkdir(parents=True, exist_ok=True)
    for name, version, encoding, latin, form in HOUSES:
        houses.make(version, encoding, latin).saveas(data / name, fmt=form)
    for name, content in handmade.files().items():
        (data / name).write_bytes(content)
    floorplan.make(root / "samples" / "floorplan.dxf")
    known = {path.name: facts.of(path.read_bytes()) for path in sorted([*data.glob("*.dxf"), root / "samples" / "floorplan.dxf"])}
    text = json.dumps(known, ensure_ascii=False, indent=1, sort_keys=True)
    (data / "FACTS.json").write_text(text + "\n", encoding="utf-8")


if __name__ == "__main__":
    main(Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent)
