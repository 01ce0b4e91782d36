#!/usr/bin/python3
"""Plays what the tests play under Wine, of a configured native build, by ctest, and tells what held.

  scripts/play-stories.py REPORT.xml [ctest's option...]     the report is ctest's --output-junit

Wine itself now and then loses one of the thousand processes that the stories start. A story that failed gets one more
run, told as such; one that fails for a reason of its own fails again. The exit code is 0 when every story held or was
skipped, with the reason, for what the machine lacks.
"""
import os
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

STORIES = pathlib.Path(__file__).resolve().parent.parent / "build/native/wine"


def play(report, options):
    report.unlink(missing_ok=True)
    # Stories mostly wait: more than there are processors keep all of them busy.
    played = subprocess.run(["ctest", "--test-dir", STORIES, "--output-on-failure", "--output-junit", report, *options])
    cases = ElementTree.parse(report).getroot().findall(".//testcase") if report.is_file() else []
    if not cases:
        sys.exit(played.returncode)
    return {case.get("name"): case for case in cases}


def outcome(case):
    if case.get("status") == "run":
        return "held"
    skipped = case.find("skipped")
    return "skipped" if skipped is not None and skipped.get("message", "").startswith("SKIP_") else "not held"


def why(case):
    """The line with which a skipped story tells what the machine lacks."""
    lines = [line.strip() for line in case.findtext("system-out", "").splitlines() if "skipped, " in line]
    return ": " + lines[-1].split("skipped, ", 1)[1] if lines else ""


def tell(cases):
    for wanted in ("not held", "skipped"):
        for name, case in cases.items():
            if outcome(case) == wanted:
                print(f"{wanted}: {name}{why(case) if wanted == 'skipped' else ''}")
    outcomes = [outcome(case) for case in cases.values()]
    print(", ".join(f"{outcomes.count(one)} {one}" for one in ("held", "not held", "skipped")))
    return outcomes.count("not held")


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    report = pathlib.Path(sys.argv[1]).resolve()
    cases = play(report, ["--parallel", str(os.cpu_count() + 1), *sys.argv[2:]])
    failed = [re.escape(name) for name, case in cases.items() if outcome(case) == "not held"]
    if failed:
        print("Once more, what failed:", flush=True)
        cases |= play(report.with_name(report.stem + "-again.xml"), ["-R", f"^({'|'.join(failed)})$"])
    return 1 if tell(cases) else 0


if __name__ == "__main__":
    sys.exit(main())
