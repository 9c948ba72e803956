"""Hosts that run while a test talks to them, each test in a world of its own."""
import os
import re
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

import kxcad

PATIENCE = 60   # seconds for anything that should take a moment


def wait_for(what, answer):
    """The first true value of `answer`."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        value = answer()
        if value:
            return value
        time.sleep(0.05)
    raise AssertionError(f"{what}: not within {PATIENCE} seconds")


class Hosts(unittest.TestCase):
    """A registry, a folder of windows, a temp folder and a drive C: that nobody else uses."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        for name in ("state", "tmp", "c"):
            (self.folder / name).mkdir()
        self.environment = {**os.environ, "KX_WINDOWS": str(self.folder / "windows"), "KX_REGISTRY": str(self.folder / "registry.reg"),
                            "XDG_STATE_HOME": str(self.folder / "state"), "TMPDIR": str(self.folder / "tmp"),
                            "KX_DRIVE_C": str(self.folder / "c"), "KX_SEND_TIMEOUT": "20000"}
        self.environment.pop("KX_LOG", None)
        self.addCleanup(self.kill_all)

    # --- programs ---
    def kxcad(self, *arguments, **options):
        result = kxcad.run(*arguments, env=self.environment, cwd=self.folder, **options)
        return result

    def launch(self, *arguments, status=0, **environment):
        """Runs kxlaunch to its end."""
        completed = subprocess.run([os.environ["KXLAUNCH"], *map(str, arguments)], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, timeout=PATIENCE, check=False, cwd=self.folder,
                                   env={**self.environment, **environment})
        result = kxcad.Result(arguments, completed)
        self.assertEqual(result.status, status, result)
        return result

    def install(self, *releases):
        for release in releases:
            self.assertEqual(self.kxcad("--install", self.folder / f"R{release}", "--release", release).status, 0)

    def start(self, *arguments):
        """Starts a host by kxlaunch; answers its process."""
        return int(self.launch("start", *arguments).out.split()[0])

    def begin(self, *arguments):
        """Starts a host as a child that reads a pipe."""
        process = subprocess.Popen([kxcad.program(), *map(str, arguments)], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                   stderr=subprocess.STDOUT, cwd=self.folder, env=self.environment)
        self.addCleanup(self.end, process)
        return process

    @staticmethod
    def end(process):
        if process.poll() is None:
            process.kill()
        process.communicate()

    # --- what there is to see ---
    def running(self):
        """process -> (release by title, release by program, title)"""
        rows = self.launch("list").out.partition("Running\n")[2].splitlines()[1:]
        found = [re.fullmatch(r"  (\S+) +(\S+) +(\d+)  (.*)", row) for row in rows]
        return {int(row[3]): (row[1], row[2], row[4]) for row in found if row}

    def log(self, process):
        path = self.folder / "state" / "kxcad" / f"kxcad-{process}.log"
        return path.read_text(encoding="utf-8") if path.exists() else ""

    def wait_for_log(self, process, text):
        return wait_for(f"{text!r} in the log of {process}", lambda: text in self.log(process))

    def wait_for_title(self, process, text):
        return wait_for(f"a title with {text!r}", lambda: text in self.running().get(process, ("", "", ""))[2])

    def gone(self, process):
        return wait_for(f"the end of {process}", lambda: process not in self.running())

    def kill_all(self):
        for mark in (self.folder / "windows").glob("*.alive"):
            try:
                os.kill(int(mark.stem), signal.SIGKILL)
            except ProcessLookupError:
                pass
