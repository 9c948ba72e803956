"""Runs the host program for the tests of this folder."""
import os
import subprocess
import sys
from pathlib import Path

SKIPPED = 77   # what ctest takes for "skipped"
ROOT = Path(__file__).resolve().parents[2]
DATA = ROOT / "tests" / "data"
SAMPLES = ROOT / "samples"
sys.path.insert(0, str(ROOT / "tools"))
sys.dont_write_bytecode = True


def program():
    return os.environ["KXCAD"]


class Result:
    def __init__(self, arguments, completed):
        self.arguments = arguments
        self.status = completed.returncode
        self.out = completed.stdout.decode("utf-8", "replace")
        self.err = completed.stderr.decode("utf-8", "replace")

    def __str__(self):
        return f"kxcad {' '.join(map(str, self.arguments))}\nstatus {self.status}\n--- output\n{self.out[-3000:]}\n--- errors\n{self.err[-3000:]}"

    def died(self):
        """A signal, or a finding of a sanitizer: never right, whatever was asked."""
        return self.status < 0 or "Sanitizer" in self.err or "runtime error:" in self.err


def run(*arguments, typed="", timeout=120, **options):
    """Everything that is typed comes from standard input; its end is the end of the session."""
    completed = subprocess.run([program(), *map(str, arguments)], input=typed.encode("utf-8"), stdout=subprocess.PIPE,
                               stderr=subprocess.PIPE, timeout=timeout, check=False, **options)
    result = Result(arguments, completed)
    if result.died():
        raise AssertionError(f"the program died\n{result}")
    return result
