"""Compares two drawings record by record: what a reader kept, and what it lost."""
import math
import re
from collections import Counter

from drawings import facts
from drawings.groups import kind_of

# What a writer sets anew: the time of saving, who saved, the next handle, and counts of tables.
RENEWED = {"$HANDSEED", "$TDUPDATE", "$TDUUPDATE", "$TDINDWG", "$TDUSRTIMER", "$LASTSAVEDBY", "$VERSIONGUID", "$ACADMAINTVER", "$HANDLING"}


# Groups that hold names of symbols; their case means nothing.
NAMES = {2, 6, 7, 8, 1003}
HANDLES = {5, 105, 1005, 480, 481} | set(range(320, 370)) | set(range(390, 400))
# Records whose place in the file says who owns them, whatever their group 330 says; a reader mends that.
OWNED_BY_PLACE = {"VERTEX", "ATTRIB", "SEQEND", "VPORT", "LTYPE", "LAYER", "STYLE", "VIEW", "UCS", "APPID", "DIMSTYLE", "BLOCK_RECORD"}


class Record:
    def __init__(self, section, kind):
        self.section, self.kind, self.groups = section, kind, []

    @property
    def handle(self):
        code = 105 if self.kind == "DIMSTYLE" else 5
        return next((value for c, value in self.groups if c == code), None)

    @property
    def contents(self):
        """All but what a reader may mend."""
        mended = {5, 105, 330} if self.kind in OWNED_BY_PLACE else {5}
        return Counter((code, value) for code, value in self.groups
                       if code not in mended and not (code in HANDLES and not re.fullmatch(b"[0-9A-F]{1,16}", value)))


def plain(code, value, encoding):
    """A value that is equal for equal contents, however it was spelled."""
    kind = kind_of(code)
    try:
        if kind == "d":
            number = float(value.replace(b"D", b"E").replace(b"d", b"e"))
            return 0.0 if number == 0.0 else number if not math.isnan(number) else "nan"
        if kind != "s":
            return int(float(value)) if value not in (b"True", b"False") else int(value == b"True")
    except ValueError:
        return value
    if code in HANDLES:
        return value.strip().upper().lstrip(b"0") or b"0"
    if code == 1004 or 310 <= code < 320:
        return value.strip().upper()
    text = value.decode(encoding, "surrogateescape")
    text = re.sub(r"\\U\+([0-9A-Fa-f]{4})", lambda match: chr(int(match[1], 16)), text)
    text = re.sub(r"\\M\+([1-5])([0-9A-Fa-f]{4})", multibyte, text)
    return text.upper() if code in NAMES else text


def multibyte(match):
    page = {"1": "cp932", "2": "cp950", "3": "cp949", "4": "johab", "5": "gbk"}[match[1]]
    try:
        return bytes.fromhex(match[2]).decode(page)
    except UnicodeDecodeError:
        return match[0]


def read(path):
    data = path.read_bytes()
    known = facts.of(data)
    encoding = facts.encoding_of(known["version"], known["codepage"])
    reader = facts.binary_groups if data.startswith(facts.SENTINEL) else facts.ascii_groups
    records, variables, section, name = [], {}, None, None
    for code, value in reader(data):
        if code == 999:
            continue
        if code == 0:
            kind = value.strip().decode("latin-1")
            records.append(Record(section, kind))
            if kind in ("ENDSEC", "EOF"):
                section = None
        elif records and records[-1].kind == "SECTION" and code == 2:
            section = value.decode("latin-1")
        elif section == "HEADER":
            if code == 9:
                name = value.strip().decode("latin-1")
                variables[name] = []
            elif name:
                variables[name].append((code, plain(code, value, encoding)))
        elif records:
            records[-1].groups.append((code, plain(code, value, encoding)))
    uses = Counter(record.handle for record in records)   # of each handle, tables included
    return variables, uses, [r for r in records if r.section and r.kind not in ("SECTION", "ENDSEC", "TABLE", "ENDTAB", "EOF")]


def losses(before, after):
    """Lines naming what stands in the first drawing and not in the second. Additions are no loss."""
    old_variables, uses, old = read(before)
    new_variables, _, new = read(after)
    lines = [f"header variable {name}: {value} became {new_variables.get(name)}" for name, value in old_variables.items()
             if name not in RENEWED and new_variables.get(name) != value]

    by_handle = {(record.kind, record.handle): record for record in new if record.handle}
    by_contents = {}
    for record in new:
        by_contents.setdefault((record.section, record.kind), []).append(record.contents)
    for record in old:
        unique = record.handle and uses[record.handle] == 1
        if not unique:   # the reader gave it a handle of its own
            if not any(not record.contents - contents for contents in by_contents.get((record.section, record.kind), ())):
                lines.append(f"{record.kind} of {record.section} without a handle of its own is gone: {record.groups[:6]}")
            continue
        match = by_handle.get((record.kind, record.handle))
        if match is None:
            lines.append(f"{record.kind} {record.handle.decode()} of {record.section} is gone")
        elif match.section != record.section:
            lines.append(f"{record.kind} {record.handle.decode()} moved from {record.section} to {match.section}")
        elif missing := record.contents - match.contents:
            lines.append(f"{record.kind} {record.handle.decode()}: lost {sorted(missing.items(), key=str)[:4]}")
    return lines
