"""polygons.py PROGRAM: what two polygons share is what GEOS, by way of shapely, finds that they share."""
import math
import os
import random
import subprocess
import sys
import tempfile
from pathlib import Path

import kxcad

try:
    from shapely.geometry import Polygon
    from shapely.ops import unary_union
except ImportError:
    print("python3-shapely is not installed")
    sys.exit(kxcad.SKIPPED)

PAIRS = 500
NEAR = 1e-9   # of the areas


def star(dice, whole_numbers):
    """A ring of corners around a middle; on whole numbers edges run over each other and corners stand on edges."""
    count, x, y = dice.randint(3, 14), dice.uniform(-20, 20), dice.uniform(-20, 20)
    corners = []
    for i in range(count):
        angle, radius = 2 * math.pi * i / count, dice.uniform(5, 60)
        corners.append((x + radius * math.cos(angle), y + radius * math.sin(angle)))
    if whole_numbers:
        corners = [(round(x / 5) * 5, round(y / 5) * 5) for x, y in corners]
    polygon = Polygon(corners)
    return corners if polygon.is_valid and polygon.area > 1 else star(dice, whole_numbers)


def steps(dice):
    """A polygon of right angles on whole numbers, most of whose edges lie on those of others."""
    xs, top = sorted(dice.sample(range(10), 5)), []
    for left, right in zip(xs, xs[1:]):
        height = dice.randint(1, 6)
        top += [(left, height), (right, height)]
    return [(xs[-1], 0), (xs[0], 0)] + [p for i, p in enumerate(top) if i == 0 or p != top[i - 1]]


def line(corners):
    return " ".join(f"{x!r} {y!r}" for x, y in corners) + "\n"


def answers_of(program, pairs, folder):
    asked, answered = Path(folder, "pairs"), Path(folder, "shared")
    asked.write_text("".join(line(a) + line(b) for a, b in pairs))
    subprocess.run([program, "--gtest_filter=PolygonTest.SharedPolygonsOfAFile"], check=True, timeout=300, stdout=subprocess.DEVNULL,
                   env=dict(os.environ, KX_POLYGON_PAIRS=str(asked), KX_POLYGON_SHARED=str(answered)))
    answers, shared = [], []
    for text in answered.read_text().splitlines():
        if not text:
            answers.append(shared)
            shared = []
            continue
        numbers = [float(word) for word in text.split()]
        shared.append(Polygon(list(zip(numbers[::2], numbers[1::2]))))
    return answers


def main(program):
    dice = random.Random(20)
    makers = (lambda: star(dice, False), lambda: star(dice, True), lambda: steps(dice))
    pairs = [(make(), make()) for make in makers for _ in range(PAIRS)]
    with tempfile.TemporaryDirectory() as folder:
        answers = answers_of(program, pairs, folder)
    assert len(answers) == len(pairs), f"{len(answers)} answers to {len(pairs)} pairs"
    problems, parts = [], 0
    for at, ((a, b), ours) in enumerate(zip(pairs, answers)):
        theirs = Polygon(a).intersection(Polygon(b))
        parts += len(ours)
        allowed = NEAR * (1 + theirs.area)
        bad = [polygon for polygon in ours if not polygon.is_valid]
        if bad:
            problems.append(f"pair {at}: a ring that crosses itself: {bad[0]}")
        elif abs(sum(polygon.area for polygon in ours) - theirs.area) > allowed:
            problems.append(f"pair {at}: area {sum(polygon.area for polygon in ours)} instead of {theirs.area}: {a} and {b}")
        elif unary_union(ours).symmetric_difference(theirs.buffer(0)).area > 1e-6 * (1 + theirs.area):
            problems.append(f"pair {at}: the same area elsewhere")
    print(f"{len(pairs)} pairs share {parts} polygons")
    for problem in problems[:20]:
        print(problem)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
