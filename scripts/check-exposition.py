#!/usr/bin/python3
"""Reads files in the text exposition format of Prometheus by its own client's parser, strictly.

    scripts/check-exposition.py FILE...

Prints what is wrong, and ends with exit code 1 when anything is: a text that the parser refuses, a metric without
HELP or TYPE, a counter whose name does not end with "_total", a sample that is there twice, a line end but LF.
"""
import sys

from prometheus_client.parser import text_string_to_metric_families


def faults_of(text):
    if "\r" in text:
        yield "a line ends with CR LF"
    if not text.endswith("\n"):
        yield "the last line has no end"
    seen = set()
    for family in text_string_to_metric_families(text):
        if family.type == "unknown":
            yield f"{family.name} has no TYPE"
        if not family.documentation:
            yield f"{family.name} has no HELP"
        for sample in family.samples:
            if family.type == "counter" and not sample.name.endswith("_total"):
                yield f"the counter {sample.name} does not end with _total"
            key = (sample.name, tuple(sorted(sample.labels.items())))
            if key in seen:
                yield f"{key} is there twice"
            seen.add(key)
    if not seen:
        yield "there is no sample"


def main():
    faults = []
    for path in sys.argv[1:]:
        with open(path, encoding="utf-8", newline="") as file:
            try:
                faults += [f"{path}: {fault}" for fault in faults_of(file.read())]
            except ValueError as fault:
                faults.append(f"{path}: {fault}")
    print("\n".join(faults), end="\n" if faults else "")
    sys.exit(1 if faults else 0)


main()
