#!/usr/bin/env python3
"""Turns the plain comments of a header into documentation comments, for Doxygen's input filter.

usage: doc-comments.py HEADER

A block of // lines above a declaration documents it, one behind it documents what stands before it, and the block at the
top documents the file. The sources themselves need no marks for that.
"""
import re
import sys

COMMENT = re.compile(r"^(\s*)//\s?(.*)$")
BEHIND = re.compile(r"^(\s*[^\s}].*[;,{}].*?)\s*//\s?(.*)$")
SPECIAL = re.compile(r"[\\@<>&#%]|(?<!\w)[$~](?=\w)")
CLASS = re.compile(r"^(class|struct) \w.*\{")
RULER = re.compile(r"^-{3,}")


def plain(text):
    """Text that Doxygen takes as it is; what stands in backticks is code already."""
    parts = re.split(r"(`[^`]*`)", text)
    return "".join(part if part.startswith("`") else SPECIAL.sub(lambda match: "\\" + match[0], part) for part in parts)


def documented(lines):
    is_top, in_block = True, False
    previous_behind = False
    top, before = [], ""   # the file's comment, which is also that of a class that has none; the line before
    for line in lines:
        if CLASS.match(line) and top and not COMMENT.match(before):
            yield from top
        top = [] if CLASS.match(line) else top
        before = line
        comment = COMMENT.match(line)
        if comment and is_top:
            yield ("/// \\file\n" if not in_block else "") + f"/// {plain(comment[2])}"
            top.append(f"/// {plain(comment[2])}")
            in_block = True
            continue
        is_top = is_top and not line.strip()
        if comment and RULER.match(comment[2]):
            title = comment[2].strip("- ")
            yield f"{comment[1]}/// \\name {plain(title)}" if title else ""
            continue
        if comment:
            mark = "///<" if previous_behind and len(comment[1]) > 30 else "///"
            yield f"{comment[1]}{mark} {plain(comment[2])}"
            continue
        behind = BEHIND.match(line)
        previous_behind = bool(behind) and '"' not in line
        yield f"{behind[1]} ///< {plain(behind[2])}" if previous_behind else line


def main():
    with open(sys.argv[1], encoding="utf-8") as source:
        text = source.read()
    lines = text.splitlines()
    if sys.argv[1].endswith(".h"):
        lines = documented(lines)
    sys.stdout.reconfigure(encoding="utf-8")
    print("\n".join(lines))


if __name__ == "__main__":
    main()
