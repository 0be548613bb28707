#!/usr/bin/env python3
"""check-inspect.py BCF_INSPECT SCHEMA ARCHIVE...

Runs bcf-inspect --json on the archives, on those in BCF_CORPUS_DIR if it is set, and on broken ones that
it makes, and holds each line against the schema and each reason against what was broken. Then it tries what
the program prints, saves and ends with.
"""

import copy
import json
import os
import re
import subprocess
import sys
import tempfile
import zipfile
from pathlib import Path

import jsonschema

PROGRAM, SCHEMA, *ARCHIVES = sys.argv[1:]

TOPIC = '<Topic Guid="t"><Title>T</Title><CreationAuthor>a</CreationAuthor>' \
        '<CreationDate>2024-03-14T09:00:00Z</CreationDate></Topic>'


def viewpoint(image='<Snapshot>snapshot.png</Snapshot>', name='viewpoint.bcfv'):
    return f'<Viewpoints Guid="v"><Viewpoint>{name}</Viewpoint>{image}</Viewpoints>'


def archive(topic=TOPIC, rest='', version='<Version VersionId="2.1"/>', **files):
    """The entries of an archive with one topic."""
    entries = {'t/markup.bcf': f'<Markup>{topic}{rest}</Markup>'}
    if version is not None:
        entries['bcf.version'] = version
    entries.update({f't/{name.replace("_", ".")}': content for name, content in files.items()})
    return entries


# What is broken, and a part of each problem that has to be told, or of the warning.
BROKEN = {
    'guid': (archive(TOPIC.replace('"t"', '""')), ['it has no guid']),
    'title': (archive(TOPIC.replace('>T<', '><')), ['Topic "t": it has no title']),
    'author and date': (archive('<Topic Guid="t"><Title>T</Title><CreationDate>x</CreationDate></Topic>'),
                        ['no creation author', 'no creation date']),
    'viewpoint file': (archive(rest=viewpoint('', 'v.bcfv')), ['named viewpoint.bcfv']),
    'images': (archive(rest=viewpoint('')
                       + viewpoint('<Snapshot>w.png</Snapshot>', 'w.bcfv').replace('"v"', '"w"')),
               ['viewpoint 2 lacks its image "w.png"', 'named snapshot.png']),
    'attachment': (archive(rest='<Header><File isExternal="false"><Filename>a.ifc</Filename></File></Header>'),
                   ['File "a.ifc" doesn\'t exist']),
    'damaged version': (archive(version='<Version'), ['bcf.version in the archive is damaged']),
}
WARNED = {
    'version 3.0': (archive(version='<Version VersionId="3.0"/>'), 'is of version 3.0'),
    'another root': (archive(version='<Foo VersionId="2.1"/>'), "doesn't say its version"),
    'lost topics': ({**archive(), 'u/markup.bcf': '<Markup', 'v\\markup.bcf': '<Markup/>'},
                    'could not be read: 2'),
    'version 2.1': (archive(version='\n<?xml version="1.0"?><Version VersionId="2.1"/>'), ''),
    'no version': (archive(version=None), ''),
}


def run_program(*arguments):
    return subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, encoding='utf-8',
                          env={**os.environ, 'TZ': 'Asia/Kolkata', 'LC_ALL': 'C'}, check=False)


def inspect(*paths):
    run = run_program('--json', *paths)
    lines = [json.loads(line) for line in run.stdout.splitlines()]
    assert [line['path'] for line in lines] == list(map(str, paths)), 'one line for each archive'
    assert run.returncode == (0 if all(line['usable'] for line in lines) else 1)
    return lines


def write(path, entries):
    with zipfile.ZipFile(path, 'w') as file:
        for name, content in entries.items():
            file.writestr(name, content)
    return path


def check_exit_status(sample, folder):
    lost = folder / 'no folder' / 'out.bcf'
    for arguments, status in [((sample,), 0), (('--help',), 0), ((sample, PROGRAM, sample), 1),
                              (('--json', PROGRAM), 1), (('--save', lost, sample), 1), (('--json',), 2),
                              (('--save', lost, sample, sample), 2)]:
        run = run_program(*arguments)
        assert run.returncode == status, (arguments, run)
        assert (run.stderr == '') == (status == 0) and ('Usage: ' in run.stderr) == (status == 2), run


def check_report(sample, folder):
    report = run_program(sample).stdout
    assert all(len(line) <= 80 for line in report.splitlines())
    assert re.search('\nMessage +-\n', report) and re.search('Reply to +comment 1\n', report)
    assert 'zoë.o’brien@example.com' in report

    def point(name, text):
        x, y, z = text.split()
        return f'<{name}><X>{x}</X><Y>{y}</Y><Z>{z}</Z></{name}>'

    camera = '<VisualizationInfo><PerspectiveCamera>' + point('CameraViewPoint', '2600123.456 1e6 -1e-5') \
        + point('CameraDirection', '0 0 1') + point('CameraUpVector', '0 1 0') \
        + '<FieldOfView>60</FieldOfView></PerspectiveCamera></VisualizationInfo>'
    hostile = archive(TOPIC.replace('>T<', '>\x9b31m\x7f\u202eder ' + 200 * '漢' + '<'), viewpoint(''),
                      viewpoint_bcfv=camera)
    report = run_program(write(folder / 'hostile', hostile)).stdout
    assert 'at (2600123.456, 1000000, -0.00001)' in report and '\ufffd31m\ufffd\ufffdder' in report, report
    assert not re.search('[\x00-\x09\x0b-\x1f\x7f-\x9f\u202e]', report)
    # 40 wide characters fill a line.
    assert 41 * '漢' not in report


def check_save(sample, folder):
    def topics(path):
        return inspect(path)[0]['topics']

    saved = folder / 'saved.bcf'
    assert run_program('--save', saved, sample).returncode == 0 and topics(saved) == topics(sample)

    # What could not be loaded must not take the place of a good archive, nor what was loaded in part.
    header = '<Header><File isExternal="false"><Filename>gone.txt</Filename></File></Header>'
    torso = write(folder / 'torso', archive(rest=header))
    for path in (PROGRAM, torso):
        assert run_program('--save', saved, path).returncode == 1 and topics(saved) == topics(sample)

    # What a newer version holds elsewhere would be gone for good.
    newer = write(folder / 'newer', archive(version='<Version VersionId="3.0"/>'))
    assert run_program('--save', newer, newer).returncode == 1
    assert b'3.0' in zipfile.ZipFile(newer).read('bcf.version')


def main():
    schema = json.loads(Path(SCHEMA).read_text(encoding='utf-8'))
    jsonschema.Draft202012Validator.check_schema(schema)
    validator = jsonschema.Draft202012Validator(schema)

    corpus = os.environ.get('BCF_CORPUS_DIR')
    found = sorted(Path(corpus).glob('*.bcf*')) if corpus else []
    lines = inspect(*ARCHIVES, *found)

    with tempfile.TemporaryDirectory() as folder:
        at = Path(folder)
        for check in (check_exit_status, check_report, check_save):
            check(ARCHIVES[0], at)
        for name, (entries, problems) in BROKEN.items():
            line, = inspect(write(at / name, entries))
            assert len(line['problems']) == len(problems), (name, line['problems'])
            for problem, told in zip(problems, line['problems']):
                assert problem in told, (name, told)
            lines.append(line)
        for name, (entries, warning) in WARNED.items():
            line, = inspect(write(at / name, entries))
            assert [warning in told for told in line['warnings']] == [True] * bool(warning), (name, line)
            lines.append(line)

        whole = Path(ARCHIVES[0]).read_bytes()
        (at / 'cut').write_bytes(whole[:len(whole) // 2])
        (at / 'empty').write_bytes(b'')
        for path, problem in [('cut', 'is cut off'), ('empty', 'is empty'), ('.', 'is a folder'),
                              ('none', 'There is no file'), (__file__, 'is no zip archive')]:
            line, = inspect(at / path)
            assert len(line['problems']) == 1 and problem in line['problems'][0], (path, line)
            lines.append(line)

    for line in lines:
        validator.validate(line)

    # The schema is no sieve that lets everything through.
    good = lines[0]
    assert good['topics'][0]['viewpoints'][0]['snapshot'] and good['topics'][0]['comments']
    for spoil in (lambda line: line.pop('usable'),
                  lambda line: line['problems'].append('none'),
                  lambda line: line['topics'][0].update(creation_date='2024-03-14T09:00:00'),
                  lambda line: line['topics'][0]['comments'][0].update(mood='bad'),
                  lambda line: line['topics'][0]['viewpoints'][0]['snapshot'].update(snapshot_data='PNG')):
        bad = copy.deepcopy(good)
        spoil(bad)
        assert not validator.is_valid(bad), spoil


main()
