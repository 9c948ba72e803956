#!/usr/bin/env python3
"""Writes platform/win/CharData.cpp: case pairs and letters of the Unicode version that this Python knows."""
import sys
import unicodedata

PLANES = range(0x80, 0x20000)


def simple(character, method):
    """The one-character case mapping, or the character itself."""
    mapped = getattr(character, method)()
    if len(mapped) != 1 and method == "upper":
        mapped = character.title()
    return mapped if len(mapped) == 1 else character


def pairs():
    """(lower, upper) where the mapping can be undone, so that folding never joins what a user sees as different."""
    for code in PLANES:
        lower = chr(code)
        upper = simple(lower, "upper")
        if upper != lower and simple(upper, "lower") == lower and ord(upper) >= 0x80:
            yield code, ord(upper)


def runs(rows):
    """Rows (first, last, step, delta) over pairs with one difference and an even step."""
    result = []
    for lower, upper in rows:
        delta = upper - lower
        if result:
            first, last, step, old = result[-1]
            gap = lower - last
            if old == delta and (gap == step or (first == last and gap in (1, 2))):
                result[-1] = (first, lower, gap, delta)
                continue
        result.append((lower, lower, 1, delta))
    return result


def letters():
    """Ranges of letters; places that are not assigned join the range around them."""
    result = []
    open_range = False
    for code in PLANES:
        category = unicodedata.category(chr(code))
        if category in ("Lu", "Ll", "Lt", "Lm", "Lo"):
            if open_range:
                result[-1][1] = code
            else:
                result.append([code, code])
            open_range = True
        elif category != "Cn":
            open_range = False
    return result


def main():
    out = sys.stdout
    out.write("// Made by tools/make-char-tables.py from Unicode %s; do not edit.\n" % unicodedata.unidata_version)
    out.write('#include "CharData.h"\n\nnamespace KxPlat {\n\n// clang-format off\nconst CaseRun kCaseRuns[] = {\n')
    case_runs = runs(pairs())
    write_rows(out, ["{0x%X,0x%X,%d,%d}" % row for row in case_runs])
    out.write("};\nconst int kCaseRunCount = %d;\n\nconst CharRange kLetters[] = {\n" % len(case_runs))
    ranges = letters()
    write_rows(out, ["{0x%X,0x%X}" % tuple(row) for row in ranges])
    out.write("};\nconst int kLetterCount = %d;\n// clang-format on\n\n}   // namespace KxPlat\n" % len(ranges))


def write_rows(out, rows):
    line = "   "
    for row in rows:
        if len(line) + len(row) > 117:
            out.write(line + "\n")
            line = "   "
        line += " " + row + ","
    out.write(line + "\n")


main()
