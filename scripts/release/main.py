#!/usr/bin/python3
"""Builds the archives of a release from the last commit. See ../../release."""
import argparse
import hashlib
import os
import re
import shutil
import subprocess
import sys
import zipfile
from datetime import datetime, timezone

from check_executable import faults, program_faults
from guide import enclosed_files, guide_page

ROOT = os.path.abspath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "../.."))
BITS = ("64", "32")
SERVERS = ("login-server", "char-server", "map-server", "console-server")


def output(*command):
    return subprocess.run(command, cwd=ROOT, check=True, stdout=subprocess.PIPE, text=True).stdout.strip()


def version_of(source):
    with open(os.path.join(source, "CMakeLists.txt"), encoding="utf-8") as file:
        return re.search(r"project\(TarvoLauncher VERSION (\S+)", file.read()).group(1)


def check_out(commit, source):
    """The commit's files, in an empty folder."""
    shutil.rmtree(source, ignore_errors=True)
    os.makedirs(source)
    archive = subprocess.run(("git", "archive", commit), cwd=ROOT, check=True, stdout=subprocess.PIPE).stdout
    subprocess.run(("tar", "-x"), cwd=source, check=True, input=archive)


def without_cache(environment):
    """An environment in which every file is compiled, whatever a compiler cache knows of an earlier build."""
    kept = {name: value for name, value in environment.items() if not name.endswith("_COMPILER_LAUNCHER")}
    return {**kept, "CCACHE_DISABLE": "1"}


def build(source, bits, environment):
    """The folder of the finished programs; raises `SystemExit` when they are not as a release has to be."""
    log = os.path.join(source, f"build-{bits}.log")
    with open(log, "w", encoding="utf-8") as file:
        for command in (("cmake", "--preset", f"windows-{bits}"),
                        ("cmake", "--build", "--preset", f"windows-{bits}", "--target", "tarvo-launcher",
                         "tarvo-acceptance", *SERVERS)):
            if subprocess.run(command, cwd=source, env=environment, stdout=file, stderr=file,
                              check=False).returncode != 0:
                raise SystemExit(f"The build failed, see {log}")
    folder = os.path.join(source, "build", f"windows-{bits}")
    for name, check in (("tarvo-launcher.exe", faults), ("tarvo-acceptance.exe", program_faults)):
        executable = os.path.join(folder, name)
        if found := list(check(executable)):
            raise SystemExit("\n".join(f"{executable}: {fault}" for fault in found))
    return folder


def content(*path):
    with open(os.path.join(*path), "rb") as file:
        return file.read()


def text_for_windows(path):
    with open(path, encoding="utf-8") as file:
        return file.read().replace("\n", "\r\n").encode()


def archive(path, folder, files, moment):
    """A zip whose bytes depend on nothing but the files' names and contents and the commit's time."""
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as made:
        for name, content in sorted(files.items()):
            entry = zipfile.ZipInfo(f"{folder}/{name}", moment)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            made.writestr(entry, content)


def release(commit, source, target, environment):
    check_out(commit, source)
    version = version_of(source)
    moment = datetime.fromtimestamp(int(output("git", "log", "-1", "--format=%ct", commit)), timezone.utc)
    shutil.rmtree(target, ignore_errors=True)
    os.makedirs(target)
    docs = os.path.join(source, "docs")
    pages = {"README.txt": text_for_windows(os.path.join(docs, "README.txt")),
             "CHANGES.txt": text_for_windows(os.path.join(source, "CHANGES.md")),
             "operators-guide.html": guide_page(docs, version).encode(),
             **{name: content(docs, name) for name in enclosed_files(docs)}}
    for bits in BITS:
        built = build(source, bits, environment)
        launcher = {"tarvo-launcher.exe": content(built, "tarvo-launcher.exe")}
        for name, files in (("tarvo-launcher", {**launcher, **pages}),
                            ("tarvo-acceptance", {**launcher, **acceptance_files(source, built)})):
            folder = f"{name}-{version}"
            archive(os.path.join(target, f"{folder}-windows-{bits}.zip"), folder, files, moment.timetuple()[:6])
    return write_sums(target)


def acceptance_files(source, built):
    """What plays the stories on a real machine, beside the launcher."""
    servers = {f"{name}.exe": content(built, "servers", f"{name}.exe") for name in SERVERS}
    return {"tarvo-acceptance.exe": content(built, "tarvo-acceptance.exe"), **servers,
            "README.txt": text_for_windows(os.path.join(source, "tests/operator/acceptance/README.txt"))}


def write_sums(target):
    """`SHA256SUMS` as sha256sum writes and checks it; returns its text."""
    lines = []
    for name in sorted(os.listdir(target)):
        lines.append(f"{hashlib.sha256(content(target, name)).hexdigest()}  {name}\n")
    with open(os.path.join(target, "SHA256SUMS"), "w", encoding="utf-8") as file:
        file.writelines(lines)
    return "".join(lines)


def arguments():
    parser = argparse.ArgumentParser(prog="./release", description=__doc__)
    parser.add_argument("--twice", action="store_true", help="build again elsewhere and compare")
    return parser.parse_args()


def main():
    twice = arguments().twice
    if output("git", "status", "--porcelain"):
        raise SystemExit("The tree has changes that are in no commit; a release is built from a clean one.")
    commit = output("git", "rev-parse", "HEAD")
    work = os.path.join(ROOT, "build", "release")
    sums = release(commit, os.path.join(work, "source"), os.path.join(ROOT, "dist"), dict(os.environ))
    print(sums, end="")
    if not twice:
        return 0
    again = release(commit, os.path.join(work, "again/in-another-folder"), os.path.join(work, "dist-again"),
                    without_cache(os.environ))
    print("the same" if again == sums else "They differ:\n" + again)
    return 0 if again == sums else 1


if __name__ == "__main__":
    sys.exit(main())
