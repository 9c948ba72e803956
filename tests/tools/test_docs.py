"""docs/commands.md lists the commands that there are, and no others."""
import re
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


def text(name):
    return (ROOT / name).read_text(encoding="utf-8")


class Docs(unittest.TestCase):
    def test_module_commands(self):
        registered = set(re.findall(r'\{L"(\w+)",\s*L"(\w+)",', text("KxArxModules/CommandTable.cpp")))
        self.assertGreater(len(registered), 30)
        chapter = text("docs/commands.md").split("## The host's own commands")[0]
        self.assertEqual(set(re.findall(r"^\| `(\w+)` \| `(\w+)` \|", chapter, re.MULTILINE)), registered)

    def test_host_commands(self):
        registered = set(re.findall(r'\{L"([0-9A-Z-]+)", (?:ACRX|k)', text("platform/ed/commands/HostCommands.cpp")))
        self.assertGreater(len(registered), 50)
        chapter = text("docs/commands.md").split("## The host's own commands")[1]
        rows = [line.split("|") for line in chapter.splitlines() if line.startswith("| `")]
        told = [name for row in rows for name in re.findall(r"`([0-9A-Z-]+)`", row[1])]
        self.assertEqual(set(told), registered)
        self.assertEqual(len(told), len(set(told)), "one row for each command")

    def test_short_names(self):
        source = text("platform/ed/CommandTable.cpp") + text("platform/ed/commands/HostCommands.cpp")
        aliases = dict(re.findall(r'\{L"([0-9A-Z?-]+)", L"([0-9A-Z-]+)"\}', source))
        self.assertGreater(len(aliases), 10)
        chapter = text("docs/commands.md").split("## The host's own commands")[1]
        for row in (line.split("|") for line in chapter.splitlines() if line.startswith("| `")):
            names = re.findall(r"`([0-9A-Z-]+)`", row[1])
            for short in re.findall(r"`([0-9A-Z?-]+)`", row[2]):
                self.assertIn(aliases.get(short), names, short)

    def test_lisp_functions(self):
        source = "".join(path.read_text(encoding="utf-8") for path in sorted((ROOT / "platform/ed/lisp").glob("*.cpp")))
        tables = re.findall(r"const Builtin kRows\[\] = \{(.*?)\n\};", source, re.DOTALL)
        names = {name.lower() for table in tables for name in re.findall(r'\{L"([^"]+)"', table)}
        names -= {name for name in names if re.fullmatch("c[ad]{2,4}r", name)}   # told of as the kin of car and cdr
        self.assertGreater(len(names), 200)
        chapter = text("docs/lisp.md").split("## Functions")[1].split("## What is otherwise")[0]
        told = set(re.findall(r"`([^`(]+)`", chapter)) - {"vla-get-...", "vla-put-..."}
        self.assertEqual(told, names)


if __name__ == "__main__":
    unittest.main()
