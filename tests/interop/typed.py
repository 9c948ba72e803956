"""typed.py: texts of other programs go in between what comes from a pipe, a script or the keyboard."""
import os
import pty
import select
import signal
import socket
import subprocess
import time
import unittest

import kxcad
from hosts import Hosts, wait_for


class Pipe(Hosts):
    def test_texts_come_between_lines(self):
        host = self.begin("--no-module", "--stay")
        self.wait_for_title(host.pid, "[Drawing1.dwg]")
        host.stdin.write("(setq a 1)\n".encode())
        host.stdin.flush()
        self.launch("send", "(setq b (1+ 1))")
        self.launch("send", "(princ\n(strcat \"two\" \" lines\"))")
        host.stdin.close()   # the end of the input is not the end of the host
        host.stdin = None
        self.launch("send", '(princ (strcat "sum " (itoa (+ a b))))')
        self.launch("send", "--title", "drawing1", "QUIT")
        out = host.communicate(timeout=60)[0].decode()
        self.assertEqual(host.returncode, 0, out)
        self.assertIn("sum 3", out)
        self.assertIn("two lines", out)

    def test_the_title_follows_the_drawing(self):
        host = self.begin("--no-module", "--stay", kxcad.SAMPLES / "floorplan.dxf")
        self.wait_for_title(host.pid, "AutoCAD 2011 - [floorplan.dxf]")
        self.launch("send", f'(command "_.SAVEAS" "" "{self.folder}/改名.dxf")')
        self.wait_for_title(host.pid, "[改名.dxf]")

    def test_who_takes_no_texts(self):
        (self.folder / "long.scr").write_text("(setq i 0)\n(while (< i 100000000) (setq i (1+ i)))\n", encoding="ascii")
        for arguments, setting in ((["--stay", "--no-messages"], "on"), (["--stay"], "off"), (["--script", "long.scr"], "on")):
            with self.subTest(arguments=arguments):
                self.environment["KX_MESSAGES"] = setting
                host = self.begin("--no-module", *arguments)
                self.wait_for_title(host.pid, "AutoCAD")
                self.assertIn("did not take the text", self.launch("send", "REGEN", status=1).err)
                host.kill()
                host.wait()

    def test_ctrl_c_ends_a_host_without_input(self):
        host = self.begin("--no-module", "--stay")
        host.stdin.close()
        host.stdin = None
        self.wait_for_title(host.pid, "[Drawing1.dwg]")
        host.send_signal(signal.SIGINT)
        self.assertEqual(host.wait(timeout=60), 0)


class Terminal(Hosts):
    def setUp(self):
        super().setUp()
        self.begin_at_terminal()

    def begin_at_terminal(self):
        self.main, other = pty.openpty()
        self.host = subprocess.Popen([kxcad.program(), "--no-module"], stdin=other, stdout=other, stderr=other, cwd=self.folder,
                                     env={**self.environment, "TERM": "xterm"}, start_new_session=True)
        os.close(other)
        self.addCleanup(os.close, self.main)
        self.addCleanup(self.end, self.host)
        self.seen, self.said = b"", ""
        self.wait_until("Command: ")

    def wait_until(self, text):
        def shown():
            if select.select([self.main], [], [], 0.1)[0]:
                piece = os.read(self.main, 65536)
                self.seen += piece
                self.said += piece.decode("utf-8", "replace")
            return text.encode() in self.seen
        wait_for(f"{text!r} on the terminal", shown)
        self.seen = self.seen.partition(text.encode())[2]

    def type(self, text):
        os.write(self.main, text.encode())

    def test_a_text_leaves_what_is_being_typed(self):
        self.type('(princ "墙x')
        self.wait_until("墙x")
        self.type("\x02")   # the cursor goes back by one
        self.launch("send", "(princ (+ 20 3))")
        self.wait_until("(princ (+ 20 3))")
        self.wait_until("23")
        self.wait_until('(princ "墙x')
        self.type('门")\r')
        for _ in range(2):
            self.wait_until("墙x门")

    def answer(self, prompt, text):
        """Types once the prompt is there: a key that comes before is lost."""
        self.wait_until(prompt)
        self.type(text)

    def test_history_outlives_the_session(self):
        self.type("(setq kx-first 11)\r")
        self.answer("Command: ", "LTSCALE\r")
        self.answer("LTSCALE", "2.5\r")
        self.answer("Command: ", "QUIT\r")
        self.answer("discard all changes", "Y\r")
        wait_for("the end of the host", lambda: self.host.poll() is not None)
        self.begin_at_terminal()
        self.type("\x1b[A" * 5 + "\r")   # up to the first
        self.wait_until("(setq kx-first 11)")
        self.answer("Command: ", "(princ (strcat \"is \" (itoa kx-first)))\r")
        self.wait_until("is 11")

    def test_tab_completes_what_the_prompt_takes(self):
        self.type("-lay\t\r")
        self.answer("Enter an option", "N\r")
        self.answer("name", "Walls of brick\r")
        self.answer("Enter an option", "OFF\r")
        self.answer("name", "walls\t\r")
        self.wait_until("Walls of brick")
        self.answer("Enter an option", "\r")
        self.answer("Command: ", "(command \"_.LINE\" '(0 0) '(9 9) \"\")\r")
        self.answer("Command: ", "_selec\t\r")
        self.answer("Select objects: ", "las\t\r")
        self.wait_until("Last")
        self.wait_until("1 found")

    def test_escape_cancels_what_is_being_typed(self):
        self.type("LINE\r")
        self.answer("first point: ", "1,2")
        self.wait_until("1,2")
        self.type("\x1b")
        self.wait_until("*Cancel*")
        self.answer("Command: ", "(+ 1  40)\x1b[D\x1b[D\x1b[D\x1b[D2\r")   # the arrows still move
        self.wait_until("2004l43\r")

    def test_pasted_lines_are_a_script(self):
        self.type("(setq a \x1b[200~1)\r; a note\rLINE\r0,0\r3,4\r\r(princ (strcat \"len\"\r\t(itoa (+ a 8)) \"th\"))\r(pri\x1b[201~")
        self.wait_until("Specify next point or [Undo]: 3,4")
        self.wait_until("len9th")
        self.answer("(pri", "nc \"end of it\")\r")
        self.wait_until("2004lend of it")

    def test_ctrl_c_ends_a_pasted_script(self):
        self.type("\x1b[200~LINE\r0,0\r(progn (princ \"sl\") (princ \"ow\") (while T))\r(princ (strcat \"ne\" \"ver\"))\r\x1b[201~")
        self.wait_until("slow")
        os.kill(self.host.pid, signal.SIGINT)
        self.answer("next point or [Undo]: ", "\r")
        self.answer("Command: ", "(princ (strcat \"ag\" \"ain\"))\r")
        self.wait_until("again")
        self.assertNotIn("never", self.said)

    def test_ctrl_c_and_the_end_of_the_input(self):
        self.type('(getstring "word? ")\r')
        self.wait_until("word? ")
        os.kill(self.host.pid, signal.SIGINT)
        self.wait_until("*Cancel*")
        self.wait_until("Command: ")

        def has_ended():   # a key that comes before the editor is ready is lost
            self.type("\x04")
            return self.host.poll() is not None
        wait_for("the end of the host", has_ended)
        self.assertEqual(self.host.returncode, 0)


class DebugOutput(Hosts):
    def test_the_viewer_shows_who_said_what(self):
        viewer = self.begin("--debug-output")
        socket_file = self.folder / "windows" / "debug.socket"
        wait_for("the viewer", socket_file.exists)
        sender = socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM)
        for text in ("图层 1\n", "half a ", "line\nand more"):
            sender.sendto(text.encode(), str(socket_file))
        sender.close()
        second = self.kxcad("--debug-output")
        self.assertEqual(second.status, 3, second)
        self.assertIn("another viewer", second.err)
        time.sleep(0.2)
        viewer.send_signal(signal.SIGINT)
        out = viewer.communicate(timeout=60)[0].decode()
        me = f"[{os.getpid()}] "
        self.assertEqual(out, f"{me}图层 1\n{me}half a line\n{me}and more\n")
        self.assertFalse(socket_file.exists())


if __name__ == "__main__":
    unittest.main()
