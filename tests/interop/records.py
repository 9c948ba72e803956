"""Compares two drawings record by record: what a reader kept, and what it lost."""
import math
from collections import Counter

from drawings import facts
from drawings.groups import kind_of

# What a writer sets anew: the time of saving, who saved, the next handle, and counts of tables.
RENEWED = {"$HANDSEED", "$TDUPDATE", "$TDUUPDATE", "$TDINDWG", "$TDUSRTIMER", "$LASTSAVEDBY", "$VERSIONGUID", "$ACADMAINTVER", "$HANDLING"}


class Record:
    def __init__(self, section, kind):
        self.section, self.kind, self.groups = section, kind, []

    @property
    def handle(self):
        code = 105 if self.kind == "DIMSTYLE" else 5
        return next((value.upper() for c, value in self.groups if c == code), None)


def plain(code, value):
    """A value that is equal for equal contents, however it was spelled."""
    kind = kind_of(code)
    try:
        if kind == "d":
            number = float(value.replace(b"D", b"E").replace(b"d", b"e"))
            return 0.0 if number == 0.0 else number if not math.isnan(number) else "nan"
        if kind != "s":
            return int(float(value)) if value not in (b"True", b"False") else int(value == b"True")
    except ValueError:
        pass
    if code in (5, 105) or 320 <= code < 370 or 390 <= code < 400 or code in (480, 481, 1005):
        return value.strip().upper().lstrip(b"0") or b"0"
    return value


def read(path):
    data = path.read_bytes()
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
                variables[name].append((code, plain(code, value)))
        elif records:
            records[-1].groups.append((code, plain(code, value)))
    return variables, [r for r in records if r.section and r.kind not in ("SECTION", "ENDSEC", "TABLE", "ENDTAB", "EOF")]


def losses(before, after):
    """Lines naming what stands in the first drawing and not in the second. Additions are no loss."""
    old_variables, old = read(before)
    new_variables, new = read(after)
    lines = [f"header variable {name}: {value} became {new_variables.get(name)}" for name, value in old_variables.items()
             if name not in RENEWED and new_variables.get(name) != value]

    by_handle = {(record.kind, record.handle): record for record in new if record.handle}
    unnamed = Counter((record.section, record.kind, frozenset(Counter(record.groups).items())) for record in new)
    for record in old:
        if record.handle:
            match = by_handle.get((record.kind, record.handle))
            if match is None:
                lines.append(f"{record.kind} {record.handle.decode()} of {record.section} is gone")
                continue
            missing = Counter(record.groups) - Counter(match.groups)
            if missing:
                lines.append(f"{record.kind} {record.handle.decode()}: lost {sorted(missing.items(), key=str)[:4]}")
        elif not found_without_handle(record, unnamed, new):
            lines.append(f"{record.kind} of {record.section} without a handle is gone: {record.groups[:6]}")
    return lines


def found_without_handle(record, unnamed, new):
    """The record may have been given a handle and an owner; all its own groups must be there."""
    if unnamed[(record.section, record.kind, frozenset(Counter(record.groups).items()))]:
        return True
    wanted = Counter(record.groups)
    return any(other.kind == record.kind and not wanted - Counter(other.groups) for other in new)
