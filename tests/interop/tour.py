"""tour.py: the tour runs, what it saves is sound, and README shows what it really prints."""
import sys
import tempfile
import unittest
from pathlib import Path

import kxcad

try:
    import judge
except ImportError:
    print("python3-ezdxf is not installed")
    sys.exit(kxcad.SKIPPED)
from drawings import facts

PLAN = kxcad.SAMPLES / "floorplan.dxf"


def stripped(text):
    return "\n".join(line.rstrip() for line in text.splitlines())


class Tour(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as folder:
            saved = Path(folder, "tour.dxf")
            cls.result = kxcad.run("--script", kxcad.SAMPLES / "tour.scr", "--output", saved, PLAN)
            cls.worse = judge.Verdict(saved).worse_than(judge.Verdict(PLAN))
            cls.saved = facts.of(saved.read_bytes())

    def test_every_command_succeeds(self):
        self.assertEqual(self.result.status, 0, self.result)

    def test_the_saved_plan_is_sound(self):
        self.assertEqual(self.worse, [])
        before = facts.of(PLAN.read_bytes())
        self.assertEqual(self.saved["modelspace"], before["modelspace"])
        self.assertEqual(set(before["layers"]["names"]) - set(self.saved["layers"]["names"]), {"废弃图层", "临时", "设备-预留", "图层1", "A-ANNO-NOTE"})
        self.assertEqual((self.saved["layers"]["off"], self.saved["layers"]["locked"]), ([], []))
        self.assertEqual(set(self.saved["layers"]["frozen"]) - set(before["layers"]["frozen"]), {"家具", "洁具", "厨具"})

    def test_readme_shows_real_output(self):
        chapter = (kxcad.ROOT / "README.md").read_text(encoding="utf-8").split("## A short tour")[1].split("\n## ")[0]
        shown = chapter.split("```")[1::2]
        self.assertGreaterEqual(len(shown), 4)
        printed = stripped(self.result.out)
        for block in shown:
            with self.subTest(block=block.strip().splitlines()[0]):
                self.assertIn(stripped(block.strip("\n")), printed)


if __name__ == "__main__":
    unittest.main()
