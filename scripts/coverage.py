#!/usr/bin/python3
"""Which lines and branches of the portable rooms the native tests run. See docs/coverage.md, and ../test.

  scripts/coverage.py BUILD PAGE    runs the test programs of BUILD (preset native-coverage) and writes the page

Exit code 1 when a room has fewer than 95 of 100 lines or 90 of 100 branches.
"""
import collections
import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROOMS = ("support", "platform", "xmldoc", "toolkit", "core", "supervision", "randomizer", "upgrade", "desktop", "events",
         "outside", "checkup", "form", "app")
LEAST_LINES = 95.0
LEAST_BRANCHES = 90.0
WORST = 10
# What in a statement makes it branch.
CONDITION = re.compile(r"\b(if|for|while|switch)\b|[?]|&&|[|][|]")


def run_tests(build):
    """Each test program once, from its own folder, as ctest runs it; their counts add up."""
    for counts in build.rglob("*.gcda"):
        counts.unlink()
    programs = sorted(build.glob("tests/*/*_tests"))
    if len(programs) < 10:
        sys.exit(f"Only {len(programs)} test programs in {build}.")

    def run(program):
        done = subprocess.run([program, "--gtest_brief=1"], cwd=program.parent, capture_output=True, text=True)
        if done.returncode != 0:
            return done.stdout + done.stderr + f"\n{program.name} failed."
        return ""

    # The longest, those of the rooms on top, begin first. Programs that end at one time wait for each other's counts.
    programs.sort(key=lambda program: program.name not in ("app_tests", "xmldoc_tests", "core_tests"))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for complaint in pool.map(run, programs):
            if complaint:
                sys.exit(complaint)


def counts_of(notes):
    """What gcov says of one object file; without counts nothing of it was run."""
    out = subprocess.run(["gcov", "--json-format", "--stdout", "--branch-probabilities", "--demangled-names", notes.name],
                         cwd=notes.parent, capture_output=True, text=True)
    return [json.loads(line) for line in out.stdout.splitlines() if line.startswith("{")]


def without_calls(branches):
    """A call that may raise has two branches, where it goes on and where it raises. The compiler made both."""
    kept = []
    for branch in branches:
        if not branch["throw"]:
            kept.append(branch)
        elif kept and kept[-1]["fallthrough"]:
            kept.pop()
    return [branch["count"] > 0 for branch in kept]


class File:
    """One source of a room, over all object files and instances of templates that have lines of it."""

    def __init__(self):
        self.lines = collections.Counter()
        self.branches = {}
        self.functions = {}

    def add(self, told):
        for line in told["lines"]:
            number = line["line_number"]
            self.lines[number] += line["count"]
            taken = without_calls(line["branches"])
            known = self.branches.setdefault(number, [])
            known.extend([False] * (len(taken) - len(known)))
            for i, was in enumerate(taken):
                known[i] = known[i] or was
        for function in told["functions"]:
            self.functions[function["start_line"]] = (function["demangled_name"], function["end_line"])

    def forget_branches_without_a_condition(self, source):
        """The others are the compiler's own: its clean-ups of what is half made when something raises."""
        for number in list(self.branches):
            first = number - 1
            while first > 0 and not source[first - 1].split("//")[0].rstrip().endswith((";", "{", "}", ":")):
                first -= 1
            statement = "\n".join(line.split("//")[0] for line in source[first:number])
            if not CONDITION.search(statement):
                del self.branches[number]

    def figures(self, first=0, last=1 << 30):
        """(lines, lines run, branches, branches taken) between two lines."""
        lines = [count for number, count in self.lines.items() if first <= number <= last]
        taken = [was for number, known in self.branches.items() if first <= number <= last for was in known]
        return len(lines), sum(count > 0 for count in lines), len(taken), sum(taken)


def files_of(build):
    """path from the root -> File, of the portable rooms."""
    notes = sorted(build.rglob("*.gcno"))
    files = collections.defaultdict(File)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for told in pool.map(counts_of, notes):
            for one in (source for report in told for source in report["files"]):
                path = (build / one["file"]).resolve() if not one["file"].startswith("/") else pathlib.Path(one["file"])
                name = os.path.relpath(path, ROOT)
                if name.split("/")[0] in ROOMS and "/windows/" not in name:
                    files[name].add(one)
    for name, file in files.items():
        file.forget_branches_without_a_condition((ROOT / name).read_text(encoding="utf-8").splitlines())
    return files


def share(part, whole):
    return 100.0 if whole == 0 else 100.0 * part / whole


def short(name):
    """A function's name without its arguments, and that of the function around a lambda."""
    around = name.split("::{lambda(")[0]
    plain = re.sub(r"\[abi:\w+\]|tarvo::|\(anonymous namespace\)::", "", around)
    while (shorter := re.sub(r"<[^<>]*>", "", plain)) != plain:
        plain = shorter
    plain = re.sub(r"\(.*", "", plain).split(" ")[-1]
    return plain if around == name else "a lambda of " + plain


def worst_functions(files):
    """(missed lines and branches, text of the row) of each function, the worst first."""
    rows = []
    for path, file in files.items():
        starts = sorted(file.functions)
        for start in starts:
            name, end = file.functions[start]
            lines, run, branches, taken = file.figures(start, end)
            missed = lines - run + branches - taken
            rows.append((missed, f"| `{short(name)}` | `{path}:{start}` | {run} of {lines} | {taken} of {branches} |"))
    return sorted(rows, key=lambda row: (-row[0], row[1]))


def row_of(room, sums):
    lines, run, branches, taken = sums
    return f"| {room} | {lines} | {share(run, lines):.1f} | {branches} | {share(taken, branches):.1f} |"


def page_of(files):
    rows, low, total = [], [], [0] * 4
    for room in ROOMS:
        sums = [sum(figures) for figures in zip(*(f.figures() for p, f in files.items() if p.startswith(room + "/")))]
        total = [a + b for a, b in zip(total, sums)]
        lines, branches = share(sums[1], sums[0]), share(sums[3], sums[2])
        if lines < LEAST_LINES or branches < LEAST_BRANCHES:
            low.append(f"{room}: {lines:.1f} of 100 lines, {branches:.1f} of 100 branches")
        rows.append(row_of(room, sums))
    rows.append(row_of("all", total))
    head = (ROOT / "scripts" / "coverage-head.md").read_text(encoding="utf-8")
    return head.replace("(ROOMS)", "\n".join(rows)).replace(
        "(FUNCTIONS)", "\n".join(row for _, row in worst_functions(files)[:WORST])), low


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    build, page = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])
    run_tests(build)
    text, low = page_of(files_of(build))
    page.write_text(text, encoding="utf-8")
    print(text)
    for room in low:
        print(f"Below {LEAST_LINES:.0f} and {LEAST_BRANCHES:.0f}: {room}", file=sys.stderr)
    return 1 if low else 0


if __name__ == "__main__":
    sys.exit(main())
