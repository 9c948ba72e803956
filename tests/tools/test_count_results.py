"""The last line of a test run counts what ctest recorded."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

COUNTER = Path(__file__).resolve().parents[2] / "tools" / "count-results.py"
RESULTS = """<?xml version="1.0"?><testsuite>
<testcase name="a" status="run"/><testcase name="b" status="run"/>
<testcase name="c" status="fail"><failure message=""/></testcase>
<testcase name="d" status="notrun"><skipped message="SKIP_RETURN_CODE=77"/></testcase>
<testcase name="e" status="disabled"/>
<testcase name="f" status="run"/><testcase name="g" status="fail"><failure message=""/></testcase></testsuite>"""
# What two GoogleTest programs left: one with a test skipped, one that died behind its only test.
PROGRAM = """<?xml version="1.0"?><testsuites><testsuite name="S">
<testcase name="One" status="run" result="completed" classname="S"/>
<testcase name="Two" status="run" result="skipped" classname="S"><skipped/></testcase></testsuite></testsuites>"""
DEAD = """<?xml version="1.0"?><testsuites><testsuite name="S">
<testcase name="One" status="run" result="completed" classname="S"/></testsuite></testsuites>"""


class CountResults(unittest.TestCase):
    def test_counts_and_names(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder, "results.xml")
            path.write_text(RESULTS, encoding="ascii")
            Path(folder, "f.xml").write_text(PROGRAM, encoding="ascii")
            Path(folder, "g.xml").write_text(DEAD, encoding="ascii")
            said, twice = (subprocess.run([sys.executable, str(COUNTER)] + times * [str(path), folder], text=True,
                                          capture_output=True, check=True).stdout for times in (1, 2))
        self.assertEqual(twice.splitlines()[-1], "8 passed, 4 failed, 6 skipped")
        self.assertEqual(said.splitlines(), ["skipped: d", "skipped: e", "skipped: f: S.Two", "failed: c", "failed: g",
                                             "4 passed, 2 failed, 3 skipped"])


if __name__ == "__main__":
    unittest.main()
