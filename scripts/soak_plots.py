#!/usr/bin/env python3
"""Draws what a soak has measured: scripts/soak_plots.py FOLDER makes FOLDER/soak.svg of its csv files."""

import csv
import sys
from pathlib import Path

WIDTH, HEIGHT, LEFT, TOP = 640, 140, 90, 34


def rows(path):
    with open(path, newline="", encoding="ascii") as file:
        return list(csv.DictReader(file))


def scale(values, span):
    low, high = min(0, *values), max(values) or 1
    return [(value - low) / (high - low) * span for value in values], high


def chart(title, unit, xs, ys, bars=False):
    """One chart at the origin: a line over xs, or a bar for each."""
    along, end = scale(xs, WIDTH)
    up, top = scale(ys, HEIGHT)
    points = [(LEFT + x, TOP + HEIGHT - y) for x, y in zip(along, up)]
    parts = [
        f'<text x="{LEFT}" y="{TOP - 10}" font-weight="bold">{title}</text>',
        f'<path d="M{LEFT} {TOP}v{HEIGHT}h{WIDTH}" fill="none" stroke="#888"/>',
        f'<text x="{LEFT - 6}" y="{TOP + 10}" text-anchor="end">{top:g} {unit}</text>',
        f'<text x="{LEFT - 6}" y="{TOP + HEIGHT}" text-anchor="end">0</text>',
        f'<text x="{LEFT + WIDTH}" y="{TOP + HEIGHT + 16}" text-anchor="end">{end:g}</text>',
    ]
    if bars:
        wide = WIDTH / max(len(points), 1)
        parts += [
            f'<rect x="{x - wide:.1f}" y="{y:.1f}" width="{wide * 0.8:.1f}" '
            f'height="{TOP + HEIGHT - y:.1f}" fill="#27a"/>'
            for x, y in points
        ]
    else:
        line = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        parts.append(f'<polyline points="{line}" fill="none" stroke="#27a" stroke-width="2"/>')
    return "\n".join(parts)


def distribution(times, step=250):
    """How many of the times lie in each step: the upper ends and the counts."""
    ends = list(range(step, int(max(times)) + 2 * step, step))
    return ends, [sum(end - step <= time < end for time in times) for end in ends]


def charts(folder):
    minutes = rows(folder / "minutes.csv")
    seconds = [float(row["second"]) for row in minutes]

    def column(name):
        return [float(row[name]) for row in minutes]

    yield chart("private memory over seconds", "KiB", seconds, column("private_kib"))
    yield chart("handles over seconds", "", seconds, column("handles"))
    yield chart("GDI objects over seconds", "", seconds, column("gdi_objects"))
    yield chart("windows over seconds", "", seconds, column("windows"))
    yield chart("processor time over seconds", "s", seconds, column("processor_seconds"))
    watched = [line.split(",") for line in (folder / "deaths.csv").read_text("ascii").splitlines()]
    answers = [(float(words[1]), float(words[2])) for words in watched if words[0] == "answer"]
    if answers:
        yield chart("longest answer of the window over seconds", "ms", *zip(*answers))
    times = [float(words[3]) for words in watched if words[0] == "successor"]
    if times:
        yield chart("deaths by milliseconds to the successor", "", *distribution(times), bars=True)


def main():
    folder = Path(sys.argv[1])
    drawn = list(charts(folder))
    step = TOP + HEIGHT + 30
    body = "\n".join(f'<g transform="translate(0 {i * step})">{one}</g>' for i, one in enumerate(drawn))
    (folder / "soak.svg").write_text(
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{LEFT + WIDTH + 20}" height="{len(drawn) * step}" '
        f'font-family="sans-serif" font-size="12"><rect width="100%" height="100%" fill="#fff"/>\n{body}\n</svg>\n',
        "ascii",
    )
    print(folder / "soak.svg")


if __name__ == "__main__":
    main()
