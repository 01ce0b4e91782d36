#!/usr/bin/python3
"""Every command that the documents name is one that is there: the launcher's, the operator program's and the
acceptance's are run by a story, word for word; the scripts' own parsers take theirs, up to the first thing that they do.
"""
import itertools
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
PROGRAMS = r"(?:tarvo-launcher|tarvo-acceptance|operator)"
SCRIPTS = r"(?:\./\w+|fuzz/run|(?:scripts|tests|benches)/[\w/-]+\.(?:sh|py))"
COMMAND = re.compile(rf"(?:[A-Z_]+=\S+ )?(?:{SCRIPTS}|{PROGRAMS}(?:\.exe)? [a-z-])")

# What stands for a word of the reader's own in the documents, and such a word.
SAMPLES = {"SECONDS": "30", "MINUTES": "10", "N": "5", "YEARS": "2", "SEED": "7", "DIR": ".", "FOLDER": ".",
           "NAME": "xmldoc", "ROOM": "core", "STORY": "start_stop", "KIND": "fault", "TARGET": "xml_reader_fuzz"}
COMPONENTS = {"login", "char", "map", "all"}

# With this exit code the first step of a script ends it, behind its parser.
FIRST_STEP = 99


def documents():
    return [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]


def code_of(text):
    """The lines of the blocks of code, but those of another language, and the code within the lines."""
    fence = re.compile(r"^```([^\n]*)\n(.*?)^```", re.S | re.M)
    for language, block in fence.findall(text):
        if language in ("", "sh", "bat"):
            # What is told of a command stands some blanks behind it, what else is run behind a "|".
            yield from (re.split(r"\s{3,}|\s#|\|\|| \| ", line.strip())[0].strip() for line in block.splitlines())
    yield from (code.split(" | ")[0] for code in re.findall(r"`([^`\n]+)`", fence.sub("", text)))


def commands(text):
    return [line for line in code_of(text) if COMMAND.match(line)]


def optional(line):
    """The line without and with each part that stands in brackets."""
    found = re.search(r"\[([^\[\]]*)\]", line)
    if not found:
        return [line]
    before, after = line[:found.start()], line[found.end():]
    return optional(before.rstrip() + after) + optional(before + found.group(1) + after)


def alternatives(word):
    words = word.removesuffix("...").split("|")
    # Which server is meant is told in one way everywhere.
    return ["COMPONENT"] if COMPONENTS >= set(words) else words


def spelt_out(line):
    """The lists of words that the line of a document stands for."""
    return [list(words) for one in optional(line) for words in itertools.product(*map(alternatives, shlex.split(one)))]


def sources(*patterns):
    return "\n".join(path.read_text(encoding="utf-8") for pattern in patterns for path in sorted(ROOT.glob(pattern)))


STORIES = sources("tests/operator/e2e/*.sh", "tests/operator/e2e/*.bash", "scripts/launcher-in-root.sh",
                  "tests/operator/acceptance/under_wine.sh", "tests/operator/e2e/tests.cmake")
TABLE = sources("tests/operator/acceptance/table.cpp")


def pattern_of(words):
    """What a story says to run these words; for each sample word it may have one of its own."""
    own = {"COMPONENT": rf"(?:{'|'.join(COMPONENTS)}|\$\w+)"}
    return " ".join(own.get(word, r"\S+" if word in SAMPLES or word.isdigit() else re.escape(word)) for word in words)


def run_by_a_story(verbs, words):
    return re.search(rf"(?:{verbs})[^\n]*?[ \"]{pattern_of(words)}(?![\w-])", STORIES) is not None


def acceptance_takes(words):
    pairs = zip(words, words[1:] + [""])
    names = [value for option, value in pairs if option == "--story" and value not in SAMPLES]
    return (all(f'{{"{name}",' in TABLE for name in names) and
            all(re.search(rf"(?:tarvo-acceptance|under_wine)[^\n]*{word}\b|set -- {word} ", STORIES)
                for word in words if word.startswith("--")))


def mirror_of_the_repository(folder):
    """The repository once more, by links, but with a first step of the scripts that ends them."""
    for path in ROOT.iterdir():
        if path.name not in ("scripts", "build", "fuzz", ".git"):
            (folder / path.name).symlink_to(path)
    for own in ("scripts", "fuzz"):
        (folder / own).mkdir()
        for path in (ROOT / own).iterdir():
            if path.name != "install-packages.sh":
                (folder / own / path.name).symlink_to(path)
    first_step = folder / "scripts/install-packages.sh"
    first_step.write_text(f"#!/bin/sh\nexit {FIRST_STEP}\n", encoding="ascii")
    first_step.chmod(0o755)


def script_takes(words, folder):
    words = [SAMPLES.get(word, word) for word in words]
    script = ROOT / words[0]
    in_python = ROOT / "scripts" / script.name / "main.py"
    if in_python.is_file():
        ran = subprocess.run([sys.executable, "-c", "import main; main.arguments()", *words[1:]], cwd=in_python.parent,
                             capture_output=True, check=False)
        return ran.returncode == 0
    if not script.is_file() or "install-packages.sh" not in script.read_text(encoding="utf-8"):
        return False
    ran = subprocess.run(words, cwd=folder, capture_output=True, timeout=60, check=False)
    return ran.returncode == FIRST_STEP


def run_by_the_tests(script):
    """A script that the tests themselves run."""
    callers = sources("test", "tests/*/CMakeLists.txt", "tests/**/*.sh", "tests/**/*.bash", "tests/**/*_test.py")
    return (ROOT / script).is_file() and re.search(rf"[\s\"/(]{re.escape(script)}[\s\")]", callers) is not None


def run_with_its_folder(script):
    """A story or a bench, which each is that stands among them."""
    return (ROOT / script).is_file() and re.fullmatch(r"(?:tests/operator/e2e/\w+|benches/windows/.*_bench)\.sh", script)


def asked_for(setting):
    """An environment variable, that a script asks for."""
    return re.search(rf"\$\{{?{setting}\b", sources("scripts/*.*", "tests/operator/e2e/*.*")) is not None


class Commands(unittest.TestCase):
    def setUp(self):
        made = tempfile.TemporaryDirectory()
        self.addCleanup(made.cleanup)
        self.folder = pathlib.Path(made.name)
        mirror_of_the_repository(self.folder)

    def is_there(self, words):
        if setting := re.match(r"([A-Z_]+)=", words[0]):
            return asked_for(setting.group(1)) and self.is_there(words[1:])
        program = words[0].removeprefix("./") if words[0].endswith(".exe") else words[0]
        if program.startswith("tarvo-launcher"):
            return run_by_a_story("ask|expect_answer|in_console|check|launcher", words[1:])
        if program.startswith("operator"):
            return run_by_a_story("operate|operator.exe", words[1:2])
        if program.startswith("tarvo-acceptance") or program.endswith("/under_wine.sh"):
            return acceptance_takes(words[1:])
        if program.startswith("./") or program == "fuzz/run":
            return script_takes(words, self.folder)
        samples_alone = all(word in SAMPLES or word.isdigit() for word in words[1:])
        if samples_alone and (run_by_the_tests(program) or run_with_its_folder(program)):
            return True
        return script_takes(words, self.folder)

    def test_every_command_of_the_documents(self):
        seen = {line: page.name for page in documents() for line in commands(page.read_text(encoding="utf-8"))}
        self.assertGreater(len(seen), 60)
        self.assertEqual("", "\n".join(f"{page}: {' '.join(words)} (of {line})" for line, page in seen.items()
                                       for words in spelt_out(line) if not self.is_there(words)))

    def test_made_up_commands_are_noticed(self):
        made_up = ["./run --made-up", "./test --made-up", "./test -L made-up", "./bench made-up", "./release --made-up",
                   "./mutate --made-up", "fuzz/run made-up", "fuzz/run 30 made_up_fuzz", "./made-up",
                   "scripts/made-up.sh", "scripts/check-tidy.sh --made-up", "tarvo-launcher.exe --made-up",
                   "tarvo-launcher.exe --start world", "tarvo-launcher.exe --state [text|made-up]",
                   "tarvo-acceptance --made-up", "tarvo-acceptance --story made_up", "operator made-up 3"]
        page = "".join(f"```\n{line}   what it does\n```\nIn the midst: `{line}`.\n" for line in made_up)
        self.assertEqual(sorted(made_up * 2), sorted(commands(page)))
        for line in made_up:
            self.assertFalse(all(self.is_there(words) for words in spelt_out(line)), line)


if __name__ == "__main__":
    sys.exit(unittest.main())
