"""A copy of the repository in which the rooms' sources hold their breaks, and its build."""
import glob
import hashlib
import json
import os
import pickle
import re
import shutil
import subprocess
from concurrent.futures import ProcessPoolExecutor

import render
import sites

HEADER = r'''// Which break is switched on, and which ones the program comes by.
#pragma once
#include <fcntl.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>
inline const int tarvo_break = [] {
  const char* number = getenv("TARVO_BREAK");
  return number == nullptr ? -1 : atoi(number);
}();
inline unsigned char* const tarvo_trace = []() -> unsigned char* {
  const char* path = getenv("TARVO_BREAK_TRACE");
  if (path == nullptr) return nullptr;
  const int file = open(path, O_RDWR);
  void* trace = mmap(nullptr, %d, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  close(file);
  return trace == MAP_FAILED ? nullptr : static_cast<unsigned char*>(trace);
}();
inline bool tarvo_broken(int number) {
  if (tarvo_trace != nullptr) tarvo_trace[number] = 1;
  return tarvo_break == number;
}
// What nearly all sources include: this header is compiled once for all of them.
#include <gtest/gtest.h>
#include <algorithm>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>
'''
FLAGS = ["-w", "-O1", "-D_GLIBCXX_ASSERTIONS", "-fdiagnostics-column-unit=byte"]
# Complaints that follow from another one.
FOLLOWING = ("has no member named", "was not declared", "has not been declared", "does not name a type",
             "expression error", "is invalid", "incomplete type", "not declared in this scope")
PER_FILE = 4096  # numbers that a file has for its breaks
MOST_FILES = 512
TRACE_BYTES = PER_FILE * MOST_FILES


def write_if_new(path, text):
    """Leaves a file alone that holds the text, so that nothing is compiled again for it."""
    data = text.encode("latin-1")
    if os.path.exists(path):
        with open(path, "rb") as file:
            if file.read() == data:
                return False
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(data)
    return True


def read(path):
    with open(path, encoding="latin-1", newline="") as file:
        return file.read()


def digest(text):
    return hashlib.sha1(text.encode("latin-1", "replace")).hexdigest()


def find_cached(job):
    """The edits of a source and of the headers that it includes, as long as none of them has changed."""
    main, files, arguments, cache = job
    kept = os.path.join(cache, digest(main + read(sites.__file__)))
    if os.path.exists(kept):
        with open(kept, "rb") as file:
            included, edits = pickle.load(file)
        if all(name in files and digest(files[name]) == state for name, state in included.items()):
            return edits
    edits = sites.find(main, files, arguments)
    with open(kept, "wb") as file:
        pickle.dump(({name: digest(files[name]) for name in edits}, edits), file)
    return edits


class Tree:
    def __init__(self, root, build):
        self.root, self.build = root, build
        self.source = os.path.join(build, "tree")
        self.objects = os.path.join(build, "objects")
        self.dropped = {}
        self.renderings = {}
        self.texts = {}
        self.edits = {}

    def rooms(self):
        """room -> the rooms it uses, and the rooms that have a test program, from the CMake files."""
        uses, tests = {}, set()
        lists = [path for folder in ("*", "tests/*") for path in glob.glob(f"{self.root}/{folder}/CMakeLists.txt")]
        for path in sorted(lists):
            text = read(path)
            tests.update(re.findall(r"tarvo_room_tests\((\w+)", text))
            for name, rest in re.findall(r"tarvo_room\((\w+)([^)]*)\)", text):
                uses[name] = rest.split("SYSTEM")[0].replace("USES", "").split()
            for name, rest in re.findall(r"target_link_libraries\(tarvo_(\w+) PUBLIC([^)]*)\)", text):
                uses.setdefault(name, re.findall(r"tarvo_(\w+)", rest))
        return uses, tests

    def copy(self):
        listed = subprocess.run(["git", "-C", self.root, "ls-files", "-co", "--exclude-standard", "."],
                                capture_output=True, text=True, check=True).stdout.split("\n")
        names = {name for name in listed if name and os.path.isfile(os.path.join(self.root, name))}
        for folder, _, files in os.walk(self.source):
            for name in files:
                path = os.path.join(folder, name)
                if os.path.relpath(path, self.source) not in names:
                    os.remove(path)
        for name in names - set(self.texts):
            source, target = os.path.join(self.root, name), os.path.join(self.source, name)
            if not os.path.exists(target) or read(source) != read(target):
                os.makedirs(os.path.dirname(target), exist_ok=True)
                shutil.copyfile(source, target)
                shutil.copymode(source, target)

    def find(self, rooms):
        """Looks for the places to break in all sources of the rooms."""
        cache = os.path.join(self.build, "found")
        os.makedirs(cache, exist_ok=True)
        names = [os.path.relpath(path, self.root) for room in rooms
                 for path in sorted(glob.glob(f"{self.root}/{room}/**/*.*", recursive=True))]
        names = [n for n in names if n.endswith((".h", ".cpp")) and "/windows/" not in n
                 and "/tool/" not in n and not n.endswith("main.cpp")]
        self.texts = {name: read(os.path.join(self.root, name)) for name in names}
        headers = {"./" + n: t for n, t in self.texts.items() if n.endswith(".h")}
        for path in glob.glob(f"{self.root}/*/*.h.in"):  # what the build makes of them, as far as clang cares
            made = os.path.join(self.build, "generated", os.path.relpath(path, self.root)[:-len(".in")])
            write_if_new(made, re.sub(r"@\w+@", "0", read(path)))
        os.chdir(self.root)
        self.gather([n for n in names if n.endswith(".cpp")], headers, cache)
        self.gather(["./" + n for n in names if n not in self.edits], headers, cache)

    def gather(self, mains, headers, cache):
        arguments = ["-x", "c++", "-std=c++20", "-I.", f"-I{self.build}/generated"]
        jobs = [(m, headers | {m: self.texts[os.path.normpath(m)]}, arguments, cache) for m in mains]
        with ProcessPoolExecutor() as pool:
            for found in pool.map(find_cached, jobs):
                for name, edits in found.items():
                    name = os.path.normpath(name)
                    known = {(e.begin, e.end, e.kind) for e in self.edits.setdefault(name, [])}
                    self.edits[name] += [e for e in edits if (e.begin, e.end, e.kind) not in known]

    def numbers_of(self, name):
        path = os.path.join(self.build, "numbers.json")
        numbers = json.loads(read(path)) if os.path.exists(path) else {}
        if name not in numbers:
            numbers[name] = len(numbers)
            write_if_new(path, json.dumps(numbers))
        return numbers[name] * PER_FILE

    def render(self, name):
        self.renderings[name] = render.Rendering(name, self.texts[name], self.edits.get(name, []),
                                                 self.dropped.get(name, set()), self.numbers_of(name))
        write_if_new(os.path.join(self.source, name), self.renderings[name].result)

    def compile(self, targets):
        """Builds; what does not compile is dropped, and built without."""
        kept = os.path.join(self.build, "dropped.pickle")
        state = {n: hashlib.sha1((t + read(sites.__file__)).encode("latin-1", "replace")).hexdigest()
                 for n, t in self.texts.items()}
        if os.path.exists(kept):
            with open(kept, "rb") as file:
                for name, (digest, keys) in pickle.load(file).items():
                    if state.get(name) == digest:
                        self.dropped[name] = keys
        for name in self.texts:
            self.render(name)
        self.copy()
        if not os.path.exists(os.path.join(self.objects, "build.ninja")):
            header = os.path.join(self.build, "tarvo_break.h")
            write_if_new(header, HEADER % TRACE_BYTES)
            self.run(["g++", "-std=c++20", *FLAGS, "-x", "c++-header", header, "-o", header + ".gch"])
            self.run(["cmake", "-G", "Ninja", "-S", self.source, "-B", self.objects, "-DCMAKE_BUILD_TYPE=",
                      "-DCMAKE_CXX_FLAGS=" + " ".join([*FLAGS, f'-include "{header}"'])])
        for attempt in range(40):
            built = subprocess.run(["ninja", "-C", self.objects, "-k", "0", *targets], capture_output=True,
                                   text=True, errors="replace", check=False)
            if built.returncode == 0:
                return
            if not self.drop(built.stdout, attempt):
                raise SystemExit(built.stdout[-6000:])
            with open(kept, "wb") as file:
                pickle.dump({n: (state[n], keys) for n, keys in self.dropped.items()}, file)
        raise SystemExit("The breaks do not compile.")

    @staticmethod
    def run(command):
        done = subprocess.run(command, capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise SystemExit(done.stdout + done.stderr)

    def drop(self, output, attempt):
        """Drops what the complaints are about; all breaks of a line once the nearest ones did not help."""
        complaint = rf"^(?:{re.escape(self.source)}|\.\./tree)/(\S+?):(\d+):(\d+): (error|note): (.*)"
        changed = set()
        for name, line, column, what, words in re.findall(complaint, output, re.M):
            name = os.path.normpath(name)
            if name not in self.renderings or (attempt < 12 and any(f in words for f in FOLLOWING)):
                continue
            rendering = self.renderings[name]
            find = rendering.declared if what == "note" else rendering.blamed
            keys = find(int(line), int(column))
            have = self.dropped.setdefault(name, set())
            new = [k for k in keys if k not in have]
            if not new:
                continue
            have.update(new[:1] if attempt < 12 else new)
            changed.add(name)
        for name in changed:
            self.render(name)
        return bool(changed)

    def breaks(self):
        return [b for name in sorted(self.renderings) for b in self.renderings[name].breaks]
