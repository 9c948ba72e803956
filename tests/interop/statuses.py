"""statuses.py: the exit statuses and complaints that scripts around the program rely on."""
import tempfile
import unittest
from pathlib import Path

import kxcad

HOUSE = kxcad.DATA / "house_r2000_gbk.dxf"
DONE, FAILED, USAGE, UNREADABLE, UNSAVED = range(5)


class Statuses(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        (self.folder / "garbage.dxf").write_bytes(bytes(range(256)) * 40)
        (self.folder / "letter.dxf").write_text("Dear Sir,\nthis is no drawing.\n", encoding="ascii")
        (self.folder / "good.scr").write_text("REGEN\n", encoding="ascii")
        (self.folder / "taken").mkdir()

    def check(self, status, *arguments, said=None):
        before = {path: path.read_bytes() for path in self.folder.rglob("*") if path.is_file()}
        result = kxcad.run(*arguments, cwd=self.folder)
        self.assertEqual(result.status, status, result)
        if status in (USAGE, UNREADABLE, UNSAVED):
            complaint = result.err.strip().splitlines()[-1] if result.err.strip() else ""
            self.assertRegex(complaint if said else result.err, r"kxcad: .+")
            self.assertEqual({path: path.read_bytes() for path in self.folder.rglob("*") if path.is_file()}, before, result)
        if said is not None:
            self.assertIn(said, result.err if status != DONE else result.out, result)
        return result

    def test_help_and_version(self):
        self.check(DONE, "--help", said="usage: kxcad")
        self.assertRegex(self.check(DONE, "--version").out, r"^kxcad \d+\.\d+")

    def test_wrong_usage(self):
        for arguments in (["--no-such-option"], ["--script"], ["--command"], ["--output"], ["--release", "17.2"], [HOUSE, HOUSE]):
            with self.subTest(arguments=arguments):
                self.check(USAGE, *arguments)

    def test_unreadable(self):
        for name in ("missing.dxf", "garbage.dxf", "letter.dxf", "taken"):
            with self.subTest(drawing=name):
                self.check(UNREADABLE, "--no-module", self.folder / name, said=f"{name}: ")
        self.check(UNREADABLE, "--module", self.folder / "missing.arx", HOUSE, said="missing.arx: ")
        self.check(UNREADABLE, "--module", self.folder / "letter.dxf", HOUSE, said="letter.dxf: ")

    def test_a_refused_file_names_line_and_group(self):
        self.assertRegex(self.check(UNREADABLE, "--no-module", self.folder / "letter.dxf").err, r"(?i)line 1\b")

    def test_unsaved(self):
        for target in ("no/such/folder/a.dxf", "taken"):
            with self.subTest(target=target):
                self.check(UNSAVED, "--no-module", "--output", self.folder / target, HOUSE, said="kxcad: ")

    def test_scripts(self):
        rows = [(DONE, ["--command", "REGEN"]), (DONE, ["--script", self.folder / "good.scr"]), (FAILED, ["--command", "NOSUCHCOMMAND"]),
                (FAILED, ["--command", "(car 1)"]), (DONE, ["--command", "(+ 1 2)"]), (FAILED, ["--command", "NOSUCHCOMMAND", "--command", "REGEN"])]
        for status, arguments in rows:
            with self.subTest(arguments=arguments):
                self.check(status, "--no-module", *arguments, HOUSE)

    def test_the_script_may_come_from_standard_input(self):
        result = kxcad.run("--no-module", "--quiet", "--script", "-", HOUSE, typed="(princ (strcat \"墙\" \"体\"))\n")
        self.assertEqual(result.status, DONE, result)
        self.assertIn("墙体", result.out)

    def test_an_unknown_command_is_named(self):
        self.assertIn('Unknown command "NOSUCHCOMMAND".  Press F1 for help.', kxcad.run("--no-module", "-c", "NOSUCHCOMMAND", HOUSE).out)


if __name__ == "__main__":
    unittest.main()
