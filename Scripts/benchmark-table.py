#!/usr/bin/python3
"""benchmark-table.py FIGURES [PAGE]: prints the figures of a run of bcf-benchmarks as a table.

With a page, the table also replaces what stands between the two marks in it.
"""

import json
import math
import sys

BEGIN = "<!-- figures: written by Scripts/run-benchmarks.sh -->\n"
END = "<!-- end of figures -->\n"


def duration(seconds):
    for unit, scale in (("s", 1), ("ms", 1e-3), ("us", 1e-6)):
        if seconds >= scale:
            count = seconds / scale
            return f"{count:.{max(0, 2 - int(math.log10(count)))}f} {unit}"
    return f"{seconds * 1e9:.0f} ns"


def megabytes(run, key):
    return f"{run[key] / 1e6:.0f}" if key in run else ""


def load_save_lines(runs):
    row = "{:<30}{:<13}{:>9}{:>9}{:>7}{:>10}{:>7}{:>7}{:>7}"
    yield row.format("archive", "", "time", "floor", "ratio", "per item", "peak", "kept", "tree")
    yield row.format("", "", "", "", "", "", "MB", "MB", "MB")
    previous = None
    for run in runs:
        family, size, figure = run["name"].split("/")[:3]
        archive = f"{int(size):,} {family}"
        if archive != previous:
            yield ""
        floor = run.get("floor")
        yield row.format(
            archive if archive != previous else "", figure, duration(run["time"]),
            duration(floor) if floor else "", f"{run['time'] / floor:.2f}" if floor else "",
            duration(run["time"] / run["items"]) if run["time"] > 1e-9 * run["items"] else "",
            *(megabytes(run, key) for key in ("peak", "kept", "tree"))).rstrip()
        previous = archive


def editing_lines(runs):
    row = "{:<30}{:>12}{:>9}{:>9}{:>9}{:>9}"
    yield row.format("family", "first find", "add", "find", "miss", "remove")
    yield ""
    for run in sorted(runs, key=lambda run: run["name"].split("/")[0]):
        family, size = run["name"].split("/")[:2]
        yield row.format(f"{int(size):,} {family}",
                         *(duration(run[key]) for key in ("first", "add", "find", "miss", "remove")))


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        result = json.load(file)
    runs = result["benchmarks"]
    failed = [run["name"] for run in runs if run.get("error_occurred")]
    if failed:
        sys.exit("Failed: " + ", ".join(failed))
    context = result["context"]
    lines = [f"{context['num_cpus']} processors of {context['mhz_per_cpu'] / 1000:.1f} GHz", ""]
    lines += load_save_lines([run for run in runs if "time" in run])
    lines += ["", ""]
    lines += editing_lines([run for run in runs if "add" in run])
    print("\n".join(lines))
    if len(sys.argv) > 2:
        with open(sys.argv[2], encoding="utf-8") as file:
            page = file.read()
        head, rest = page.split(BEGIN)
        tail = rest.split(END)[1]
        block = "```text\n" + "\n".join(lines) + "\n```\n"
        with open(sys.argv[2], "w", encoding="utf-8") as file:
            file.write(f"{head}{BEGIN}{block}{END}{tail}")


main()
