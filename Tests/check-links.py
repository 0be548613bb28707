#!/usr/bin/env python3
"""check-links.py FOLDER

Says which links of the Markdown pages in and below a folder lead to no file, or to no heading of one. What
is built is not looked at.
"""

import re
import sys
from pathlib import Path

root = Path(sys.argv[1]).resolve()


def prose(page):
    text = re.sub(r'^```.*?^```', '', page.read_text(encoding='utf-8'), flags=re.M | re.S)
    return re.sub(r'`[^`\n]*`', 'code', text)


def anchors(page):
    text = re.sub(r'^```.*?^```', '', page.read_text(encoding='utf-8'), flags=re.M | re.S)
    return {re.sub(r'[^\w -]', '', heading.lower()).replace(' ', '-')
            for heading in re.findall(r'^#+ (.*)$', text, flags=re.M)}


problems = []
links = 0
for page in sorted(root.rglob('*.md')):
    if 'build' in page.relative_to(root).parts:
        continue
    for target in re.findall(r'\[[^][]*\]\(([^)\s]*)\)', prose(page)):
        if re.match('[a-z]+:', target):
            continue
        links += 1
        path, _, anchor = target.partition('#')
        file = (page.parent / path) if path else page
        if not file.exists() or not file.resolve().is_relative_to(root):
            problems.append(f'{page.relative_to(root)}: no file {target}')
        elif anchor and anchor not in anchors(file):
            problems.append(f'{page.relative_to(root)}: no heading {target}')

if links == 0:
    problems.append('no links at all')
sys.exit('\n'.join(problems) or 0)
