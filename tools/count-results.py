#!/usr/bin/env python3
"""Prints the counts of a test run as one plain line, after the names of what was skipped or failed.

Arguments: the results of ctest (JUnit form) and the folder in which GoogleTest programs left theirs, as TEST.xml;
more such pairs may follow.
A program counts by its own tests; one that died without results, and every other ctest test, counts once.
"""
import pathlib
import sys
import xml.etree.ElementTree as ElementTree


def ctest_status(case):
    if case.get("status") == "fail" or case.find("failure") is not None:
        return "failed"
    return "passed" if case.get("status") == "run" else "skipped"   # "notrun", "disabled"


def gtest_status(case):
    if case.find("failure") is not None:
        return "failed"
    ran = case.get("status") == "run" and case.get("result") != "skipped"
    return "passed" if ran else "skipped"


def count(ctest_file, gtest_folder, names):
    for case in ElementTree.parse(ctest_file).getroot().iter("testcase"):
        name, status = case.get("name"), ctest_status(case)
        own = pathlib.Path(gtest_folder) / f"{name}.xml"
        cases = list(ElementTree.parse(own).getroot().iter("testcase")) if own.exists() else []
        found = [(f"{name}: {one.get('classname')}.{one.get('name')}", gtest_status(one)) for one in cases]
        if not found or (status == "failed" and all(which != "failed" for _, which in found)):
            found.append((name, status))
        for one, which in found:
            names[which].append(one)


def main(*arguments):
    names = {"passed": [], "failed": [], "skipped": []}
    for pair in zip(arguments[::2], arguments[1::2]):
        count(*pair, names)
    for status in ("skipped", "failed"):
        for name in sorted(names[status]):
            print(f"{status}: {name}")
    print(", ".join(f"{len(names[status])} {status}" for status in ("passed", "failed", "skipped")))


if __name__ == "__main__":
    main(*sys.argv[1:])
