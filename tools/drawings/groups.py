"""Drawings written group by group, for what no library would write: old versions, code pages, faults."""
import struct

# Group codes of numbers by range (first, last, kind); all others are texts. The kinds are struct's letters.
KINDS = [
    (10, 59, "d"), (60, 79, "h"), (90, 99, "i"), (110, 149, "d"), (160, 169, "q"), (170, 179, "h"), (210, 239, "d"),
    (270, 289, "h"), (290, 299, "?"), (370, 389, "h"), (400, 409, "h"), (420, 429, "i"), (440, 449, "i"), (450, 459, "i"),
    (460, 469, "d"), (1010, 1059, "d"), (1060, 1070, "h"), (1071, 1071, "i"),
]


def kind_of(code):
    return next((kind for first, last, kind in KINDS if first <= code <= last), "s")


def real(value):
    return repr(float(value))


def groups(*flat):
    """[(code, value), ...] from code, value, code, value, ..."""
    return list(zip(flat[::2], flat[1::2]))


def point(code, x, y, z=0.0):
    return [(code, float(x)), (code + 10, float(y)), (code + 20, float(z))]


def section(name, *content):
    return groups(0, "SECTION", 2, name) + [g for part in content for g in part] + groups(0, "ENDSEC")


def header(version, code_page=None, **variables):
    """Variables are given as NAME=(code, value), or as a list of groups."""
    content = groups(9, "$ACADVER", 1, version)
    if code_page:
        content += groups(9, "$DWGCODEPAGE", 3, code_page)
    for name, value in variables.items():
        content += [(9, "$" + name)] + (value if isinstance(value, list) else [value])
    return section("HEADER", content)


EOF_MARK = groups(0, "EOF")


def ascii_bytes(content, encoding="ascii", end="\r\n", pad=3):
    """Texts that are bytes already go out as they are."""
    out = bytearray()
    for code, value in content:
        text = real(value) if isinstance(value, float) else value if isinstance(value, bytes) else str(value)
        out += f"{code:>{pad}}{end}".encode()
        out += text if isinstance(text, bytes) else text.encode(encoding)
        out += end.encode()
    return bytes(out)


def binary_bytes(content, encoding="ascii", one_byte_codes=False):
    """The binary form; R12 writes codes in one byte, 255 before a larger one."""
    out = bytearray(b"AutoCAD Binary DXF\r\n\x1a\x00")
    for code, value in content:
        if not one_byte_codes:
            out += struct.pack("<h", code)
        elif code < 255:
            out += struct.pack("<B", code)
        else:
            out += struct.pack("<Bh", 255, code)
        kind = kind_of(code)
        if code in range(310, 320) or code == 1004:
            data = bytes.fromhex(value)
            out += struct.pack("<B", len(data)) + data
        elif kind == "s":
            out += (value if isinstance(value, bytes) else str(value).encode(encoding)) + b"\0"
        else:
            out += struct.pack("<" + kind, float(value) if kind == "d" else int(value))
    return bytes(out)
