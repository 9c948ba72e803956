"""Reads the text of a resource script: conditionals and constants, then tokens.

Constants come from `#define NAME number` in the script and its own headers; those of the system's headers, which are
not read, stand in SYSTEM_CONSTANTS.
"""
import re
from pathlib import Path

SYSTEM_CONSTANTS = {
    "IDOK": 1, "IDCANCEL": 2, "IDABORT": 3, "IDRETRY": 4, "IDIGNORE": 5, "IDYES": 6, "IDNO": 7, "IDCLOSE": 8, "IDHELP": 9,
    "IDC_STATIC": -1,
    "WS_POPUP": 0x80000000, "WS_CHILD": 0x40000000, "WS_VISIBLE": 0x10000000, "WS_DISABLED": 0x08000000,
    "WS_CAPTION": 0x00C00000, "WS_BORDER": 0x00800000, "WS_DLGFRAME": 0x00400000, "WS_VSCROLL": 0x00200000,
    "WS_HSCROLL": 0x00100000, "WS_SYSMENU": 0x00080000, "WS_THICKFRAME": 0x00040000, "WS_GROUP": 0x00020000,
    "WS_TABSTOP": 0x00010000, "WS_MINIMIZEBOX": 0x00020000, "WS_MAXIMIZEBOX": 0x00010000, "WS_CLIPSIBLINGS": 0x04000000,
    "WS_EX_CLIENTEDGE": 0x200, "WS_EX_STATICEDGE": 0x20000, "WS_EX_TOOLWINDOW": 0x80, "WS_EX_APPWINDOW": 0x40000,
    "DS_ABSALIGN": 0x01, "DS_3DLOOK": 0x04, "DS_FIXEDSYS": 0x08, "DS_SETFONT": 0x40, "DS_MODALFRAME": 0x80,
    "DS_SHELLFONT": 0x48, "DS_CONTROL": 0x400, "DS_CENTER": 0x800,
    "BS_PUSHBUTTON": 0, "BS_DEFPUSHBUTTON": 1, "BS_CHECKBOX": 2, "BS_AUTOCHECKBOX": 3, "BS_RADIOBUTTON": 4, "BS_3STATE": 5,
    "BS_AUTO3STATE": 6, "BS_GROUPBOX": 7, "BS_AUTORADIOBUTTON": 9, "BS_OWNERDRAW": 11,
    "ES_LEFT": 0, "ES_CENTER": 1, "ES_RIGHT": 2, "ES_MULTILINE": 4, "ES_UPPERCASE": 8, "ES_LOWERCASE": 0x10,
    "ES_PASSWORD": 0x20, "ES_AUTOVSCROLL": 0x40, "ES_AUTOHSCROLL": 0x80, "ES_READONLY": 0x800, "ES_WANTRETURN": 0x1000,
    "ES_NUMBER": 0x2000,
    "SS_LEFT": 0, "SS_CENTER": 1, "SS_RIGHT": 2, "SS_ICON": 3, "SS_BLACKRECT": 4, "SS_NOPREFIX": 0x80, "SS_SUNKEN": 0x1000,
    "LBS_NOTIFY": 1, "LBS_SORT": 2, "LBS_MULTIPLESEL": 8, "LBS_NOINTEGRALHEIGHT": 0x100, "LBS_EXTENDEDSEL": 0x800,
    "CBS_SIMPLE": 1, "CBS_DROPDOWN": 2, "CBS_DROPDOWNLIST": 3, "CBS_AUTOHSCROLL": 0x40, "CBS_SORT": 0x100,
    "LVS_ICON": 0, "LVS_REPORT": 1, "LVS_LIST": 3, "LVS_SINGLESEL": 4, "LVS_SHOWSELALWAYS": 8, "LVS_SORTASCENDING": 0x10,
    "LVS_NOSORTHEADER": 0x8000, "LVS_ALIGNLEFT": 0x800,
    "LANG_NEUTRAL": 0, "LANG_CHINESE": 4, "LANG_ENGLISH": 9, "SUBLANG_NEUTRAL": 0, "SUBLANG_DEFAULT": 1,
    "SUBLANG_ENGLISH_US": 1, "SUBLANG_CHINESE_SIMPLIFIED": 2,
    "VS_VERSION_INFO": 1, "VS_FFI_FILEFLAGSMASK": 0x3F, "VS_FF_DEBUG": 1, "VS_FF_PRERELEASE": 2, "VOS_NT": 0x40000,
    "VOS_NT_WINDOWS32": 0x40004, "VOS__WINDOWS32": 4, "VFT_APP": 1, "VFT_DLL": 2, "VFT2_UNKNOWN": 0,
    "TRUE": 1, "FALSE": 0,
}
SYSTEM_HEADERS = {"windows.h", "winres.h", "afxres.h", "winresrc.h", "commctrl.h", "winver.h"}

TOKEN = re.compile(
    r'(?P<blank>[ \t\r\f]+)|(?P<line>\n)|(?P<text>L?"(?:""|\\.|[^"\\\n])*")|(?P<number>0[xX][0-9a-fA-F]+L?|[0-9]+L?)'
    r"|(?P<word>[A-Za-z_]\w*)|(?P<mark>[{},|()+~-])")
ESCAPES = {"n": "\n", "r": "\r", "t": "\t", "a": "\a", "\\": "\\", '"': '"'}


class ScriptError(Exception):
    pass


def unquoted(text):
    body = text[text.index('"') + 1 : -1].replace('""', '\\"')

    def escape(match):
        code = match.group(1)
        if code[0] in "xX" and len(code) > 1:
            return chr(int(code[1:], 16))
        if code[0] in "01234567":
            return chr(int(code, 8))
        return ESCAPES.get(code, "\\" + code)

    return re.sub(r"\\([xX][0-9a-fA-F]{1,4}|[0-7]{1,3}|.)", escape, body)


def without_comments(text):
    pattern = re.compile(r'"(?:""|\\.|[^"\\\n])*"|//[^\n]*|/\*.*?\*/', re.DOTALL)
    return pattern.sub(lambda m: m.group(0) if m.group(0)[0] == '"' else "\n" * m.group(0).count("\n") or " ", text)


class Script:
    """The tokens of a script as (kind, value, line), and its constants."""

    def __init__(self, path):
        self.constants = dict(SYSTEM_CONSTANTS)
        self.defined = {"RC_INVOKED", "_WIN32"}
        self.files = []
        self.tokens = []
        self.read(Path(path), keep=True)

    def read(self, path, keep):
        """Headers give constants only: their other lines are not kept."""
        self.files.append(path)
        shown = []   # of each open conditional: whether its lines count
        for number, line in enumerate(without_comments(path.read_text(encoding="utf-8-sig")).split("\n"), 1):
            directive = re.match(r"\s*#\s*(\w+)\s*(.*?)\s*$", line)
            if directive:
                self.directive(path, number, shown, *directive.groups())
            elif keep and all(shown):
                self.tokenize(path, number, line)
        if shown:
            raise ScriptError(f"{path}: a conditional is not closed")

    def directive(self, path, number, shown, word, rest):
        if word in ("ifdef", "ifndef"):
            shown.append((rest in self.defined) == (word == "ifdef"))
        elif word == "if":
            negated = re.fullmatch(r"(!?)\s*defined\s*\(?\s*(\w+)\s*\)?", rest)
            value = (negated.group(2) in self.defined) != bool(negated.group(1)) if negated else rest not in ("0", "")
            shown.append(value)
        elif word in ("else", "endif"):
            if not shown:
                raise ScriptError(f"{path}:{number}: #{word} without #if")
            value = shown.pop()
            if word == "else":
                shown.append(not value)
        elif not all(shown):
            return
        elif word == "include":
            self.include(path, number, rest)
        elif word == "define":
            name, _, value = rest.partition(" ")
            self.defined.add(name)
            value = value.strip().strip("()")
            if re.fullmatch(r"-?(0[xX][0-9a-fA-F]+|\d+)", value):
                self.constants[name] = int(value, 0)
            elif value in self.constants:
                self.constants[name] = self.constants[value]
        elif word == "undef":
            self.defined.discard(rest)
        elif word != "pragma":
            raise ScriptError(f"{path}:{number}: #{word} is not understood")

    def include(self, path, number, rest):
        name = rest.strip('<>"')
        if name.lower() in SYSTEM_HEADERS:
            return
        file = path.parent / name
        if not file.is_file():
            raise ScriptError(f"{path}:{number}: there is no {name}")
        self.read(file, keep=False)

    def tokenize(self, path, number, line):
        at = 0
        while at < len(line):
            match = TOKEN.match(line, at)
            if match is None:
                raise ScriptError(f"{path}:{number}: what is {line[at:at + 10]!r}?")
            at = match.end()
            kind, value = match.lastgroup, match.group(0)
            if kind == "text":
                value = unquoted(value)
            elif kind == "number":
                value = int(value.rstrip("L"), 0)
            if kind != "blank":
                self.tokens.append((kind, value, f"{path}:{number}"))
