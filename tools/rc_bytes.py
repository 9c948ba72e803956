"""Writes resources in the byte formats of Windows: templates, menus, string blocks, version trees, .res entries."""
import struct

RT_MENU, RT_DIALOG, RT_STRING, RT_RCDATA, RT_VERSION = 4, 5, 6, 10, 16
CLASS_ORDINALS = {"button": 0x80, "edit": 0x81, "static": 0x82, "listbox": 0x83, "scrollbar": 0x84, "combobox": 0x85}
MF_POPUP, MF_END = 0x10, 0x80


def padded(data, to=4):
    return data + b"\0" * (-len(data) % to)


def text_z(text):
    return text.encode("utf-16-le") + b"\0\0"


def name_or_number(value):
    if isinstance(value, int):
        return struct.pack("<HH", 0xFFFF, value & 0xFFFF)
    return text_z(value) if value else b"\0\0"


def entry(kind, name, language, data):
    """One entry of a .res file; names in texts are upper case, as resource compilers store them."""
    names = name_or_number(kind) + name_or_number(name.upper() if isinstance(name, str) else name)
    names = padded(names)
    flags = 0x30 if kind == RT_VERSION else 0x1030   # moveable, pure and, but for versions, discardable
    tail = struct.pack("<IHHII", 0, flags, language, 0, 0)
    return padded(struct.pack("<II", len(data), 8 + len(names) + len(tail)) + names + tail + data)


def dialog(template):
    """`template`: style, ex_style, help_id, rect, menu, window_class, caption, font and controls."""
    out = struct.pack("<HHIIIH4h", 1, 0xFFFF, template["help_id"], template["ex_style"], template["style"],
                      len(template["controls"]), *template["rect"])
    out += name_or_number(template["menu"]) + name_or_number(template["window_class"]) + text_z(template["caption"])
    if template["font"]:
        size, face, weight, italic, charset = template["font"]
        out += struct.pack("<HHBB", size, weight, italic, charset) + text_z(face)
    for control in template["controls"]:
        window_class = CLASS_ORDINALS.get(str(control["class"]).lower(), control["class"])
        out = padded(out) + struct.pack("<III4hI", control["help_id"], control["ex_style"], control["style"],
                                        *control["rect"], control["id"] & 0xFFFFFFFF)
        out += name_or_number(window_class) + name_or_number(control["text"]) + struct.pack("<H", 0)
    return out


def menu_items(items):
    out = b""
    for index, item in enumerate(items):
        flags = item["flags"] | (MF_END if index == len(items) - 1 else 0)
        if "items" in item:
            out += struct.pack("<H", flags | MF_POPUP) + text_z(item["text"]) + menu_items(item["items"])
        else:
            out += struct.pack("<HH", flags, item["id"]) + text_z(item["text"])
    return out


def menu(items):
    return struct.pack("<HH", 0, 0) + menu_items(items)


def string_blocks(texts):
    """Yields (block number, bytes) for a table of number -> text."""
    for block in sorted({number // 16 for number in texts}):
        out = b""
        for number in range(block * 16, block * 16 + 16):
            units = texts.get(number, "").encode("utf-16-le")
            out += struct.pack("<H", len(units) // 2) + units
        yield block + 1, out


def version_node(key, is_text, value, children=()):
    """A node's length counts in bytes, the value's length in characters when it is a text."""
    out = text_z(key)
    out = padded(b"\0" * 6 + out)
    length = len(value) // 2 if is_text else len(value)
    out += value
    for child in children:
        out = padded(out) + child
    return struct.pack("<HHH", len(out), length, int(is_text)) + out[6:]


def version(fixed, tree):
    def nodes(items):
        for item in items:
            if "block" in item:
                yield version_node(item["block"], True, b"", list(nodes(item["items"])))
            elif all(isinstance(value, int) for value in item["values"]):
                yield version_node(item["value"], False, b"".join(struct.pack("<H", v & 0xFFFF) for v in item["values"]))
            else:
                yield version_node(item["value"], True, b"".join(text_z(v) for v in item["values"]))

    def pair(numbers):
        a, b, c, d = (list(numbers) + [0] * 4)[:4]
        return a << 16 | b, c << 16 | d

    block = struct.pack("<13I", 0xFEEF04BD, 0x10000, *pair(fixed["FILEVERSION"]), *pair(fixed["PRODUCTVERSION"]),
                        *(fixed[name][0] for name in ("FILEFLAGSMASK", "FILEFLAGS", "FILEOS", "FILETYPE", "FILESUBTYPE")), 0, 0)
    return version_node("VS_VERSION_INFO", False, block, list(nodes(tree)))
