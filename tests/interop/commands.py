"""commands.py: what the module's commands leave behind is a drawing that other programs open and audit without complaint."""
import sys
import tempfile
import unittest
from pathlib import Path

import kxcad

try:
    import ezdxf
    from ezdxf.math import Vec3
    import judge
except ImportError:
    print("python3-ezdxf is not installed")
    sys.exit(kxcad.SKIPPED)
from drawings import facts

HOUSES = ["house_r12.dxf", "house_r2000_gbk.dxf", "house_r2000_binary.dxf", "house_r2007.dxf", "house_r2018.dxf"]

REAL = [path for path in [kxcad.ROOT.parent / "shared" / "drawings" / name for name in ("family_r2000.dxf", "uncommon_r2018.dxf")] if path.exists()]
FLATTENED = {"LINE", "POINT", "LWPOLYLINE", "POLYLINE", "VERTEX", "3DFACE", "CIRCLE", "ARC", "ELLIPSE", "SPLINE", "TEXT", "MTEXT", "INSERT", "ATTRIB",
             "SOLID", "TRACE", "HATCH", "LEADER", "DIMENSION", "RAY", "XLINE", "MULTILEADER"}
PLACES = ("start", "end", "location", "insert", "center", "align_point", "vtx0", "vtx1", "vtx2", "vtx3", "defpoint", "defpoint2", "defpoint3", "defpoint4",
          "text_midpoint")


def heights(entity):
    """Every Z of the entity that is not 0."""
    found = [entity.dxf.get(place).z for place in PLACES
             if entity.dxf.is_supported(place) and isinstance(entity.dxf.get(place), Vec3)]   # a leader has numbers there
    elevation = entity.dxf.elevation if entity.dxf.is_supported("elevation") and entity.dxf.hasattr("elevation") else 0
    found.append(elevation if isinstance(elevation, (int, float)) else elevation.z)
    if entity.dxftype() == "SPLINE":
        found += [point[2] for point in list(entity.control_points) + list(entity.fit_points)]
    if entity.dxftype() == "LEADER":
        found += [vertex[2] for vertex in entity.vertices]
    return {height for height in found if height != 0}


def layer_sets(path):
    layers = facts.of(path.read_bytes())["layers"]
    return {state: set(layers[state]) for state in ("names", "off", "frozen", "locked")}


class Commands(unittest.TestCase):
    def after(self, source, *typed):
        """The saved drawing after the typed lines, judged against its source."""
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        saved = Path(folder.name, source.name)
        options = [option for line in typed for option in ("--command", line)]
        result = kxcad.run("--quiet", *options, "--output", saved, source)
        self.assertEqual(result.status, 0, result)
        self.assertEqual(judge.Verdict(saved).worse_than(judge.Verdict(source)), [])
        return saved

    def test_layers_of_all_objects(self):
        """Command, the list that it fills, the list that its opposite empties."""
        for name in HOUSES:
            source = kxcad.DATA / name
            before = layer_sets(source)
            for fill, state, clear in (("HidePickObjectLayer", "off", "ShowAllLayer"), ("FrozenPickObjectLayer", "frozen", "UnFrozenAllLayer"),
                                       ("LockPickLayer", "locked", "UnLockAllLayer")):
                with self.subTest(drawing=name, command=fill):
                    # The objects of frozen layers cannot be picked, nor can the current layer be frozen.
                    filled = layer_sets(self.after(source, fill, "ALL", ""))
                    self.assertLess(before[state], filled[state])
                    self.assertEqual(before["names"], filled["names"])
                    self.assertEqual(layer_sets(self.after(source, clear))[state], set())

    def test_purged_layers_are_unused_ones(self):
        source = kxcad.DATA / "house_r2007.dxf"
        gone = layer_sets(source)["names"] - layer_sets(self.after(source, "CleanLayer"))["names"]
        self.assertEqual(gone, {"未用", "门窗"} & gone)
        self.assertIn("未用", gone)

    def test_what_new_objects_need_is_there(self):
        """Groups, insertions, draw orders and merged layers, read by another program."""
        for name in HOUSES[1:]:   # R12 has no groups, and no form for some of what the file brings in
            with self.subTest(drawing=name, command="MakeGroup"):
                drawing = ezdxf.readfile(self.after(kxcad.DATA / name, "MakeGroup", "ALL", "", "内墙"))
                self.assertIn("内墙", [name for name, _ in drawing.groups])
            with self.subTest(drawing=name, command="KxInFile"):
                saved = self.after(kxcad.DATA / name, "KxInFile", str(kxcad.DATA / "house_r2010.dxf"), "家", "10,20", "2", "90")
                [insertion] = ezdxf.readfile(saved).query('INSERT[name=="家"]')
                self.assertEqual((insertion.dxf.insert.x, insertion.dxf.insert.y, insertion.dxf.xscale, insertion.dxf.rotation), (10, 20, 2, 90))
            with self.subTest(drawing=name, command="SetlayerToBack"):
                self.after(kxcad.DATA / name, "SetlayerToBack", "L", "")
            with self.subTest(drawing=name, command="KxCombineLayer"):
                before = layer_sets(kxcad.DATA / name)["names"]
                merged = layer_sets(self.after(kxcad.DATA / name, "KxCombineLayer", "2-3", "N", "1", "M"))["names"]
                self.assertEqual(before - merged, {"Defpoints"})   # extended data of an object names 墙体

    def test_flat_drawings_are_flat(self):
        for source in [kxcad.DATA / name for name in HOUSES] + REAL:
            with self.subTest(drawing=source.name):
                drawing = ezdxf.readfile(self.after(source, "ZValueToZero", ""))
                for entity in drawing.entitydb.values():
                    if entity.dxftype() in FLATTENED:
                        self.assertEqual(heights(entity), set(), entity)


if __name__ == "__main__":
    unittest.main()
