"""The committed drawings are those that the script makes, and their facts are those that stand in them."""
import json
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
sys.dont_write_bytecode = True

from drawings import facts, groups, handmade

DATA = ROOT / "tests" / "data"


class Drawings(unittest.TestCase):
    def test_handmade_drawings_are_up_to_date(self):
        for name, content in handmade.files().items():
            with self.subTest(drawing=name):
                self.assertTrue((DATA / name).read_bytes() == content, "run tools/make-drawings.py")

    def test_facts_are_up_to_date(self):
        known = json.loads((DATA / "FACTS.json").read_text(encoding="utf-8"))
        drawings = [*DATA.glob("*.dxf"), ROOT / "samples" / "floorplan.dxf"]
        self.assertEqual(set(known), {path.name for path in drawings})
        for path in drawings:
            with self.subTest(drawing=path.name):
                self.assertEqual(facts.of(path.read_bytes()), known[path.name])

    def test_the_plan_is_as_large_and_varied_as_a_real_one(self):
        plan = facts.of((ROOT / "samples" / "floorplan.dxf").read_bytes())
        self.assertGreater(len(plan["layers"]["names"]), 50)
        self.assertGreater(plan["modelspace"]["total"], 3000)
        self.assertTrue({"INSERT", "TEXT", "DIMENSION", "HATCH", "LWPOLYLINE"} <= set(plan["modelspace"]["by_type"]))
        self.assertTrue(plan["layers"]["off"] and plan["layers"]["frozen"] and plan["layers"]["locked"])

    def test_both_forms_hold_the_same_groups(self):
        content = handmade.r12_plan()
        plain = facts.of(groups.ascii_bytes(content, "gbk"))
        for one_byte in (False, True):
            binary = facts.of(groups.binary_bytes(content, "gbk", one_byte_codes=one_byte))
            self.assertEqual({**binary, "format": plain["format"]}, plain)


if __name__ == "__main__":
    unittest.main()
