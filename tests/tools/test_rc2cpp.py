"""Compiles small resource scripts; where a resource compiler of others is at hand, the bytes must be the same."""
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOL = Path(__file__).resolve().parents[2] / "tools" / "rc2cpp.py"

# Only numbers, so that no header of a system is needed.
PLAIN = '''
LANGUAGE 4, 2
1 VERSIONINFO
FILEVERSION 1,2,3,4
PRODUCTVERSION 18,2,0,0
FILEFLAGSMASK 0x3F
FILEOS 0x40004
FILETYPE 2
BEGIN
    BLOCK "StringFileInfo"
    BEGIN
        BLOCK "080404b0"
        BEGIN
            VALUE "ProductName", "墙"
            VALUE "FileVersion", "1.2.3.4"
        END
    END
    BLOCK "VarFileInfo" { VALUE "Translation", 0x804, 1200 }
END
STRINGTABLE BEGIN 7, "a""b\\tc" 16, "墙体" END
201 DIALOGEX 1, -2, 30, 40
STYLE 0x80C800C0
CAPTION "图层"
FONT 9, "MS Shell Dlg", 400, 0, 1
BEGIN
    LTEXT "x", -1, 0, 0, 10, 8
    EDITTEXT 1001, 1, 2, 3, 4, 0x80 | 0x800
    DEFPUSHBUTTON "OK", 1, 5, 6, 7, 8
    CONTROL "", 1002, "SysListView32", 0x00810001, 7, 7, 90, 90, 0x200
    LISTBOX 1003, 1, 2, 3, 4, NOT 0x800000
    GROUPBOX "g", 1004, 1, 2, 3, 4
END
Names MENU
BEGIN
    POPUP "&File", GRAYED
    BEGIN
        MENUITEM "a", 300, CHECKED
        MENUITEM SEPARATOR
        POPUP "b" BEGIN MENUITEM "c", 301 END
    END
    MENUITEM "d", 302
END
'''

REFUSED = [
    ("1 ICON \"a.ico\"", "script.rc:1: resources of kind ICON are not understood"),
    ("STRINGTABLE\nBEGIN\n 1 \"a\"\n 1 \"b\"\nEND", "script.rc:4: string 1 is there twice"),
    ("STRINGTABLE\nBEGIN\n NAME \"a\"\nEND", "script.rc:3: 'NAME' is no number"),
    ("STRINGTABLE BEGIN 1 \"a\"", "the script ends inside of a block"),
    ("1 DIALOG 0, 0, 10\n", "expected ,"),
    ("1 DIALOG 0, 0, 10, 10\nBEGIN\nKNOB 1, 2\nEND", "script.rc:3: KNOB is no control"),
    ("#include \"missing.h\"", "script.rc:1: there is no missing.h"),
    ("#ifdef A\n", "a conditional is not closed"),
    ("#else\n", "script.rc:1: #else without #if"),
    ("1 MENU\nBEGIN\n @\nEND", "script.rc:3: what is '@'?"),
]


def entries(data):
    """(header, data) of each entry of a .res file."""
    at = 0
    while at + 8 <= len(data):
        size, head = struct.unpack_from("<II", data, at)
        yield data[at : at + head], data[at + head : at + head + size]
        at = (at + head + size + 3) // 4 * 4


class Compiling(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def compile(self, text, output="out.res"):
        (self.folder / "script.rc").write_text(text, encoding="utf-8")
        return subprocess.run([sys.executable, "-B", TOOL, "script.rc", output, "out.d"], cwd=self.folder, capture_output=True,
                              text=True)

    def test_wrong_scripts_are_named_by_line(self):
        for text, message in REFUSED:
            with self.subTest(text):
                result = self.compile(text)
                self.assertEqual(result.returncode, 1)
                self.assertIn(message, result.stderr)
                self.assertFalse((self.folder / "out.res").exists())

    def test_headers_are_dependencies(self):
        (self.folder / "numbers.h").write_text("#define IDS_A 5\nint not_of_the_script;\n")
        self.assertEqual(self.compile('#include "numbers.h"\nSTRINGTABLE { IDS_A "x" }').returncode, 0)
        self.assertEqual((self.folder / "out.d").read_text(), "out.res: script.rc numbers.h\n")

    def test_a_block_of_strings_byte_by_byte(self):
        self.assertEqual(self.compile('STRINGTABLE { 17 "墙a" }').returncode, 0)
        first, second = entries((self.folder / "out.res").read_bytes())
        self.assertEqual(first[1], b"")
        self.assertEqual(second[0][8:16], b"\xff\xff\x06\0\xff\xff\x02\0")   # a string block, the second one
        self.assertEqual(second[1], b"\0\0" + b"\x02\0\x99\x58a\0" + b"\0\0" * 14)

    def test_the_source_carries_the_version_in_words(self):
        self.assertEqual(self.compile(PLAIN, "out.cpp").returncode, 0)
        source = (self.folder / "out.cpp").read_text(encoding="utf-8")
        self.assertIn(r"ProductName=\345\242\231\012FileVersion=1.2.3.4\012ProductVersion=18.2.0.0\012", source)

    def test_other_compilers_agree(self):
        compiler = shutil.which("llvm-rc")
        if compiler is None:
            self.skipTest("llvm-rc is not installed")
        self.assertEqual(self.compile(PLAIN).returncode, 0)
        subprocess.run([compiler, "/no-preprocess", "/C", "65001", "/FO", "other.res", "script.rc"], cwd=self.folder, check=True)
        ours = sorted(entries((self.folder / "out.res").read_bytes()))
        others = sorted(entries((self.folder / "other.res").read_bytes()))
        self.assertEqual([head for head, _ in ours], [head for head, _ in others])
        for (head, data), (_, other) in zip(ours, others):
            self.assertEqual(data.hex(), other.hex(), head)


if __name__ == "__main__":
    unittest.main()
