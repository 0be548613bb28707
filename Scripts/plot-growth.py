#!/usr/bin/python3
"""plot-growth.py FIGURES SVG: draws how the figures of a run of bcf-benchmarks grow with the size."""

import json
import sys
from collections import defaultdict

import matplotlib

matplotlib.use("svg")
# The same figures give the same file.
matplotlib.rcParams["svg.hashsalt"] = "growth"
matplotlib.rcParams["svg.fonttype"] = "none"
import matplotlib.pyplot as plt  # noqa: E402


def series(runs, key):
    """The points of each family and figure that was measured at several sizes."""
    lines = defaultdict(list)
    for run in runs:
        family, size, figure = run["name"].split("/")[:3]
        if key in run:
            lines[family, figure].append((int(size), run[key]))
    return {name: sorted(points) for name, points in lines.items() if len(points) > 1}


def draw(axes, title, lines):
    for name, points in lines.items():
        style = "--" if name.startswith("floor") else "-"
        axes.loglog(*zip(*points), style, marker="o", markersize=3, label=name)
    axes.set_title(title)
    axes.grid(True, which="major", linewidth=0.3)
    axes.set_aspect("equal", adjustable="datalim")
    axes.legend(fontsize="x-small", frameon=False)


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        runs = json.load(file)["benchmarks"]
    times = series(runs, "time")
    floors = series(runs, "floor")
    _, panels = plt.subplots(1, 4, figsize=(16, 4.6), layout="constrained")
    for axes, family in zip(panels, ("topics", "components in sets", "components in a list")):
        lines = {figure: points for (of, figure), points in times.items() if of == family}
        if family != "topics":
            # One topic to look at, however many elements it refers to.
            del lines["validate"]
        lines["floor of load"] = floors[family, "load"]
        lines["floor of save"] = floors[family, "save"]
        draw(axes, f"{family}: seconds", lines)
    edits = {f"{operation} {figure}, {tree}": points
             for operation in ("find", "remove")
             for (tree, figure), points in series(runs, operation).items()
             if tree.split(" ")[0].rstrip("s") == figure.split(" ")[1]}
    draw(panels[3], "editing: seconds", edits)
    plt.savefig(sys.argv[2], metadata={"Date": None})


main()
