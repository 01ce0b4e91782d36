#!/usr/bin/python3
"""Holds the rooms to the plan: the table "room | what lives there | may use" of docs/architecture.md.

    scripts/check-includes.py [FOLDER]    of this repository, or of the tree in FOLDER

Prints what breaks the plan, a line each, and ends with exit code 1 when anything does:
- a file that includes one of a room that its own room may not use,
- a header that is not the standard library's, or a question for Windows, in a room that may not use Windows,
- a circle between rooms, a room without a folder, a folder with sources that belongs to no room.

A file's room is the longest room of the table that its path begins with. "may use" names rooms, single headers (of
another room), `Windows`, "the standard library" or "all of them", with commas between them. What a used room uses in
its turn has to be named as well.
"""
import os
import re
import sys

PLAN = "docs/architecture.md"
# Not of the product; here Windows is known to these folders alone.
BESIDE = ("tests", "benches", "fuzz", "scripts", "docs", "cmake", "build")
WINDOWS_BESIDE = ("tests/windows/", "tests/servers/", "tests/operator/", "benches/windows/")
WINDOWS_HEADER = re.compile(r"(windows|winsock2|ws2tcpip|commctrl|richedit|shellapi|tlhelp32|wininet)\.h$")
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
ALL = "all of them"


def source_files(root):
    for folder, folders, names in os.walk(root):
        inside = os.path.relpath(folder, root).replace(os.sep, "/")
        folders[:] = sorted(f for f in folders if not f.startswith(".") and (inside, f) != (".", "build"))
        for name in sorted(names):
            if name.endswith((".h", ".cpp")) and inside != ".":
                yield f"{inside}/{name}"


class Plan:
    """What each room may use: `uses[room]`, a set of rooms, headers, "Windows" and ALL."""

    def __init__(self, text):
        self.uses, self.faults = {}, []
        rows = [[cell.strip() for cell in line.strip().strip("|").split("|")]
                for line in text.split("| room |", 1)[-1].split("\n\n", 1)[0].splitlines()[2:]]
        for cells in rows:
            words = {self.plain(word) for word in cells[-1].split(",")}
            for room in re.findall(r"`([^`]+)`", cells[0]):
                self.uses[self.plain(room)] = words
        for room, words in self.uses.items():
            for word in sorted(words - set(self.uses) - {"Windows", ALL, "the standard library"}):
                if not word.endswith(".h"):
                    self.faults.append(f'{PLAN}: {room} may use "{word}", which is no room')

    @staticmethod
    def plain(word):
        return word.strip().strip("`").rstrip("/")

    def room_of(self, path):
        """The room that a file belongs to, or "" when it belongs to none."""
        return max((room for room in self.uses if path.startswith(room + "/")), key=len, default="")

    def allows(self, room, path):
        words = self.uses[room]
        return bool(words & {ALL, path, self.room_of(path)})

    def used_rooms(self, room):
        words = self.uses[room]
        if ALL in words:
            return sorted(set(self.uses) - {room})
        return sorted({word if word in self.uses else self.room_of(word) for word in words} & set(self.uses))

    def circles(self):
        """Each as the rooms on the way round; of circles that share rooms at least one."""
        circles, done = [], set()

        def follow(way):
            for room in self.used_rooms(way[-1]):
                if room in way:
                    circles.append(way[way.index(room):] + [room])
                elif room not in done:
                    follow(way + [room])
            done.add(way[-1])

        for room in self.uses:
            if room not in done:
                follow([room])
        return circles


def faults_of_file(plan, root, path):
    room = plan.room_of(path)
    beside = path.split("/")[0] in BESIDE
    windows = path.startswith(WINDOWS_BESIDE) if beside else "Windows" in plan.uses[room]
    with open(os.path.join(root, path), encoding="latin-1") as file:
        for number, line in enumerate(file, 1):
            where = f"{path}:{number}"
            include = INCLUDE.match(line)
            own, system = include.groups() if include else (None, None)
            foreign = WINDOWS_HEADER.match(system) if system and beside else system and "." in system
            if not windows and (foreign or "_WIN32" in line):
                yield f"{where}: {room or path.split('/')[0]} may not use Windows: {line.strip()}"
            if not own or beside or plan.room_of(own) == room:
                continue
            if not plan.room_of(own):
                yield f"{where}: {own} is in no room"
            elif not plan.allows(room, own):
                yield f"{where}: {room} may not use {plan.room_of(own)}: {own}"


def check(root):
    with open(os.path.join(root, PLAN), encoding="utf-8") as file:
        plan = Plan(file.read())
    faults = list(plan.faults)
    if not plan.uses:
        faults.append(f'{PLAN}: no table "room | what lives there | may use"')
    faults += [f"{PLAN}: a circle: {' -> '.join(circle)}" for circle in plan.circles()]
    files = list(source_files(root))
    for room in plan.uses:
        if not any(plan.room_of(path) == room for path in files) and room.split("/")[0] not in BESIDE:
            faults.append(f"{PLAN}: the room {room} has no file")
    homeless = {path.split("/")[0] for path in files if not plan.room_of(path)} - set(BESIDE)
    faults += [f"{folder}/ is no room of {PLAN}" for folder in sorted(homeless)]
    for path in files:
        if plan.room_of(path) or path.split("/")[0] in BESIDE:
            faults += faults_of_file(plan, root, path)
    return faults


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
    faults = check(root)
    print("\n".join(faults), end="\n" if faults else "")
    sys.exit(1 if faults else 0)


main()
