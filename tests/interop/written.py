"""written.py DRAWING: opened and saved without a change, a drawing loses nothing and other programs like it no less."""
import sys
import tempfile
from pathlib import Path

import kxcad

try:
    import judge
except ImportError:
    print("python3-ezdxf is not installed")
    sys.exit(kxcad.SKIPPED)
import records
from drawings import facts


def main(source):
    if not source.is_file():
        print(f"{source} is not here")
        return kxcad.SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        saved = Path(folder, source.name)
        result = kxcad.run("--no-module", "--quiet", "--output", saved, source)
        if result.status != 0:
            print(result)
            return 1
        problems = records.losses(source, saved)
        problems += judge.Verdict(saved).worse_than(judge.Verdict(source))
        before, after = facts.of(source.read_bytes()), facts.of(saved.read_bytes())
        for what in ("format", "version", "modelspace"):
            if before[what] != after[what]:
                problems.append(f"{what}: {before[what]} became {after[what]}")
    for problem in problems[:40]:
        print(problem)
    if len(problems) > 40:
        print(f"... and {len(problems) - 40} more")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
