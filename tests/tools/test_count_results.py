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
<testcase name="e" status="disabled"/></testsuite>"""


class CountResults(unittest.TestCase):
    def test_counts_and_names(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder, "results.xml")
            path.write_text(RESULTS, encoding="ascii")
            said = subprocess.run([sys.executable, str(COUNTER), str(path)], capture_output=True, text=True, check=True).stdout
        self.assertEqual(said.splitlines(), ["skipped: d", "skipped: e", "failed: c", "2 passed, 1 failed, 2 skipped"])


if __name__ == "__main__":
    unittest.main()
