#!/usr/bin/env python3
"""Reads a saved archive with the standard library of Python and says what is wrong with it."""

import re
import sys
import zipfile
from xml.etree import ElementTree

NUMBER = re.compile(r"-?\d\.\d{16}e[+-]\d\d+")
DATE = re.compile(r"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ)?")
NUMBERS = {"X", "Y", "Z", "FieldOfView", "ViewToWorldScale", "Height"}
DATES = {"Date", "CreationDate", "ModifiedDate"}
FLAGS = {"isExternal": ("true", "false"), "DefaultVisibility": ("true", "false"),
         "Selected": ("true", "false"), "Visible": ("true", "false"),
         "SpacesVisible": ("1", "0"), "SpaceBoundariesVisible": ("1", "0"), "OpeningsVisible": ("1", "0")}


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


def problems(archive):
    if archive.testzip():
        yield f"bad checksum: {archive.testzip()}"
    entries = archive.infolist()
    if entries[0].filename != "bcf.version":
        yield "the version is not the first entry"
    if len(set(archive.namelist())) != len(entries):
        yield "a name occurs twice"
    for entry in entries:
        if entry.compress_type != zipfile.ZIP_DEFLATED:
            yield f"{entry.filename} is not deflated"
        if entry.external_attr >> 16 & 0o777 != (0 if entry.filename == "project.bcfp" else 0o444):
            yield f"permissions of {entry.filename}"
        if entry.filename.endswith((".bcf", ".bcfv", ".bcfp", "bcf.version")):
            yield from (f"{entry.filename}: {text}" for text in problems_of_xml(archive.read(entry)))


with zipfile.ZipFile(sys.argv[1]) as saved:
    sys.exit("\n".join(problems(saved)) or 0)
