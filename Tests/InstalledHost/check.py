#!/usr/bin/env python3
"""check.py BEFORE AFTER <JSON

Says what of an archive is missing after a host has answered its first topic, and what of the answer.
"""

import json
import re
import sys
import zipfile
from collections import Counter
from datetime import datetime, timezone
from xml.etree import ElementTree

# What no save keeps: an attribute that nothing reads, and the image of a bitmap.
NOT_KEPT = ('/VisualizationInfo', 'Guid')
BITMAP = 'clash-mark.png'


def plain(text):
    """Numbers, dates, flags and colours in one form, however they are written."""
    text = {'true': '1', 'false': '0'}.get(text, (text or '').strip())
    if re.fullmatch(r'#?[0-9A-Fa-f]{6}', text):
        return text.lstrip('#').lower()
    if re.fullmatch(r'\d{4}-\d\d-\d\dT.*', text):
        return datetime.fromisoformat(text.replace('Z', '+00:00')).astimezone(timezone.utc).isoformat()
    try:
        return repr(float(text))
    except ValueError:
        return text


def facts(content, path=''):
    """All texts and attributes of a file with the names of the elements that lead to them."""
    root = content if isinstance(content, ElementTree.Element) else ElementTree.fromstring(content)
    path += '/' + root.tag
    found = Counter({(path, name, plain(value)): 1 for name, value in root.attrib.items()
                     if (path, name) != NOT_KEPT})
    found[path, '', plain(root.text)] += 1
    for child in root:
        found += facts(child, path)
    return found


def problems(before, after, answer):
    for name in before.namelist():
        if name.endswith(BITMAP):
            continue
        if name not in after.namelist():
            yield f'{name} is gone'
        elif name.endswith(('.bcf', '.bcfv', '.bcfp', '.version')):
            yield from (f'{name}: {fact} is gone'
                        for fact in facts(before.read(name)) - facts(after.read(name)))
        elif before.read(name) != after.read(name):
            yield f'{name} has changed'
    new = set(after.namelist()) - set(before.namelist())
    if sorted(re.sub(r'.*/|\d', '', name) for name in new) != ['snapshot.png', 'viewpoint.bcfv']:
        yield f'new are {new}'
    if not answer['comments'][-1]['viewpoint_guid'] == answer['viewpoints'][-1]['guid']:
        yield 'the comment does not lead to its view'
    if answer['viewpoints'][-1]['snapshot']['snapshot_data'] != 'data:image/png;base64,iVBORw0KGgr/AIB/':
        yield 'the image is damaged in JSON'
    if any('view_setup_hints' in view['components'] for view in answer['viewpoints']):
        yield 'the hints stand where no form is read'


with zipfile.ZipFile(sys.argv[1]) as first, zipfile.ZipFile(sys.argv[2]) as second:
    sys.exit('\n'.join(problems(first, second, json.load(sys.stdin))) or 0)
