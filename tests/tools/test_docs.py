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
        registered = set(re.findall(r'\{L"([A-Z-]+)", (?:ACRX|k)', text("platform/ed/commands/HostCommands.cpp")))
        self.assertGreater(len(registered), 15)
        chapter = text("docs/commands.md").split("## The host's own commands")[1]
        self.assertEqual(registered - set(re.findall(r"`([A-Z-]+)`", chapter)), set())


if __name__ == "__main__":
    unittest.main()
