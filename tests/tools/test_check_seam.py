"""The seam checker finds each kind of trespass, and lets honest code pass."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECKER = Path(__file__).resolve().parents[2] / "tools" / "check-seam"

# Headers that every tree of these tests holds.
SKELETON = {
    "platform/KxHost.h": "",
    "platform/KxWin.h": "",
    "platform/win/Files.h": "",
    "platform/db/AcDbObjectId.h": "",
    "platform/db/AcDbObject.h": "",
    "KxMfcEx/KxModule.h": "",
    "KxArxBase/KxAcDb.h": "",
    "KxArxModules/KxCadBaseModule.h": "",
}

# file, its text, what the finding says (None: nothing is found)
ROWS = [
    ("KxArxBase/A.cpp", '#include "KxHost.h"\n#include "KxAcDb.h"\n#include "../KxMfcEx/KxModule.h"\n#include <vector>\n', None),
    ("KxArxBase/A.cpp", '#include "KxWin.h"\n', 'sees more of its host than "KxHost.h"'),
    ("KxMfcEx/A.cpp", '#include "KxHost.h"\n', 'sees more of its host than "KxWin.h"'),
    ("KxMfcEx/A.cpp", '#include "../KxArxBase/KxAcDb.h"\n', "sees more of its host"),
    ("KxArxBase/A.cpp", '#include "KxCadBaseModule.h"\n', "sees more of its host"),
    ("KxArxModules/A.cpp", '#include "../platform/win/Files.h"\n', "sees more of its host"),
    ("KxArxModules/A.cpp", "#include <unistd.h>\n", "header of the system: <unistd.h>"),
    ("KxArxModules/A.cpp", "#include <QWidget>\n", "header of the system: <QWidget>"),
    ("KxArxModules/A.cpp", "#include <thread>\n", "uses threads"),
    ("KxArxModules/A.cpp", "#  ifdef __linux__\n#endif\n", "asks which system"),
    ("KxArxModules/A.cpp", "#if 1 || defined(_WIN32)\n#endif\n", "asks which system"),
    ("KxArxModules/A.cpp", "int f() { return swprintf(b, 9, L\"%s\", t); }\n", "formats text past CString"),
    ("KxArxModules/A.cpp", "auto n = sizeof(wchar_t) * 4;\n", "counts bytes"),
    ("KxArxModules/A.cpp", "auto c = towupper(L'a');\n", "asks the C library about letters"),
    ("KxArxModules/A.cpp", "auto h = dlopen(name, 1);\n", "names a POSIX facility: dlopen"),
    ("KxArxModules/A.cpp", "auto n = KxPlat::OpenCount();\n", "names what only this platform has"),
    ("KxArxModules/A.cpp", '// dlopen is the platform\'s matter\n/* __linux__\n swprintf */ const char* t = "swprintf";\n', None),
    ("KxArxModules/A.cpp", "object->open(); object->close();\n", None),
    ("platform/win/A.cpp", "#include <fcntl.h>\n", "meets the system outside platform/win/posix"),
    ("platform/win/posix/A.cpp", "#include <fcntl.h>\n#include <sys/mman.h>\n", None),
    ("platform/db/A.cpp", '#include "../win/Files.h"\n#include "AcDbObject.h"\n', None),
    ("platform/win/A.cpp", '#include "../db/AcDbObject.h"\n', "win includes upwards"),
    ("platform/gi/A.cpp", '#include "../db/AcDbObjectId.h"\n', None),
    ("platform/mfc/A.cpp", '#include "../db/AcDbObjectId.h"\n', "mfc includes upwards"),
    ("platform/db/A.cpp", '#include "../KxHost.h"\n', "includes the whole host"),
    ("platform/db/A.cpp", '#include "../../KxArxBase/KxAcDb.h"\n', "the platform includes"),
    ("host/console/A.cpp", '#include "ui/HostUi.h"\n#include <histedit.h>\n', None),
    ("host/console/A.cpp", '#include "../../KxArxModules/KxCadBaseModule.h"\n', "includes a module header"),
    ("host/console/A.cpp", '#include "KxAcDb.h"\n', "includes a module header"),
]


def findings(files):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in {**SKELETON, **files}.items():
            path = Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        result = subprocess.run([sys.executable, str(CHECKER), folder], capture_output=True, text=True)
    lines = result.stdout.splitlines()
    assert (result.returncode != 0) == bool(lines), result
    return lines[:-1]


class CheckSeam(unittest.TestCase):
    def test_each_trespass_is_one_finding(self):
        for name, text, said in ROWS:
            with self.subTest(file=name, text=text):
                found = findings({name: text})
                if said is None:
                    self.assertEqual(found, [])
                else:
                    self.assertEqual(len(found), 1, found)
                    self.assertIn(said, found[0])
                    self.assertTrue(found[0].startswith(f"{name}:1: "), found[0])

    def test_a_finding_names_the_line(self):
        self.assertTrue(findings({"KxMfcEx/A.h": '#include "KxWin.h"\n\n#include <dlfcn.h>\n'})[0].startswith("KxMfcEx/A.h:3:"))


if __name__ == "__main__":
    unittest.main()
