#!/usr/bin/python3
"""Breaks the product on purpose and counts what the tests notice. See docs/testing.md, and ../../mutate."""
import argparse
import os
import pickle
import random
import sys
import time
from concurrent.futures import ThreadPoolExecutor

import programs
from tree import Tree

WANTED = 95  # of 100


def arguments():
    parser = argparse.ArgumentParser(prog="./mutate", description=__doc__)
    parser.add_argument("room", nargs="*", help="a room; all of them when none is named")
    parser.add_argument("--seconds", type=float, help="stop after that time; the breaks are drawn by the seed")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--own", action="store_true", help="only the room's own tests, which builds much less")
    parser.add_argument("--root", default=os.path.join(os.path.dirname(os.path.abspath(__file__)), "../.."))
    parser.add_argument("--build", help="where it works; build/mutate of the root when not given")
    parser.add_argument("--equivalent", default=os.path.join(os.path.dirname(os.path.abspath(__file__)),
                                                             "equivalent.txt"))
    return parser.parse_args()


def equivalents(path):
    """(file, line's text, change) of the breaks that nobody can see; each line ends with its reason."""
    known = set()
    with open(path, encoding="utf-8") as file:
        for line in file:
            if not line.strip() or line.startswith("#"):
                continue
            parts = [part.strip() for part in line.split(" ## ")]
            if len(parts) != 4 or not all(parts):
                raise SystemExit(f"{path}: not \"file ## line ## change ## reason\": {line}")
            known.add(tuple(parts[:3]))
    return known


def warn_of_stale(known, breaks, room):
    there = {(b.file, b.source, b.change) for b in breaks}
    for one in sorted(known - there):
        if one[0].startswith(room + "/"):
            print("No such break any more: " + " ## ".join(one[:2]), file=sys.stderr)


def order(room, uses, tests):
    """The test programs that may notice a break in the room: its own, then those of the rooms above it."""
    def below(name, seen):
        for used in uses.get(name, []):
            if used not in seen:
                seen.add(used)
                below(used, seen)
        return seen
    return [room] + [name for name in sorted(tests) if name != room and room in below(name, set())]


def trace_all(all_programs, build, workers):
    """Which breaks each test comes by; kept until the program is built anew."""
    for program in all_programs.values():
        kept = os.path.join(build, f"{program.name}.trace")
        if os.path.exists(kept) and os.path.getmtime(kept) > os.path.getmtime(program.path):
            with open(kept, "rb") as file:
                program.tests = pickle.load(file)
            continue
        with ThreadPoolExecutor(workers) as pool:
            program.tests = list(pool.map(program.trace, program.list()))
        with open(kept, "wb") as file:
            pickle.dump(program.tests, file)


def try_all(chosen, names, all_programs, end, workers):
    """(break, noticed) of each that was tried in time."""
    def attempt(one):
        if end is not None and time.monotonic() > end:
            return None
        return one, any(all_programs[name].notices(one.number) for name in names)
    with ThreadPoolExecutor(workers) as pool:
        return [result for result in pool.map(attempt, chosen) if result is not None]


def report(room, results):
    unnoticed = sorted((one for one, noticed in results if not noticed), key=lambda b: (b.file, b.line))
    for one in unnoticed:
        print(f"{one.file}:{one.line}: {one.change}\n    {one.source}")
    count, missed = len(results), len(unnoticed)
    print(f"{room}: {count} breaks, {count - missed} noticed, {missed} unnoticed", flush=True)
    return count, missed


def main():
    wish = arguments()
    root = os.path.abspath(wish.root)
    tree = Tree(root, os.path.abspath(wish.build or os.path.join(root, "build/mutate")))
    os.makedirs(tree.build, exist_ok=True)
    uses, tests = tree.rooms()
    rooms = [room for room in uses if room in tests and room != "platform"]
    unknown = [room for room in wish.room if room not in rooms]
    if unknown:
        raise SystemExit(f"No such room: {' '.join(unknown)}. There are: {' '.join(rooms)}")
    known = equivalents(wish.equivalent)
    workers = os.cpu_count() or 1
    chosen_rooms = wish.room or rooms
    tree.find(rooms)
    orders = {room: [room] if wish.own else order(room, uses, tests) for room in chosen_rooms}
    wanted = sorted({name for names in orders.values() for name in names})
    print(f"Building {len(wanted)} test programs with their breaks...", file=sys.stderr, flush=True)
    tree.compile([f"{name}_tests" for name in wanted])
    all_programs = {name: programs.Program(name, f"{tree.objects}/tests/{name}/{name}_tests")
                    for name in wanted}
    trace_all(all_programs, tree.build, workers)
    end = time.monotonic() + wish.seconds if wish.seconds else None
    draw = random.Random(wish.seed)
    total = total_missed = 0
    enough = True
    for index, room in enumerate(chosen_rooms):
        breaks = [b for b in tree.breaks() if b.file.startswith(room + "/")]
        warn_of_stale(known, breaks, room)
        tried = [b for b in breaks if (b.file, b.source, b.change) not in known]
        if wish.seconds:
            draw.shuffle(tried)
        left = None if end is None else time.monotonic() + (end - time.monotonic()) / (len(chosen_rooms) - index)
        count, missed = report(room, try_all(tried, orders[room], all_programs, left, workers))
        total, total_missed = total + count, total_missed + missed
        enough = enough and count > 0 and (count - missed) * 100 >= count * WANTED
    print(f"{total} breaks, {total - total_missed} noticed, {total_missed} unnoticed")
    sys.exit(0 if enough else 1)


if __name__ == "__main__":
    main()
