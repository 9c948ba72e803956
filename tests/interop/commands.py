"""commands.py: what the module's commands leave behind is a drawing that other programs open and audit without complaint."""
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

HOUSES = ["house_r12.dxf", "house_r2000_gbk.dxf", "house_r2000_binary.dxf", "house_r2007.dxf", "house_r2018.dxf"]


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


if __name__ == "__main__":
    unittest.main()
