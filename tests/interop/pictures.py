"""pictures.py DRAWING: the picture of a drawing shows what the drawing add-on of ezdxf shows, cell by cell of a coarse grid.

Both pictures are laid into a grid over what is inked. A cell that is inked in one picture has to be inked in the other, or
in a neighbour of it there: fonts, arrow heads and the ends of dashes differ a little. Each hue
of a cell there has to be found here, too."""
import colorsys
import struct
import sys
import tempfile
import zlib
from pathlib import Path

import kxcad

try:
    import ezdxf
    from ezdxf.addons.drawing import Frontend, RenderContext
    from ezdxf.addons.drawing.backend import Backend
    from ezdxf.tools.fonts import FontMeasurements
except ImportError:
    print("python3-ezdxf is not installed")
    sys.exit(kxcad.SKIPPED)

COLUMNS, ROWS = 60, 40
FILLING = 2 * ROWS     # lines across a filled area
MOST_DIFFERENT = 0.02   # share of the cells that are inked in either
HUES = 12              # of the colour circle; neighbours count as alike
LEAST_COLOUR = 48      # between the largest and the smallest part of a colour; less is grey


def hue_of(red, green, blue):
    """A number of the colour circle; None for greys."""
    if max(red, green, blue) - min(red, green, blue) < LEAST_COLOUR:
        return None
    return round(colorsys.rgb_to_hsv(red, green, blue)[0] * HUES) % HUES


class Recorder(Backend):
    """Lines and areas as segments of the drawing's XY plane."""

    def __init__(self):
        super().__init__()
        self.segments, self.background = [], None

    def set_background(self, color):
        self.background = color

    def draw_point(self, pos, properties):
        self.segments.append((pos.x, pos.y, pos.x, pos.y, properties.color))

    def draw_line(self, start, end, properties):
        self.segments.append((start.x, start.y, end.x, end.y, properties.color))

    def draw_filled_polygon(self, points, properties):
        points = list(points)
        edges = list(zip(points, points[1:] + points[:1]))
        for a, b in edges:
            self.draw_line(a, b, properties)
        if properties.color == self.background:   # a wipeout
            return
        low, high = min(p.y for p in points), max(p.y for p in points)
        for step in range(1, FILLING):
            y = low + (high - low) * step / FILLING
            xs = sorted(a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y) for a, b in edges if (a.y > y) != (b.y > y))
            self.segments += [(left, y, right, y, properties.color) for left, right in zip(xs[::2], xs[1::2])]

    def draw_text(self, text, transform, properties, cap_height):
        width = self.get_text_line_width(text, cap_height)
        for share in (0, 0.25, 0.5, 0.75, 1):
            a, b = transform.transform_vertices([(0, cap_height * share, 0), (width, cap_height * share, 0)])
            self.draw_line(a, b, properties)

    def get_font_measurements(self, cap_height, font=None):
        return FontMeasurements(0.0, cap_height, cap_height * 0.67, cap_height * 0.33)

    def get_text_line_width(self, text, cap_height, font=None):
        return sum(1.0 if ord(letter) > 0x2E7F else 0.72 for letter in text) * cap_height

    def clear(self):
        self.segments = []


def recorded(document):
    recorder = Recorder()
    Frontend(RenderContext(document), recorder).draw_layout(document.modelspace(), finalize=False)
    return recorder.segments


def read_png(path):
    """Width, height and rows of RGB bytes."""
    data = path.read_bytes()
    at, packed, width, height = 8, b"", 0, 0
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        if kind == b"IHDR":
            width, height = struct.unpack(">II", data[at + 8:at + 16])
        elif kind == b"IDAT":
            packed += data[at + 8:at + 8 + length]
        at += length + 12
    raw = zlib.decompress(packed)
    stride, rows, before = width * 3, [], bytearray(width * 3)
    for y in range(height):
        kind, row = raw[y * (stride + 1)], bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for x in range(stride):
            left = row[x - 3] if x >= 3 else 0
            up, corner = before[x], before[x - 3] if x >= 3 else 0
            if kind == 1:
                row[x] = row[x] + left & 255
            elif kind == 2:
                row[x] = row[x] + up & 255
            elif kind == 3:
                row[x] = row[x] + (left + up) // 2 & 255
            elif kind == 4:
                guess = left + up - corner
                near = min((abs(guess - left), 0, left), (abs(guess - up), 1, up), (abs(guess - corner), 2, corner))
                row[x] = row[x] + near[2] & 255
        rows.append(row)
        before = row
    return width, height, rows


def cells_of_picture(path):
    """The hues in each cell that is inked."""
    width, height, rows = read_png(path)
    inked = [(x, y) for y, row in enumerate(rows) for x in range(width) if row[x * 3:x * 3 + 3] != b"\xff\xff\xff"]
    if not inked:
        return {}
    left, right = min(x for x, _ in inked), max(x for x, _ in inked) + 1
    top, bottom = min(y for _, y in inked), max(y for _, y in inked) + 1
    cells, hues = {}, {}
    for x, y in inked:
        color = bytes(rows[y][x * 3:x * 3 + 3])
        if color not in hues:
            hues[color] = hue_of(*color)
        cells.setdefault(((x - left) * COLUMNS // (right - left), (y - top) * ROWS // (bottom - top)), set()).add(hues[color])
    return cells


def cells_of_segments(segments):
    if not segments:
        return {}
    xs = [x for s in segments for x in (s[0], s[2])]
    ys = [y for s in segments for y in (s[1], s[3])]
    left, bottom = min(xs), min(ys)
    wide, high = max(max(xs) - left, 1e-9), max(max(ys) - bottom, 1e-9)
    cells = {}
    for x1, y1, x2, y2, color in segments:
        hue = hue_of(*bytes.fromhex(color[1:7]))
        steps = int(max(abs(x2 - x1) / wide * COLUMNS, abs(y2 - y1) / high * ROWS) * 3) + 1
        for step in range(steps + 1):
            x, y = x1 + (x2 - x1) * step / steps, y1 + (y2 - y1) * step / steps
            column, row = int((x - left) / wide * COLUMNS), int((y - bottom) / high * ROWS)
            cells.setdefault((min(column, COLUMNS - 1), ROWS - 1 - min(row, ROWS - 1)), set()).add(hue)
    return cells


def around(cell, cells):
    x, y = cell
    return [cells[at] for at in ((x + dx, y + dy) for dx in (-1, 0, 1) for dy in (-1, 0, 1)) if at in cells]


def missing(cells, others):
    return {cell for cell in cells if not around(cell, others)}


def discoloured(cells, others):
    """Cells with a hue that the others have nowhere around."""
    found = set()
    for cell, hues in cells.items():
        there = set().union(*around(cell, others)) - {None}
        alike = {(hue + step) % HUES for hue in there for step in (-1, 0, 1)}
        if around(cell, others) and hues - {None} - alike:
            found.add(cell)
    return found


def difference(source, folder):
    """What is inked in one picture of the model space only; None where that is little."""
    picture = Path(folder, "picture.png")
    result = kxcad.run("--no-module", "--quiet", "--command", "", "--plot", picture, "--dpi", 75, source)
    if result.status != 0:
        return str(result)
    ours = cells_of_picture(picture)
    theirs = cells_of_segments(recorded(ezdxf.readfile(source)))
    lacking, added = missing(theirs, ours), missing(ours, theirs)
    hues = discoloured(theirs, ours)   # not the other way: where lines cross, pixels here are mixtures
    most = MOST_DIFFERENT * len(ours.keys() | theirs.keys())
    if ours and len(lacking) + len(added) <= most and len(hues) <= most:
        return None
    return (f"{len(ours)} cells inked here, {len(theirs)} there; lacking {sorted(lacking)[:20]}, added {sorted(added)[:20]}, "
            f"of other hues {sorted(hues)[:20]}")


def main(source):
    if not source.is_file():
        print(f"{source} is not here")
        return kxcad.SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        found = difference(source, folder)
    if found:
        print(found)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
