#!/usr/bin/env python3
"""Reads a saved archive with the standard library of Python and says what is wrong with it."""

import os
import re
import sys
import tempfile
import unicodedata
import zipfile
from xml.etree import ElementTree

NUMBER = re.compile(r"-?\d\.\d{16}e[+-]\d\d+")
DATE = re.compile(r"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ)?")
NUMBERS = {"X", "Y", "Z", "FieldOfView", "ViewToWorldScale", "Height"}
DATES = {"Date", "CreationDate", "ModifiedDate"}
FLAGS = {"isExternal": ("true", "false"), "DefaultVisibility": ("true", "false"),
         "Selected": ("true", "false"), "Visible": ("true", "false"),
         "SpacesVisible": ("1", "0"), "SpaceBoundariesVisible": ("1", "0"), "OpeningsVisible": ("1", "0")}

DEVICE = re.compile(r"(con|prn|aux|nul|conin\$|conout\$|(com|lpt)[0-9\u00b9\u00b2\u00b3]) *(\..*)?", re.IGNORECASE)

ROOT_FILES = {"bcf.version", "project.bcfp"}


def problems_of_xml(content):
    if not content.startswith(b'<?xml version="1.0" encoding="UTF-8"?>\n'):
        yield "no declaration of UTF-8"
    content.decode("utf-8")
    for element in ElementTree.fromstring(content).iter():
        text = element.text or ""
        if element.tag in NUMBERS and not NUMBER.fullmatch(text):
            yield f"number {element.tag}: {text}"
        if element.tag in DATES and not DATE.fullmatch(text):
            yield f"date {element.tag}: {text}"
        for name, words in FLAGS.items():
            if element.get(name, words[0]) not in words:
                yield f"flag {name}: {element.get(name)}"


def as_file_systems_see_it(name):
    return unicodedata.normalize("NFD", unicodedata.normalize("NFD", name).casefold())


def problems_of_names(names):
    """Entries that are one file or lead astray once they are unpacked."""
    seen = {}
    for name in names:
        other = seen.setdefault(as_file_systems_see_it(name), name)
        if other is not name:
            yield f"{name} is the same as {other}"
    for name in names:
        parts = name.split("/")
        if (any(part.strip(". ") == "" or part[-1] in ". " or DEVICE.fullmatch(part) for part in parts)
                or re.search(r'[\\:<>"|?*]', name) or {unicodedata.category(c) for c in name} & {"Cc", "Cf"}):
            yield f"not a name everywhere: {ascii(name)}"


def problems_of_unpacking(archive):
    with tempfile.TemporaryDirectory() as folder:
        archive.extractall(folder)
        found = {os.path.relpath(os.path.join(path, name), folder)
                 for path, _, names in os.walk(folder) for name in names}
    yield from sorted(found.symmetric_difference(archive.namelist()))


def problems_of_files(archive):
    """What is wrong with the XML files: those at the root, the markups, and the viewpoints that these name."""
    names = set(archive.namelist())
    files = [name for name in archive.namelist() if name in ROOT_FILES or name.endswith("/markup.bcf")]
    for name in files:
        content = archive.read(name)
        yield from (f"{name}: {text}" for text in problems_of_xml(content))
        for named in ElementTree.fromstring(content).findall("Viewpoints/*"):
            path = os.path.join(os.path.dirname(name), named.text)
            if path not in names:
                yield f"{name} names {named.text}"
            elif named.tag == "Viewpoint":
                files.append(path)


def problems(archive):
    if archive.testzip():
        yield f"bad checksum: {archive.testzip()}"
    entries = archive.infolist()
    if entries[0].filename != "bcf.version":
        yield "the version is not the first entry"
    yield from problems_of_names(archive.namelist())
    yield from problems_of_unpacking(archive)
    for entry in entries:
        if entry.compress_type != zipfile.ZIP_DEFLATED:
            yield f"{entry.filename} is not deflated"
        if entry.external_attr >> 16 & 0o777 != (0 if entry.filename == "project.bcfp" else 0o444):
            yield f"permissions of {entry.filename}"
    yield from problems_of_files(archive)


with zipfile.ZipFile(sys.argv[1]) as saved:
    sys.exit("\n".join(problems(saved)) or 0)
