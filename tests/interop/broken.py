"""broken.py: damaged drawings end in a clear line or in a repaired drawing, never in a crash, a hang or a changed disk."""
import random
import re
import tempfile
import unittest
from pathlib import Path

import kxcad

CUT = ["house_r2000_gbk.dxf", "house_r2013_binary.dxf", "r12_gbk.dxf", "r12_gbk_binary.dxf", "proxies.dxf"]
FAULTY = ["bad_handles.dxf", "cycles.dxf", "absurd_counts.dxf", "loose_numbers.dxf", "many_sections.dxf", "entities_only.dxf", "no_eof.dxf"]
LOOK_AROUND = "REGEN\n(setq n (sslength (ssget \"X\")))\nLIST\nALL\n\n-PURGE\nA\n*\nN\n"


class Broken(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.saved = self.folder / "saved.dxf"
        self.damaged = self.folder / "damaged.dxf"

    def opened(self, data):
        """Opens and saves the bytes; a refusal must be clear and leave nothing behind."""
        self.damaged.write_bytes(data)
        result = kxcad.run("--no-module", "--quiet", "--output", self.saved, self.damaged, timeout=60)
        self.assertIn(result.status, (0, 3), result)
        self.assertEqual(self.damaged.read_bytes(), data)
        files = {path.name for path in self.folder.iterdir()}
        if result.status == 3:
            self.assertEqual(files, {"damaged.dxf"}, result)
            self.assertRegex(result.err, r"kxcad: .*damaged\.dxf: .*(?:line|byte|offset) \d+", result)
        else:
            self.assertEqual(files, {"damaged.dxf", "saved.dxf"}, result)
            self.saved.unlink()
        return result

    def test_cut_at_many_bytes(self):
        for name in CUT:
            whole = (kxcad.DATA / name).read_bytes()
            places = sorted({round(len(whole) * part / 24) for part in range(24)} | {1, 2, 3, 21, 22, 23, 24, 25, len(whole) - 1, len(whole) - 7})
            for place in places:
                with self.subTest(drawing=name, bytes=place):
                    self.opened(whole[:place])

    def test_bytes_changed_at_random(self):
        chance = random.Random(7)
        for name in CUT:
            whole = (kxcad.DATA / name).read_bytes()
            for trial in range(12):
                data = bytearray(whole)
                for _ in range(1 + trial):
                    data[chance.randrange(len(data))] = chance.choice(b"\x00\x01\n\r 019-+.eE{}AF\x7f\x80\xff")
                with self.subTest(drawing=name, trial=trial):
                    self.opened(bytes(data))

    def test_lines_dropped_and_doubled(self):
        """One line more or less turns codes and values about for the rest of the file."""
        lines = (kxcad.DATA / "house_r2000_gbk.dxf").read_bytes().split(b"\n")
        for place in range(5, len(lines), len(lines) // 12):
            with self.subTest(dropped=place):
                self.opened(b"\n".join(lines[:place] + lines[place + 1 :]))
            with self.subTest(doubled=place):
                self.opened(b"\n".join(lines[:place] + lines[place - 1 :]))

    def test_faulty_drawings_can_be_worked_on(self):
        for name in FAULTY:
            with self.subTest(drawing=name):
                result = kxcad.run("--no-module", "--output", self.saved, kxcad.DATA / name, typed=LOOK_AROUND, timeout=60)
                self.assertEqual(result.status, 0, result)
                again = kxcad.run("--no-module", "--quiet", self.saved, timeout=60)
                self.assertEqual(again.status, 0, again)

    def test_a_repair_is_told(self):
        said = kxcad.run("--no-module", kxcad.DATA / "bad_handles.dxf")
        self.assertTrue(re.search(r"line \d+", said.err + said.out), said)


if __name__ == "__main__":
    unittest.main()
