"""desktop.py: the desktop window as a person uses it: a real window on a screen of its own, keys, mouse, and a look at the picture."""
import os
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

import kxcad

sys.path.insert(0, str(kxcad.ROOT / "tests" / "desktop"))
import screen  # noqa: E402

PLAN = kxcad.SAMPLES / "floorplan.dxf"
DRAWING = (0, 70, 880, 600)   # where the picture surely is, in a window of the usual size


class Window:
    """`with Window(...) as window:` waits for its prompt and, at the end, for the program."""

    def __init__(self, own, *arguments):
        self.own, self.arguments = own, arguments

    def __enter__(self):
        self.program = subprocess.Popen([kxcad.program(), "--window", *map(str, self.arguments)], env=self.own.environment,
                                        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.own.do("search", "--sync", "--onlyvisible", "--name", "kxcad", "getwindowpid")
        self.settle()
        return self

    def __exit__(self, kind, *_):
        if kind is not None:
            self.program.kill()
        out, err = self.program.communicate(timeout=60)
        if kind is None:
            errors = err.decode("utf-8", "replace")
            assert self.program.returncode == 0 and "Sanitizer" not in errors, f"status {self.program.returncode}\n{errors}"

    def settle(self):
        """The picture once it has stopped changing."""
        before = None
        for _ in range(100):
            time.sleep(0.15)
            now = self.own.picture()
            if before is not None and now.rows == before.rows:
                return now
            before = now
        raise AssertionError("the picture never rests")

    def type(self, text):
        # Letters without a key are given one for a moment, which the program must hear of in time.
        self.own.do("type", "--delay", "8" if text.isascii() else "250", "--", text)
        self.own.do("key", "Return")

    def title(self):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "kxcad", "getwindowname"], env=self.own.environment,
                               stdout=subprocess.PIPE, check=True, timeout=30)
        return found.stdout.decode()


class Desktop(unittest.TestCase):
    def setUp(self):
        self.own = self.enterContext(screen.Screen()) if hasattr(self, "enterContext") else screen.Screen().__enter__()
        if not hasattr(self, "enterContext"):
            self.addCleanup(self.own.__exit__, None, None, None)
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def test_a_drawing_is_seen_and_a_layer_that_goes_off_is_not(self):
        red, background = 0xFF0000, 0x1E2228
        with Window(self.own, PLAN) as window:
            self.assertIn("floorplan.dxf", window.title())
            colors = window.own.picture().colors(*DRAWING)
            self.assertGreater(colors.get(background, 0), 100000)
            self.assertGreater(colors.get(red, 0), 500, "the axes are red")
            self.own.do("mousemove", 860, 560)
            for line in ("-LAYER", "_OFF", "轴线", ""):
                window.type(line)
            self.assertLess(window.settle().colors(*DRAWING).get(red, 0), colors[red] // 4)
            window.type("U")
            self.assertGreater(window.settle().colors(*DRAWING).get(red, 0), colors[red] * 9 // 10)
            self.own.do("mousemove", 300, 300)
            near = window.settle().rows
            self.own.do("click", 4)
            self.assertNotEqual(window.settle().rows, near, "the wheel zooms")
            window.type("QUIT")
            window.type("Y")   # the changes may go

    def test_chinese_letters_are_letters(self):
        """Each sign has its own shape: what stands for missing letters would look the same everywhere."""
        cells = []
        for letter in "墙门窗轴":
            drawing = self.folder / f"{letter}.dxf"
            made = kxcad.run("--no-module", "-c", f'(entmake (list (cons 0 "TEXT") (cons 10 (list 0 0 0)) (cons 40 10.0) (cons 1 "{letter}")))',
                             "-o", drawing)
            self.assertEqual(made.status, 0, str(made))
            with Window(self.own, "--no-module", drawing) as window:
                self.own.do("mousemove", 1000, 650)
                picture = window.settle()
                left, top, right, bottom = DRAWING
                rows = tuple(row[left * 4:right * 4] for row in picture.rows[top:bottom])
                ink = sum(count for color, count in picture.colors(*DRAWING).items() if color != 0x1E2228)
                self.assertGreater(ink, 1500, letter)
                cells.append(rows)
                window.type("QUIT")
        self.assertEqual(len(set(cells)), 4)

    def test_objects_are_picked_for_a_command_and_the_drawing_saved(self):
        drawing, saved = self.folder / "two.dxf", self.folder / "saved.dxf"
        made = kxcad.run("--no-module", "-c", "LINE 0,0 100,0", "-c", "", "-c", "LINE 0,30 100,30", "-c", "", "-o", drawing)
        self.assertEqual(made.status, 0, str(made))
        with Window(self.own, drawing) as window:
            rows = [y for y in range(DRAWING[1], DRAWING[3])
                    if window.own.picture().colors(200, y, 600, y + 1).get(0xFFFFFF, 0) > 300]
            self.assertEqual(len(rows), 2, rows)
            self.own.do("mousemove", 400, rows[0])
            window.type("ERASE")
            self.own.do("mousemove", 401, rows[0], "click", 1)
            window.settle()
            self.own.do("key", "Return")
            window.settle()
            for line in ("(command \"_.SAVEAS\" \"\" \"" + str(saved) + "\")", "QUIT"):
                window.type(line)
        listed = kxcad.run("--no-module", "--quiet", "-c", '(princ (sslength (ssget "X")))', saved)
        self.assertIn("1", listed.out.split())

    def test_scripts_and_messages_work_behind_a_window(self):
        script = self.folder / "do.scr"
        script.write_text("CIRCLE 0,0 10\n(command \"_.SAVEAS\" \"\" \"%s/done.dxf\")\nQUIT\n" % self.folder, encoding="utf-8")
        result = subprocess.run([kxcad.program(), "--window", "--script", str(script)], env=self.own.environment,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=60, check=False)
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        self.assertTrue((self.folder / "done.dxf").exists())

    def test_without_a_screen_it_says_so(self):
        environment = {key: value for key, value in os.environ.items() if key not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        for display in (None, ":4242"):
            with self.subTest(display=display):
                if display is not None:
                    environment["DISPLAY"] = display
                result = subprocess.run([kxcad.program(), "--window"], env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, timeout=60, check=False)
                self.assertEqual(result.returncode, 2)
                self.assertTrue(result.stderr.decode().startswith("kxcad: --window: "), result.stderr.decode())


if __name__ == "__main__":
    if not (Path(kxcad.program()).parent / "libkxdesktop.so").exists():
        print("the program has no desktop window")
        sys.exit(kxcad.SKIPPED)
    if screen.missing():
        print(screen.missing())
        sys.exit(kxcad.SKIPPED)
    unittest.main(verbosity=2)
