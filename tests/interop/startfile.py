"""startfile.py: what the configuration file beside the module lists is there when the program has started, and goes with it."""
import shutil
import unittest
from pathlib import Path

import kxcad
from hosts import Hosts


def drive(path):
    return "Z:" + str(path).replace("/", "\\")


class StartFile(Hosts):
    def start_with(self, ini, *commands):
        programs = Path(kxcad.program()).parent
        shutil.copy(programs / "KxArxBase.arx", self.folder)
        shutil.copy(programs / "probe" / "KxRecorder.arx", self.folder / "Recorder.arx")
        (self.folder / "start.lsp").write_text('(setq kx-start "set at start")\n', encoding="utf-8")
        (self.folder / "tools.vlx").write_bytes(b"VRTLIB-1:\x00")
        (self.folder / "KxArxBase.INI").write_text(ini, encoding="utf-8")
        arguments = [argument for command in commands for argument in ("--command", command)]
        return self.kxcad("--no-module", "--module", self.folder / "KxArxBase.arx", *arguments)

    def check_lines(self, result, lines):
        """Each in its place behind the one before."""
        at = 0
        for line in lines:
            found = result.out.find(line, at)
            self.assertGreaterEqual(found, 0, f"{line!r} is missing or out of order\n{result}")
            at = found + len(line)

    def test_all_kinds_of_programs(self):
        here = drive(self.folder)
        result = self.start_with(
            f"[SUPPORTPATH]\nNum=2\n1=Z:\\Fonts\n2=Common\n[LOAD_ADLL]\nNum=1\n1=none.dll\n"
            f"[LOAD_ACAD]\nNum=7\n1={here}\\Recorder.arx\n2=  start.lsp\n4=net.dll\n5=none.arx\n6=tools.vlx\n7=plan.dvb\n",
            '(princ (strcat "LISP " kx-start))', '(princ (getenv "ACAD"))', '(princ (strcat "DIA " (itoa (getvar "FILEDIA"))))', "(princ (arx))")
        self.check_lines(result, [
            f"... 加载失败 {here}\\none.dll ...",   # libraries come before programs
            f"... ARX/DBX加载成功 {here}\\Recorder.arx ...\n", f"... 加载成功 {here}\\start.lsp ...\n",
            f"... 加载成功 {here}\\net.dll ...\n", f"... ARX/DBX加载失败 {here}\\none.arx ...\n",
            f"... 加载成功 {here}\\tools.vlx ...\n", f"... 加载成功 {here}\\plan.dvb ...\n",
            f'(LOAD "{here}/start.lsp")'.replace("\\", "/"), "this host runs no .NET assemblies", "compiled LISP", "VBA",
            "LISP set at start", f"z:\\fonts;{here}\\common".lower(), "DIA 0", "Recorder.arx",
            # An absolute entry is looked for under the path of the relative one before it, so it stays.
            f"... 卸载失败 {here}\\Recorder.arx ...", f"... 卸载失败 {here}\\start.lsp ..."])
        self.assertEqual(result.err, "")

    def test_the_section_of_the_release(self):
        ini = "[LOAD_ACAD]\nNum=1\n1=none.arx\n[LOAD_ACAD_182_X64]\nNum=1\n1=start.lsp\n"
        programs = self.start_with(ini, '(princ (strcat "LISP " (cond (kx-start) ("no"))))')
        self.assertIn("ARX/DBX加载失败", programs.out)   # another release than 18.2
        result = self.kxcad("--no-module", "--release", "18.2", "--module", self.folder / "KxArxBase.arx", "--command", "(princ kx-start)")
        self.assertIn("set at start", result.out)
        self.assertNotIn("none.arx", result.out)

    def test_no_file_no_word(self):
        result = self.start_with("", "(princ)")
        (self.folder / "KxArxBase.INI").unlink()
        result = self.kxcad("--no-module", "--module", self.folder / "KxArxBase.arx", "--command", "(princ)")
        self.assertNotIn("...", result.out)
        self.assertEqual((result.status, result.err), (0, ""))


if __name__ == "__main__":
    unittest.main()
