#!/usr/bin/python3
"""docs/faults.md is whole and true: each fault has each moment once, and each cell names tests that exist and are not
switched off, or says why it cannot happen. With reports of ctest, each of those tests also ran.

  scripts/check-faults.py build/native                          what is there
  scripts/check-faults.py build/native --ran REPORT.xml...      and what ran, by ctest's --output-junit
"""
import argparse
import json
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

PAGE = pathlib.Path(__file__).parent.parent / "docs" / "faults.md"
MOMENTS = ("start-up", "grace", "watching", "frozen", "stopping", "restarting", "upgrade before", "upgrade during",
           "upgrade after", "randomizer's write", "close")
FAULTS = ("process gone", "access violation", "killed", "suspended", "window gone", "port closed", "queue full",
          "silent host", "dead name server", "late listener", "dies at once", "refuses to die", "console closed by hand",
          "same name elsewhere", "executable locked", "executable missing", "executable cut off", "disk full",
          "read-only root", "log locked", "conf gone", "conf being written", "set cut off", "registry refused",
          "registry garbage", "registry of another type", "clock forward", "clock back", "summer time begins",
          "summer time ends", "tick count's wrap", "session end", "launcher killed", "launcher twice")
NEVER = "cannot happen: "


def rows(page):
    """(line number, fault, moments, what is seen, tests) of each row; a fault is named in its first row alone."""
    fault = None
    for number, line in enumerate(page.splitlines(), 1):
        if not line.startswith("|") or line.startswith(("| fault ", "|---")):
            continue
        cells = [cell.strip() for cell in line.strip("|\n").split(" | ")]
        if len(cells) != 4:
            yield number, None, [], "", []
            continue
        fault = cells[0].strip("*") or fault
        yield number, fault, cells[1].split(", "), cells[2], re.findall(r"`([^`]+)`", cells[3])


def wrong_cells(table):
    """What is wrong with the form of the table: (line number, complaint)."""
    seen = {}
    for number, fault, moments, sees, tests in table:
        if fault is None:
            yield number, "is no row of four cells"
            continue
        for moment in moments:
            if (fault, moment) in seen:
                yield number, f"tells {fault}, {moment} again"
            seen[fault, moment] = number
        if not sees:
            yield number, "does not say what the operator sees"
        if sees.startswith(NEVER) == bool(tests):
            yield number, "names no test" if not tests else "names a test of what cannot happen"
    for cell in [(fault, moment) for fault in FAULTS for moment in MOMENTS]:
        if cell not in seen:
            yield 0, "lacks " + ", ".join(cell)
    for cell, number in seen.items():
        if cell[0] not in FAULTS or cell[1] not in MOMENTS:
            yield number, "has an unknown cell: " + ", ".join(cell)


def plain(name):
    """The name without what ctest adds to it of a parameter that it cannot show."""
    return name.split("  # GetParam()")[0]


def tests_of(build):
    """The names of ctest's tests that are not switched off."""
    listed = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"], capture_output=True, text=True,
                            check=True).stdout

    def disabled(test):
        return any(p["name"] == "DISABLED" and p["value"] for p in test.get("properties", []))

    return {plain(test["name"]) for test in json.loads(listed)["tests"] if not disabled(test)}


def ran_in(reports):
    """The names of the tests that came to an end, well or not: who failed is told elsewhere."""
    names = set()
    for report in reports:
        for case in ElementTree.parse(report).getroot().iter("testcase"):
            if case.get("status") in ("run", "fail") and case.find("skipped") is None:
                names.add(plain(case.get("name")))
    return names


def complaints_of(page, there, ran):
    """What is wrong with the page, given the tests that are there and those that ran."""
    table = list(rows(page))
    complaints = list(wrong_cells(table))
    for number, _, _, _, tests in table:
        for test in tests:
            if test not in there:
                complaints.append((number, f"names {test}, which is no test or is switched off"))
            elif test not in ran:
                complaints.append((number, f"names {test}, which did not run"))
    return complaints


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build")
    parser.add_argument("--ran", nargs="+", metavar="REPORT")
    wish = parser.parse_args()
    page = PAGE.read_text(encoding="utf-8")
    there = tests_of(wish.build)
    complaints = complaints_of(page, there, ran_in(wish.ran) if wish.ran else there)
    for number, complaint in complaints:
        print(f"docs/faults.md:{number}: {complaint}", file=sys.stderr)
    if not complaints:
        named = {test for row in rows(page) for test in row[4]}
        print(f"{len(FAULTS)} faults at {len(MOMENTS)} moments: {len(named)} tests" + (", all ran" if wish.ran else ""))
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
