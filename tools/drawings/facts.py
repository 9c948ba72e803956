"""What a reader should find in a drawing: counted group by group, without any library."""
import re
import struct

from .groups import kind_of

SENTINEL = b"AutoCAD Binary DXF\r\n\x1a\x00"
CODE_PAGES = {"ANSI_936": "gbk", "ANSI_950": "cp950", "DOS932": "cp932", "DOS850": "cp850", "ANSI_1252": "cp1252"}
SUBORDINATE = {"VERTEX", "SEQEND", "ATTRIB"}


def ascii_groups(data):
    lines = data.split(b"\n")
    for code, value in zip(lines[::2], lines[1::2]):
        yield int(code), value.rstrip(b"\r")


def binary_groups(data):
    at = len(SENTINEL)
    one_byte = data[at + 1] != 0   # the first group is 0 SECTION: the byte behind its code is a letter or the code's high half
    while at < len(data):
        if not one_byte:
            code, at = struct.unpack_from("<h", data, at)[0], at + 2
        elif data[at] == 255:
            code, at = struct.unpack_from("<h", data, at + 1)[0], at + 3
        else:
            code, at = data[at], at + 1
        kind = kind_of(code)
        if code in range(310, 320) or code == 1004:
            size = data[at]
            value, at = data[at + 1 : at + 1 + size].hex().upper().encode(), at + 1 + size
        elif kind == "s":
            end = data.index(0, at)
            value, at = data[at:end], end + 1
        else:
            value, at = repr(struct.unpack_from("<" + kind, data, at)[0]).encode(), at + struct.calcsize("<" + kind)
        yield code, value


def encoding_of(version, code_page):
    return "utf-8" if version >= "AC1021" else CODE_PAGES.get((code_page or "").upper(), "cp1252")


def decoded(value, encoding):
    text = value.decode(encoding)
    text = re.sub(r"\\U\+([0-9A-Fa-f]{4})", lambda m: chr(int(m[1], 16)), text)
    return text


def of(data):
    binary = data.startswith(SENTINEL)
    tags = list(binary_groups(data) if binary else ascii_groups(data))
    variables = {}
    for (code, name), (_, value) in zip(tags, tags[1:]):
        if code == 9:
            variables.setdefault(name.decode(), value.decode("latin-1"))
    version, code_page = variables.get("$ACADVER", "AC1009"), variables.get("$DWGCODEPAGE")
    encoding = encoding_of(version, code_page)

    def text(record, code, default=None):
        return next((decoded(value, encoding) for c, value in record if c == code), default)

    # Records: each begins with a group 0; its section is the name behind the last SECTION.
    records, section = [], None
    for index, (code, value) in enumerate(tags):
        if code == 0:
            if value == b"SECTION":
                section = tags[index + 1][1].decode()
            elif value in (b"ENDSEC", b"EOF"):
                section = None
            records.append((section, value.decode(), []))
        elif records:
            records[-1][2].append((code, value))

    layers = [(text(r, 2), int(text(r, 62, "7")), int(text(r, 70, "0"))) for s, kind, r in records if s == "TABLES" and kind == "LAYER"]
    model = {}
    for s, kind, r in records:
        if s == "ENTITIES" and kind not in SUBORDINATE | {"SECTION"} and int(text(r, 67, "0")) != 1:
            model[kind] = model.get(kind, 0) + 1
    block_names = [text(r, 2) for s, kind, r in records if s == "BLOCKS" and kind == "BLOCK"]
    return {
        "format": "DXF binary" if binary else "DXF ascii",
        "version": version,
        "codepage": code_page,
        "layers": {
            "names": [name for name, _, _ in layers],
            "off": [name for name, color, _ in layers if color < 0],
            "frozen": [name for name, _, flags in layers if flags & 1],
            "locked": [name for name, _, flags in layers if flags & 4],
        },
        "blocks": {"count": len(block_names), "named": [name for name in block_names if not name.startswith(("*", "$"))]},
        "modelspace": {"total": sum(model.values()), "by_type": model},
        "groups": sum(1 for s, kind, _ in records if s == "OBJECTS" and kind == "GROUP"),
        "xdata_groups_1001": sum(1 for code, _ in tags if code == 1001),
    }
