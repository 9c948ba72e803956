#!/usr/bin/env python3
"""Prints the counts of a ctest results file (JUnit form) as one plain line, and the names of what was skipped."""
import sys
import xml.etree.ElementTree as ElementTree


def status_of(case):
    status = case.get("status", "")
    if status == "fail" or case.find("failure") is not None:
        return "failed"
    if status == "run":
        return "passed"
    return "skipped"   # "notrun", "disabled"


def main(path):
    names = {"passed": [], "failed": [], "skipped": []}
    for case in ElementTree.parse(path).getroot().iter("testcase"):
        names[status_of(case)].append(case.get("name"))
    for status in ("skipped", "failed"):
        for name in sorted(names[status]):
            print(f"{status}: {name}")
    print(", ".join(f"{len(names[status])} {status}" for status in ("passed", "failed", "skipped")))


if __name__ == "__main__":
    main(sys.argv[1])
