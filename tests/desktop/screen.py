"""A screen in memory for programs with windows, and pictures of it."""
import os
import shutil
import struct
import subprocess
import tempfile
import zlib
from pathlib import Path

SKIPPED = 77   # what ctest takes for "skipped"
LEAKS = Path(__file__).resolve().parent / "leaks.txt"


def missing():
    """Why there can be no screen; empty when there can."""
    for program in ("Xvfb", "xdotool"):
        if shutil.which(program) is None:
            return f"{program} is not installed"
    fonts = subprocess.run(["fc-list", ":lang=zh"], stdout=subprocess.PIPE, check=False).stdout if shutil.which("fc-list") else b"?"
    return "" if fonts.strip() else "no font has Chinese letters"


class Screen:
    """`with Screen() as screen:`; programs find it through screen.environment."""

    def __init__(self, width=1400, height=900):
        self.size = f"{width}x{height}x24"

    def __enter__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="kxscreen")
        os.chmod(self.folder.name, 0o700)
        receive, send = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(send), "-screen", "0", self.size, "-fbdir", self.folder.name, "-nolisten", "tcp"],
            pass_fds=[send], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(send)
        with os.fdopen(receive) as answer:
            number = answer.readline().strip()
        if not number:
            raise OSError("Xvfb does not start")
        self.environment = dict(os.environ, DISPLAY=f":{number}", QT_QPA_PLATFORM="xcb", XDG_RUNTIME_DIR=self.folder.name,
                                XDG_STATE_HOME=f"{self.folder.name}/state", LANG="C.UTF-8", LC_ALL="C.UTF-8", QT_ACCESSIBILITY="0",
                                ASAN_OPTIONS="detect_leaks=1",   # the keyboard library copies from texts without an end
                                LSAN_OPTIONS=f"suppressions={LEAKS}:print_suppressions=0")
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait(timeout=10)
        self.folder.cleanup()

    def do(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True, timeout=30)

    def picture(self):
        data = Path(self.folder.name, "Xvfb_screen0").read_bytes()
        head = struct.unpack(">25I", data[:100])
        return Picture(head[4], head[5], head[12], data[head[0] + head[19] * 12:])


class Picture:
    def __init__(self, width, height, stride, data):
        self.width, self.height = width, height
        self.rows = [data[y * stride:y * stride + width * 4] for y in range(height)]

    def colors(self, left, top, right, bottom):
        """How often each colour stands in a rectangle: {0xRRGGBB: count}."""
        counts = {}
        for y in range(top, bottom):
            row = self.rows[y][left * 4:right * 4]
            for at in range(0, len(row), 4):
                color = row[at + 2] << 16 | row[at + 1] << 8 | row[at]
                counts[color] = counts.get(color, 0) + 1
        return counts

    def save(self, path, left=0, top=0, right=None, bottom=None):
        right, bottom = right or self.width, bottom or self.height
        lines = bytearray()
        for y in range(top, bottom):
            row = self.rows[y][left * 4:right * 4]
            line = bytearray(3 * (right - left))
            line[0::3], line[1::3], line[2::3] = row[2::4], row[1::4], row[0::4]
            lines += b"\0" + line

        def chunk(kind, body):
            return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))
        Path(path).write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", right - left, bottom - top, 8, 2, 0, 0, 0))
                               + chunk(b"IDAT", zlib.compress(bytes(lines), 9)) + chunk(b"IEND", b""))
