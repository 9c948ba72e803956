#!/usr/bin/env python3
"""Compiles a resource script into a C++ source that a module carries, or into a .res file.

usage: rc2cpp.py SCRIPT.rc OUTPUT.cpp|OUTPUT.res [DEPFILE]

Understands VERSIONINFO, DIALOG and DIALOGEX, MENU, STRINGTABLE, RCDATA (numbers and texts), LANGUAGE, and the
preprocessor as far as such scripts need it. What it does not understand is an error that names file and line.
"""
import struct
import sys
from pathlib import Path

sys.dont_write_bytecode = True
import rc_bytes
from rc_text import Script, ScriptError

WS_CHILD_VISIBLE, WS_TABSTOP, WS_BORDER, WS_GROUP, WS_CAPTION = 0x50000000, 0x10000, 0x800000, 0x20000, 0xC00000
DS_SETFONT = 0x40
MEMORY_WORDS = {"PRELOAD", "LOADONCALL", "FIXED", "MOVEABLE", "DISCARDABLE", "PURE", "IMPURE", "SHARED", "NONSHARED"}
# Statement -> window class, style that it always has, and whether a text comes first.
CONTROLS = {
    "LTEXT": ("static", WS_GROUP, True), "CTEXT": ("static", 1 | WS_GROUP, True), "RTEXT": ("static", 2 | WS_GROUP, True),
    "PUSHBUTTON": ("button", WS_TABSTOP, True), "DEFPUSHBUTTON": ("button", 1 | WS_TABSTOP, True),
    "CHECKBOX": ("button", 2 | WS_TABSTOP, True), "AUTOCHECKBOX": ("button", 3 | WS_TABSTOP, True),
    "RADIOBUTTON": ("button", 4, True), "AUTORADIOBUTTON": ("button", 9, True), "STATE3": ("button", 5 | WS_TABSTOP, True),
    "AUTO3STATE": ("button", 6 | WS_TABSTOP, True), "GROUPBOX": ("button", 7, True),
    "EDITTEXT": ("edit", WS_BORDER | WS_TABSTOP, False), "LISTBOX": ("listbox", 1 | WS_BORDER, False),
    "COMBOBOX": ("combobox", WS_TABSTOP, False),
}
MENU_FLAGS = {"GRAYED": 1, "INACTIVE": 2, "CHECKED": 8, "MENUBARBREAK": 0x20, "MENUBREAK": 0x40, "HELP": 0x4000}
VERSION_FIELDS = ("FILEVERSION", "PRODUCTVERSION", "FILEFLAGSMASK", "FILEFLAGS", "FILEOS", "FILETYPE", "FILESUBTYPE")


class Compiler:
    def __init__(self, script):
        self.script = script
        self.tokens = script.tokens
        self.at = 0
        self.language = 0x0409
        self.entries = []
        self.strings = {}
        self.version_texts = {}

    # --- tokens ---------------------------------------------------------------------------------------------------
    def peek(self):
        return self.tokens[self.at] if self.at < len(self.tokens) else ("end", "", "the end of the script")

    def next(self, kind=None, value=None):
        token = self.peek()
        if (kind and token[0] != kind) or (value and token[1] != value):
            raise ScriptError(f"{token[2]}: expected {value or 'a ' + kind}, not {token[1]!r}")
        self.at += 1
        return token[1]

    def skip(self, *values):
        found = self.peek()[1] in values and self.peek()[0] in ("mark", "word")
        self.at += found
        return found

    def factor(self):
        if self.skip("-"):
            return -self.factor()
        if self.skip("~"):
            return ~self.factor()
        if self.skip("("):
            value = self.number()
            self.next("mark", ")")
            return value
        kind, value, place = self.peek()
        self.at += 1
        if kind == "number":
            return value
        if kind == "word" and value in self.script.constants:
            return self.script.constants[value]
        raise ScriptError(f"{place}: {value!r} is no number")

    def number(self):
        return self.style(0)

    def style(self, value):
        """A | B | NOT C, laid over the bits of `value`."""
        while True:
            if self.skip("NOT"):
                value &= ~self.factor()
            else:
                value |= self.factor()
                while self.skip("+"):
                    value += self.factor()
            if not self.skip("|"):
                return value

    def numbers(self, count):
        values = [self.number()]
        while len(values) < count:
            self.next("mark", ",")
            values.append(self.number())
        return values

    def name(self):
        """A resource name: a number, a constant, or a text of its own."""
        kind, value, place = self.peek()
        if kind == "word" and value not in self.script.constants:
            self.at += 1
            return value
        return self.next() if kind == "text" else self.factor()

    def begin(self):
        if not self.skip("BEGIN", "{"):
            raise ScriptError(f"{self.peek()[2]}: expected BEGIN, not {self.peek()[1]!r}")

    def ends(self):
        if self.peek()[0] == "end":
            raise ScriptError("the script ends inside of a block")
        return self.skip("END", "}")

    # --- statements -----------------------------------------------------------------------------------------------
    def compile(self):
        while self.peek()[0] != "end":
            if self.skip("LANGUAGE"):
                main, sub = self.numbers(2)
                self.language = sub << 10 | main
            elif self.skip("STRINGTABLE"):
                self.string_table()
            else:
                self.resource()
        for block, data in rc_bytes.string_blocks(self.strings):
            self.add(rc_bytes.RT_STRING, block, data)

    def add(self, kind, name, data):
        self.entries.append(rc_bytes.entry(kind, name, self.language, data))

    def resource(self):
        place = self.peek()[2]
        name = self.name()
        kind = self.next("word")
        statements = {"DIALOG": self.dialog, "DIALOGEX": self.dialog, "MENU": self.menu, "VERSIONINFO": self.version,
                      "RCDATA": self.rcdata}
        if kind not in statements:
            raise ScriptError(f"{place}: resources of kind {kind} are not understood")
        while self.peek()[1] in MEMORY_WORDS:
            self.at += 1
        statements[kind](name)

    def string_table(self):
        while self.peek()[1] in MEMORY_WORDS:
            self.at += 1
        self.begin()
        while not self.ends():
            place = self.peek()[2]
            number = self.number()
            self.skip(",")
            if number in self.strings:
                raise ScriptError(f"{place}: string {number} is there twice")
            self.strings[number] = self.next("text")

    def rcdata(self, name):
        self.begin()
        data = b""
        while not self.ends():
            kind, value, _ = self.peek()
            if kind == "text":
                data += self.next().encode("latin-1", "replace")
            else:
                data += struct.pack("<H", self.factor() & 0xFFFF)
            self.skip(",")
        self.add(rc_bytes.RT_RCDATA, name, data)

    def dialog(self, name):
        rect = self.numbers(4)
        template = {"help_id": self.number() if self.skip(",") else 0, "rect": rect, "style": 0x80880000, "ex_style": 0,
                    "menu": "", "window_class": "", "caption": "", "font": None, "controls": []}
        while not self.skip("BEGIN", "{"):
            option = self.next("word")
            if option in ("STYLE", "EXSTYLE"):
                template["style" if option == "STYLE" else "ex_style"] = self.number()
            elif option == "CAPTION":
                template["caption"] = self.next("text")
                template["style"] |= WS_CAPTION
            elif option == "FONT":
                template["font"] = self.font()
            elif option in ("MENU", "CLASS"):
                template["menu" if option == "MENU" else "window_class"] = self.name()
            else:
                raise ScriptError(f"{self.peek()[2]}: {option} is no option of a dialog")
        if template["font"]:
            template["style"] |= DS_SETFONT
        while not self.ends():
            template["controls"].append(self.control())
        self.add(rc_bytes.RT_DIALOG, name, rc_bytes.dialog(template))

    def font(self):
        size = self.number()
        self.next("mark", ",")
        face = self.next("text")
        more = []
        while self.skip(","):
            more.append(self.number())
        weight, italic, charset = (more + [0, 0, 1][len(more):])[:3]
        return size, face, weight, italic, charset

    def control(self):
        place = self.peek()[2]
        word = self.next("word")
        if word == "CONTROL":
            text = self.next("text") if self.peek()[0] == "text" else self.factor()
            self.next("mark", ",")
            number = self.number()
            self.next("mark", ",")
            window_class = self.next("text")
            self.next("mark", ",")
            style = self.style(WS_CHILD_VISIBLE)
            self.next("mark", ",")
            rect = self.numbers(4)
        elif word in CONTROLS:
            window_class, style, has_text = CONTROLS[word]
            text = ""
            if has_text:
                text = self.next("text")
                self.next("mark", ",")
            number = self.number()
            self.next("mark", ",")
            rect = self.numbers(4)
            style |= WS_CHILD_VISIBLE
            if self.skip(","):
                style = self.style(style)
            elif word == "COMBOBOX":
                style |= 1
        else:
            raise ScriptError(f"{place}: {word} is no control")
        ex_style = self.number() if self.skip(",") else 0
        help_id = self.number() if self.skip(",") else 0
        return {"class": window_class, "style": style & 0xFFFFFFFF, "ex_style": ex_style, "help_id": help_id, "rect": rect,
                "id": number, "text": text}

    def menu(self, name):
        self.begin()
        self.add(rc_bytes.RT_MENU, name, rc_bytes.menu(self.menu_items()))

    def menu_items(self):
        items = []
        while not self.ends():
            place = self.peek()[2]
            word = self.next("word")
            if word == "POPUP":
                text = self.next("text")
                flags = self.menu_flags()
                self.begin()
                items.append({"text": text, "flags": flags, "items": self.menu_items()})
            elif word == "MENUITEM" and self.skip("SEPARATOR"):
                items.append({"text": "", "flags": 0, "id": 0})
            elif word == "MENUITEM":
                text = self.next("text")
                self.next("mark", ",")
                number = self.number()
                items.append({"text": text, "flags": self.menu_flags(), "id": number})
            else:
                raise ScriptError(f"{place}: {word} is no part of a menu")
        return items

    def menu_flags(self):
        flags = 0
        while self.peek()[1] in MENU_FLAGS or self.peek()[1] == ",":
            flags |= MENU_FLAGS.get(self.next(), 0)
        return flags

    def version(self, name):
        fixed = {field: [0] for field in VERSION_FIELDS}
        while not self.skip("BEGIN", "{"):
            field = self.next("word")
            if field not in fixed:
                raise ScriptError(f"{self.peek()[2]}: {field} is no part of a version")
            fixed[field] = [self.number()]
            while self.skip(","):
                fixed[field].append(self.number())
        tree = self.version_items()
        self.add(rc_bytes.RT_VERSION, name, rc_bytes.version(fixed, tree))
        self.version_texts.setdefault("FileVersion", ".".join(map(str, fixed["FILEVERSION"])))
        self.version_texts.setdefault("ProductVersion", ".".join(map(str, fixed["PRODUCTVERSION"])))

    def version_items(self):
        items = []
        while not self.ends():
            if self.skip("BLOCK"):
                key = self.next("text")
                self.begin()
                items.append({"block": key, "items": self.version_items()})
                continue
            self.next("word", "VALUE")
            key = self.next("text")
            values = []
            while self.skip(","):
                values.append(self.next() if self.peek()[0] == "text" else self.number())
            items.append({"value": key, "values": values})
            if values and isinstance(values[0], str):
                self.version_texts[key] = values[0]
        return items


def cpp_source(script_name, table, version_texts):
    data = struct.pack("<I", len(table)) + table
    lines = [f"// Made from {script_name} by rc2cpp.py.", "extern \"C\" {",
             'extern __attribute__((visibility("default"), aligned(4))) const unsigned char kxModuleResources[];',
             f"const unsigned char kxModuleResources[{len(data)}] = {{"]
    for at in range(0, len(data), 24):
        lines.append("    " + "".join(f"{byte}," for byte in data[at : at + 24]))
    lines.append("};")
    if version_texts:
        text = "".join(f"{key}={value}\n" for key, value in version_texts.items()).encode("utf-8")
        literal = "".join(chr(b) if 32 <= b < 127 and b not in b'"\\?' else f"\\{b:03o}" for b in text)
        lines.append(f'__attribute__((section(".kxversion"), used)) extern const char kxOwnVersion[] = "{literal}";')
    return "\n".join(lines + ["}", ""])


def main(arguments):
    if len(arguments) not in (2, 3):
        print(__doc__.strip(), file=sys.stderr)
        return 2
    script_file, output = Path(arguments[0]), Path(arguments[1])
    try:
        compiler = Compiler(Script(script_file))
        compiler.compile()
    except (ScriptError, OSError, UnicodeDecodeError) as problem:
        print(f"rc2cpp: {problem}", file=sys.stderr)
        return 1
    table = b"".join(compiler.entries)
    if output.suffix == ".res":
        output.write_bytes(rc_bytes.padded(struct.pack("<IIHHHH", 0, 32, 0xFFFF, 0, 0xFFFF, 0), 32) + table)
    else:
        output.write_text(cpp_source(script_file.name, table, compiler.version_texts), encoding="utf-8")
    if len(arguments) == 3:
        files = " ".join(str(file).replace(" ", "\\ ") for file in compiler.script.files)
        Path(arguments[2]).write_text(f"{output}: {files}\n", encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
