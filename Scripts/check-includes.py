#!/usr/bin/env python3
"""check-includes.py [--draw FILE]

Fails where the library's folders lean on each other in a way that they must not: a folder includes one
above it, files include each other, a header for hosts includes an internal one, or an include hides what
it brings. Fails also where a file has more than 500 lines.

With --draw it writes a picture of the folders for Graphviz instead: which includes which.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
LIBRARY = ROOT / "Core/Utils/BCFLib"

PROMISES = {
    "Io": "bytes within bounds",
    "Xml": "XML text and documents",
    "Zip": "one archive within its budget",
    "Tree": "searches below an object",
    "Variant": "maps and lists",
    ".": "the classes of hosts",
    "Archive": "loading and saving",
    "Lookup": "which objects index guids",
    "Markup": "markup.bcf",
    "ViewpointFile": "the viewpoint file",
    "VariantForm": "the variant form",
}
# What each folder may include. "." are the classes of hosts; the folders after it hold their members, and
# no headers.
INTERNAL = {"Io": [], "Xml": ["Io"], "Zip": ["Io"], "Tree": [], "Variant": []}
MEMBERS = ["Archive", "Lookup", "Markup", "ViewpointFile", "VariantForm"]
ALLOWED = {**INTERNAL, ".": list(INTERNAL), **{folder: [".", *INTERNAL] for folder in MEMBERS}}


def folder(path):
    return str(path.relative_to(LIBRARY).parent)


def code(path):
    """The text of a file without comments, its continued lines in one."""
    text = path.read_text().replace("\\\n", "")
    return re.sub(r'//[^\n]*|/\*.*?\*/|("(?:\\.|[^"\\\n])*")', lambda match: match[1] or " ", text, flags=re.S)


def includes(path):
    """What stands behind each #include of a file."""
    return re.findall(r"^\s*#\s*(?:include|include_next|import)\b\s*(.*?)\s*$", code(path), re.M)


def included(path):
    """The files of the library that one of them includes."""
    for name in includes(path):
        for place in (path.parent, LIBRARY, ROOT):
            candidate = (place / name.strip('<>"')).resolve()
            if candidate.is_file():
                if candidate.is_relative_to(LIBRARY):
                    yield candidate
                break


def cycle(graph):
    """Some files each of which includes the next, and the last the first; None without."""
    finished = set()

    def walk(path, way):
        if path in way:
            return way[way.index(path):]
        if path in finished:
            return None
        for target in graph[path]:
            found = walk(target, [*way, path])
            if found:
                return found
        finished.add(path)
        return None

    return next(filter(None, (walk(path, []) for path in graph)), None)


def include_graph():
    files = sorted(path for path in LIBRARY.rglob("*") if path.is_file() and path.name != "CMakeLists.txt")
    return {path: sorted(set(included(path))) for path in files}


def picture(graph):
    """The folders as boxes, one row for each level, an arrow where one includes another."""
    lines = [
        "digraph folders {",
        '    graph [fontname="Helvetica", bgcolor="transparent", nodesep=0.4, ranksep=0.7]',
        '    node [shape=box, style="rounded,filled", fillcolor="#eef3f8", color="#5b7a99",',
        '          fontname="Helvetica", fontsize=11]',
        '    edge [color="#5b7a99", arrowsize=0.6]',
    ]
    for name, promise in PROMISES.items():
        title = "BCFLib" if name == "." else name
        lines.append(f'    "{name}" [label="{title}\\n{promise}"]')
    for row in (MEMBERS, list(INTERNAL)[1:]):
        lines.append("    { rank=same; " + " ".join(f'"{name}"' for name in row) + " }")
    # The classes of hosts between the two rows, whatever they include.
    lines += [f'    "." -> "{name}" [style=invis]' for name in list(INTERNAL)[1:]]
    arrows = {(folder(path), folder(target)) for path, targets in graph.items() for target in targets}
    lines += [f'    "{begin}" -> "{end}"' for begin, end in sorted(arrows) if begin != end]
    return "\n".join([*lines, "}", ""])


def complaints(graph):
    for path, targets in graph.items():
        source = path.relative_to(LIBRARY)
        if folder(path) not in ALLOWED:
            yield f"{source}: no rule says what its folder may include"
            continue
        if path.suffix not in (".h", ".cpp") or (path.suffix == ".h" and folder(path) in MEMBERS):
            yield f"{source} is no file of the kinds that its folder holds"
        for name in includes(path):
            if not re.fullmatch(r'<[^>]+>|"[^"]+"', name):
                yield f"{source} includes {name}, which hides what it brings"
        for target in targets:
            name = target.relative_to(LIBRARY)
            if target.suffix != ".h":
                yield f"{source} includes {name}, which is no header"
            if folder(target) != folder(path) and folder(target) not in ALLOWED[folder(path)]:
                yield f"{source} includes {name}, which stands above it or beside"
            if path.suffix == ".h" and folder(path) == "." and folder(target) != ".":
                yield f"{source} is for hosts and includes {name}, which is internal"
    round_trip = cycle(graph)
    if round_trip:
        yield "include each other: " + ", ".join(str(path.relative_to(LIBRARY)) for path in round_trip)
    for path in graph:
        count = len(path.read_text().splitlines())
        if count > 500:
            yield f"{path.relative_to(LIBRARY)} has {count} lines; 500 are the most"
    # The two small libraries below this one.
    for path in sorted(LIBRARY.parent.glob("*/*.[ch]*")):
        if path.parent != LIBRARY and any(included(path)):
            yield f"{path.relative_to(LIBRARY.parent)} includes a header of {LIBRARY.name}, which stands above it"


if sys.argv[1:2] == ["--draw"]:
    Path(sys.argv[2]).write_text(picture(include_graph()))
    sys.exit()

found = list(complaints(include_graph()))
print(*found, sep="\n", end="\n" if found else "")
sys.exit(1 if found else 0)
