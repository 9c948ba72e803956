"""atomic.py: a save that is killed, or fails, leaves the old drawing or the new one, whole."""
import resource
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

import kxcad

PLAN = kxcad.SAMPLES / "floorplan.dxf"


class Atomic(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.target = self.folder / "plan.dxf"
        shutil.copy(PLAN, self.target)
        self.old = self.target.read_bytes()

    def command(self, target):
        return [kxcad.program(), "--no-module", "--quiet", "-c", "-LAYER", "-c", "OFF", "-c", "*", "-c", "Y", "-c", "", "-o", str(target), str(PLAN)]

    def test_killed_at_many_moments(self):
        whole = self.folder / "whole.dxf"
        start = time.monotonic()
        done = subprocess.run(self.command(whole), capture_output=True, stdin=subprocess.DEVNULL, check=False)
        length = time.monotonic() - start
        self.assertEqual(done.returncode, 0, done.stderr)
        new = stable(whole.read_bytes())
        self.assertNotEqual(new, stable(self.old))

        endings = set()
        for step in range(40):
            self.target.write_bytes(self.old)
            process = subprocess.Popen(self.command(self.target), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            time.sleep(length * (0.3 + step / 40))   # reading comes first; saving stands at the end
            process.kill()
            process.wait()
            found = stable(self.target.read_bytes())
            self.assertTrue(found in (stable(self.old), new), f"step {step}: {len(found)} bytes are neither the old nor the new drawing")
            endings.add("old" if found == stable(self.old) else "new")
        self.assertIn("old", endings)

    def test_a_full_disk(self):
        """The limit makes writing fail in the middle, as a full disk does."""
        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (200_000, 200_000))

        failed = subprocess.run(self.command(self.target), capture_output=True, stdin=subprocess.DEVNULL, preexec_fn=limit, restore_signals=False, check=False)
        self.assertEqual(failed.returncode, 4, failed.stderr)
        self.assertIn(b"kxcad: ", failed.stderr)
        self.assertEqual(self.target.read_bytes(), self.old)
        self.assertEqual([path.name for path in self.folder.iterdir()], ["plan.dxf"])


def stable(data):
    """The drawing without the values that tell the moment of saving."""
    lines = data.split(b"\n")
    for index, line in enumerate(lines):
        if line.strip() in (b"$TDUPDATE", b"$TDUUPDATE", b"$TDINDWG", b"$TDUSRTIMER", b"$VERSIONGUID"):
            lines[index + 2] = b""
    return b"\n".join(lines)


if __name__ == "__main__":
    unittest.main()
