"""launch.py: hosts are found, told apart, started and typed into from outside."""
import os
import signal
import time
import unittest
from pathlib import Path

import kxcad
from hosts import Hosts

PLAN = kxcad.SAMPLES / "floorplan.dxf"
RELEASE = '(princ (strcat "release " (getvar "ACADVER")))'


class TwoHosts(Hosts):
    def test_they_are_told_apart_and_get_their_texts(self):
        self.install("18.1", "18.2")
        plan = self.start("--release", "18.1", PLAN)
        empty = self.start("--release", "18.2")
        self.assertEqual(self.running(), {plan: ("18.1", "18.1", "AutoCAD 2011 - [floorplan.dxf]"),
                                          empty: ("18.2", "18.2", "AutoCAD 2012 - [Drawing1.dwg]")})
        several = self.launch("send", "REGEN", status=1)
        self.assertIn("there are several", several.err)
        self.assertIn("floorplan.dxf", several.out)
        self.launch("send", "--release", "18.2", RELEASE)
        self.wait_for_log(empty, "release 18.2")
        self.launch("send", "--title", "FloorPlan", RELEASE)
        self.wait_for_log(plan, "release 18.1")
        self.launch("send", "--process", plan, '(princ "轴线")\n(princ "second")\n')
        self.wait_for_log(plan, "轴线")
        self.wait_for_log(plan, "second")
        self.assertNotIn("轴线", self.log(empty))
        self.launch("send", "--release", "18.2", "QUIT")
        self.gone(empty)
        self.assertEqual(list(self.running()), [plan])
        self.launch("send", RELEASE)   # the only one left
        self.launch("send", "QUIT")
        self.gone(plan)
        self.assertEqual(list((self.folder / "windows").iterdir()), [], "nothing stays behind")

    def test_the_one_that_hangs_or_dies(self):
        self.install("18.1", "18.2")
        hung, dead = self.start("--release", "18.1"), self.start("--release", "18.2")
        os.kill(hung, signal.SIGSTOP)
        begin = time.monotonic()
        answer = self.launch("send", "--release", "18.1", "REGEN", status=1, KX_SEND_TIMEOUT="500")
        self.assertLess(time.monotonic() - begin, 15)
        self.assertIn("does not respond", answer.err)
        os.kill(hung, signal.SIGCONT)
        os.kill(dead, signal.SIGKILL)
        self.gone(dead)
        self.assertIn("release 18.2: there is none", self.launch("send", "--release", "18.2", "REGEN", status=1).err)
        self.launch("send", "--release", "18.1", RELEASE)
        self.wait_for_log(hung, "release 18.1")


class Start(Hosts):
    def setUp(self):
        super().setUp()
        self.install("18.0", "18.2")
        (self.folder / "one.scr").write_text('(princ "from the script")\n', encoding="utf-8")

    def test_what_it_is_given(self):
        module = Path(kxcad.program()).parent / "KxArxBase.arx"
        process = self.start("--release", "18.2", "--arx", module, "--script", "one.scr", PLAN)
        self.wait_for_log(process, "from the script")
        self.assertIn("(arxload", self.log(process))
        self.assertNotIn("failed", self.log(process))
        self.assertIn("[floorplan.dxf]", self.running()[process][2])
        newest = self.start("--script", "one.scr")
        self.assertEqual(self.running()[newest][:2], ("18.2", "18.2"))
        self.wait_for_log(newest, "from the script")
        self.launch("send", "--process", newest, '(princ "still there")')
        self.wait_for_log(newest, "still there")

    def test_a_profile_is_current_while_the_program_starts(self):
        registry = self.folder / "registry.reg"
        text = registry.read_text(encoding="utf-8")
        support = self.folder / "图库"
        support.mkdir()
        (support / "found.lsp").write_text('(princ "loaded from the profile")\n', encoding="utf-8")
        text += ("\n[HKEY_CURRENT_USER\\SOFTWARE\\Autodesk\\AutoCAD\\R18.0\\ACAD-8001:409\\Profiles\\建筑\\General]\n"
                 f'"ACAD"="Z:{support}"\n'.replace("/", "\\\\"))
        registry.write_text(text, encoding="utf-8")
        (self.folder / "load.scr").write_text('(load "found")\n', encoding="utf-8")
        process = self.start("--release", "18.0", "--profile", "建筑", "--script", "load.scr")
        self.wait_for_log(process, "loaded from the profile")
        self.assertIn('@="<<Unnamed Profile>>"', registry.read_text(encoding="utf-8").partition("R18.2")[0])
        self.assertRegex(self.launch("list").out, r"profile  <<Unnamed Profile>>  \(current\)\n +profile  建筑\n")

    def test_what_cannot_be_started(self):
        for arguments, why in ((["--release", "19.0"], "is not installed"), (["--arx", "none.arx"], "no such file"),
                               (["--profile", "none"], "no such profile"), (["none.dxf"], "no such file")):
            with self.subTest(arguments=arguments):
                self.assertIn(why, self.launch("start", *arguments, status=1).err)
        (self.folder / "letter.dxf").write_text("no drawing\n", encoding="ascii")
        self.assertRegex(self.launch("start", "letter.dxf", status=1).err, "ended while it was starting|shows no window")
        for arguments in ([], ["list", "x"], ["send"], ["start", "a", "b"], ["--nonsense"], ["start", "--title", "x"], ["dance"],
                          ["send", "--release", "x", "y"]):
            with self.subTest(arguments=arguments):
                self.launch(*arguments, status=2 if arguments else 0)


class Registry(Hosts):
    def test_an_export_is_listed(self):
        out = self.launch("list", "--registry", kxcad.SAMPLES / "registry.reg").out
        for row in (r"17\.1 +Civil 3D +ACAD-6000:804 +2052", r"17\.1 +AutoCAD +ACAD-6001:804", r"profile +建筑 +\(current\)\n",
                    r"profile +结构\n", r"18\.2 +AutoCAD +ACAD-A001:409 +1033", r"trusted +C:\\Kx\\\.\.\.\n"):
            self.assertRegex(out, row)
        self.assertIn("Running\n  none\n", out)

    def test_programs_are_entered_and_taken_out(self):
        self.install("18.2")
        program = self.folder / "R18.2" / "acad.exe"
        self.assertTrue(program.exists())
        self.assertRegex(self.launch("list").out, r"18\.2 +AutoCAD +ACAD-A001:409 +1033 +Z:.*\\Acad\.exe\n")
        family = self.launch("list").out.partition("Products")[2].partition("Running")[0]
        for name in ("KxArxBase", "kxcad", "kxlaunch"):
            self.assertRegex(family, rf"  1\.0 +{name} +Z:.*\\{name}")
        self.assertEqual(self.kxcad("--uninstall", "--release", "18.1").status, 4)
        self.assertEqual(self.kxcad("--uninstall", "--release", "18.2").status, 0)
        self.assertFalse(program.parent.exists())
        self.assertRegex(self.launch("list").out, r"registry\n  none\nProducts.*\n  none\n")
        registry = self.folder / "registry.reg"
        registry.write_bytes((kxcad.SAMPLES / "registry.reg").read_bytes())
        before = registry.read_bytes()
        for arguments in (["--install", "acad", "--release", "18.2"], ["--uninstall", "--release", "18.2"]):
            self.assertEqual(self.kxcad(*arguments).status, 4, "somebody else's program is left alone")
        self.assertEqual(registry.read_bytes(), before)


if __name__ == "__main__":
    unittest.main()
