"""What a DWG reader that nobody here wrote finds in a file: the npm package that ./kx installs, run by node."""
import json
import os
import shutil
import subprocess
from pathlib import Path

import kxcad

PACKAGE = Path(os.environ.get("KX_DWG_READER", kxcad.ROOT / "build/dwg-reader/node_modules/@mlightcad/libredwg-web"))
SCRIPT = Path(__file__).with_name("dwgReader.mjs")

# Bits of the reader's error number. These two it sets for values that it finds odd in drawings of the format's own
# program as well (most often those with an ATTRIB or a HATCH); from CRITICAL on it lost something.
ODD_VALUES = 64 | 4
CRITICAL = 128


def missing():
    """Why nothing can be judged here; None when it can."""
    if shutil.which("node") is None:
        return "node is not installed"
    return None if PACKAGE.is_dir() else f"the DWG reader is not installed in {PACKAGE}: ./kx test does that"


def read(path):
    completed = subprocess.run(["node", SCRIPT, PACKAGE, path], stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=120, check=False)
    if completed.returncode != 0:
        raise AssertionError(f"the DWG reader died over {path}: {completed.stderr.decode()[-1000:]}")
    return json.loads(completed.stdout)
