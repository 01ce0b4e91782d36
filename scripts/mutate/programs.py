"""The test programs: which tests come by a break, and whether one of them notices it."""
import os
import re
import resource
import subprocess
import tempfile
import time

import tree

MOST_MEMORY = 8 << 30  # bytes: a break that fills the memory is noticed
LEAST_TIME = 5.0  # seconds for the tests of a break
PATIENCE = 6.0  # times what they take without it


def limited():
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Program:
    def __init__(self, name, path):
        self.name, self.path = name, path
        self.tests = []  # (name, seconds, the set of the breaks that it comes by)

    def start(self, filter_text, environment, timeout):
        """None when the time is over, else the exit code."""
        command = [self.path, f"--gtest_filter={filter_text}", "--gtest_fail_fast", "--gtest_brief=1"]
        try:
            return subprocess.run(command, env={**os.environ, **environment}, timeout=timeout,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False,
                                  preexec_fn=limited).returncode
        except subprocess.TimeoutExpired:
            return None

    def list(self):
        listed = subprocess.run([self.path, "--gtest_list_tests"], capture_output=True, text=True,
                                errors="replace", check=True).stdout
        names, suite = [], ""
        for line in listed.split("\n"):
            word = line.split("#")[0].strip()
            if re.match(r"\S", line) and word.endswith("."):
                suite = word
            elif line.startswith("  ") and word and "DISABLED_" not in suite + word:
                names.append(suite + word)
        return names

    def trace(self, name):
        """Runs one test alone. It must pass: a break is noticed only by a test that holds without it."""
        with tempfile.NamedTemporaryFile() as file:
            file.truncate(tree.TRACE_BYTES)
            begin = time.monotonic()
            code = self.start(name, {"TARVO_BREAK_TRACE": file.name}, 300)
            seconds = time.monotonic() - begin
            if code != 0:
                raise SystemExit(f"{self.name}: {name} fails without any break.")
            file.seek(0)
            seen = file.read()
        numbers, at = set(), seen.find(b"\1")
        while at >= 0:
            numbers.add(at)
            at = seen.find(b"\1", at + 1)
        return name, seconds, numbers

    def notices(self, number):
        """Whether a test fails, hangs or dies with this break; None when no test comes by it."""
        tests = sorted((t for t in self.tests if number in t[2]), key=lambda t: t[1])
        if not tests:
            return None
        quick = [t for t in tests if t[1] < 0.2][:40] or tests[:1]
        rest = [t for t in tests if t not in quick]
        for group in (quick, rest):
            if not group:
                continue
            timeout = LEAST_TIME + PATIENCE * sum(t[1] for t in group)
            if self.start(":".join(t[0] for t in group), {"TARVO_BREAK": str(number)}, timeout) != 0:
                return True
        return False
