#!/usr/bin/env python3
"""Runs programs that do the same job in turn and prints their medians and the bars.

Each run is a process of its own that answers a line of JSON for each item, itself a median of
several repetitions; the table shows the median of the runs, and their least. Called by
bench/run: compare.py [--pictures | --media | --files] [--rounds N] [--raw FILE] NAME=COMMAND...
"""
import argparse
import collections
import json
import os
import statistics
import subprocess
import sys
import tempfile
import time

JOBS = [('items', 100), ('items', 1000), ('items', 10000)] + 3 * [('first-frame', 1000)] + \
       [('memory', 100), ('memory', 10000)]
PICTURE_JOBS = [('pictures', 500), ('photographs', 100), ('pictures', 100), ('photographs', 20)]
PICTURE_PROGRAMS = ('ours', 'floor', 'qt-quick')
# With the programs that can: a Repeater of all ticks of a day has no end.
MEDIA_JOBS = [('ruler', 10), ('ruler', 100), ('ruler', 86400, 'ours'), ('timeline', 1000),
              ('canvas-rects', 500, 'ours'), ('notifications', 1000000, 'ours')]
FILE_JOBS = [('drop', 10000), ('recent', 5000)]
FILE_PROGRAMS = ('ours', 'qt-widgets')
MEDIA_PROGRAMS = ('ours', 'qt-quick')

# What one more adds to what the process holds: the item, the runs with few and with many.
MEMORY = [('W6', 100, 10000), ('P1', 100, 500), ('P2', 20, 100)]

# What is promised: ours at most `most` times the other's, or below a fixed value.
BARS = [
    ('build to placed', 'W1', 10000, 'qt-widgets', 'W1', 1 / 4),
    ('build to placed', 'W1', 10000, 'floor', 'W1-measured', 2),
    ('new width to placed', 'W2', 10000, 'gtk4', 'W2', 1 / 6),
    ('new width to a frame', 'W2-frame', 10000, 'qt-widgets', 'W2-frame', 1 / 3),
    ('one text changed', 'W4', 10000, 'qt-widgets', 'W4', 1 / 4),
    ('one text changed', 'W4', 10000, 'ms', 2, 1),
    ('one appended', 'W5-append', 10000, 'qt-widgets', 'W5-append', 1 / 4),
    ('one appended', 'W5-append', 10000, 'ms', 2, 1),
    ('the first removed', 'W5-remove', 10000, 'qt-widgets', 'W5-remove', 1 / 4),
    ('the first removed', 'W5-remove', 10000, 'ms', 2, 1),
    ('hover, a move', 'W8', 1000, 'qt-widgets', 'W8', 1),
    ('full repaint', 'W7', 1000, 'floor', 'W7', 1.25),
    ('main to first frame', 'W3', 1000, 'qt-widgets', 'W3', 1),
    ('memory a tag', 'W6', 10000, 'bytes', 1024, 1),
    ('pictures shown', 'P1', 500, 'floor', 'P1', 1.25),
    ('pictures shown', 'P1', 500, 'qt-quick', 'P1', 1),
    ('longest stall', 'P1-stall', 500, 'ms', 8, 1),
    ('photographs shown', 'P2', 100, 'floor', 'P2', 1.25),
    ('photographs shown', 'P2', 100, 'qt-quick', 'P2', 1),
    ('longest stall', 'P2-stall', 100, 'ms', 8, 1),
    ('pan of a day', 'M1', 86400, 'ms', 2, 1),
    ('pan of a day', 'M1', 86400, 'ours', ('M1', 10), 1.25),
    ('pan of ten seconds', 'M1', 10, 'qt-quick', 'M1', 1 / 5),
    ('pan of a hundred', 'M1', 100, 'qt-quick', 'M1', 1 / 5),
    ('pan by the range', 'M1-range', 86400, 'ms', 2, 1),
    ('pan by the range', 'M1-range', 100, 'qt-quick', 'M1-range', 1 / 5),
    ('a segment changed', 'M2', 1000, 'ms', 2, 1),
    ('all segments moved', 'M2-zoom', 1000, 'ms', 2, 1),
    ('a rectangle dragged', 'M3', 500, 'ms', 2, 1),
    ('one across all', 'M3-across', 500, 'ms', 2, 1),
    ('a million posts', 'M4', 1000000, 'ms', 1000, 1),
    ('a drop of files', 'F1', 10000, 'ms', 50, 1),
    ('longest stall', 'F1-longest', 10000, 'qt-widgets', 'F1-longest', 1),
    ('panel painted', 'R1', 5000, 'ms', 30, 1),
    ('with its rows', 'R1-rows', 5000, 'ms', 30, 1),
    ('with its rows', 'R1-rows', 5000, 'qt-widgets', 'R1-rows', 1.25),
    ('a key in the search', 'R2', 5000, 'ms', 8, 1),
    ('its longest', 'R2-longest', 5000, 'ms', 8, 1),
    ('hover of a row', 'R3', 5000, 'qt-widgets', 'R3', 1),
]


def number(value):
    digits = 0 if value >= 100 else 1 if value >= 10 else 2 if value >= 1 else 3
    return f'{value:.{digits}f}'


def answers(name, command, arguments):
    environment = dict(os.environ, BENCH_SPAWN_NS=str(time.time_ns()))
    done = subprocess.run(command + arguments, env=environment, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if done.returncode:
        sys.exit(f'{name} {" ".join(arguments)} failed: {done.stderr.strip()[-300:]}')
    return [json.loads(line) for line in done.stdout.splitlines() if line.startswith('{')]


def run(commands, jobs, folder, rounds, raw):
    found = collections.defaultdict(list)
    for turn in range(rounds):
        for place, (mode, n, *only) in enumerate(jobs):
            first = (turn + place) % len(commands)  # another one first each time
            for name, command in commands[first:] + commands[:first]:
                if only and name not in only:
                    continue
                arguments = [mode, '--n', str(n)] + (['--dir', folder] if folder else [])
                for result in answers(name, command, arguments):
                    result.update(peer=name, round=turn)
                    found[result['item'], result['n'], name].append(result['median'])
                    if raw:
                        raw.write(json.dumps(result) + '\n')
        print(f'round {turn + 1} of {rounds} done', file=sys.stderr, flush=True)
    return found


def run_pictures(commands, rounds, raw):
    commands = [(name, command) for name, command in commands if name in PICTURE_PROGRAMS]
    with tempfile.TemporaryDirectory() as folder:
        print('making the pictures', file=sys.stderr, flush=True)
        answers('floor', dict(commands)['floor'], ['make', '--dir', folder])
        return commands, run(commands, PICTURE_JOBS, folder, rounds, raw)


def add_memory(found, names):
    """What one more adds to the memory, in bytes."""
    for item, least, most in MEMORY:
        for name in names:
            few = found.pop((f'{item}-rss', least, name), None)
            many = found.pop((f'{item}-rss', most, name), None)
            if few and many:
                base = statistics.median(few)
                key = 'W6' if item == 'W6' else f'{item}-bytes'
                found[key, most, name] = [(m - base) * 1024 / (most - least) for m in many]


def print_rows(rows):
    widths = [max(len(row[i]) for row in rows) for i in range(len(rows[0]))]
    for row in rows:
        first, *rest = (cell.ljust(w) if i == 0 else cell.rjust(w)
                        for i, (cell, w) in enumerate(zip(row, widths)))
        print('  '.join([first, *rest]).rstrip())


def print_table(found, names):
    keys = sorted({(item, n) for item, n, _ in found})
    rows = [['item', 'N'] + names]
    for item, n in keys:
        cells = []
        for name in names:
            values = found.get((item, n, name))
            cells.append(f'{number(statistics.median(values))} ({number(min(values))})'
                         if values else '-')
        rows.append([item, str(n) if n else ''] + cells)
    print('\nMedians of the runs (least of them), ms; W6 and -bytes: bytes a tag or a picture\n')
    print_rows(rows)


def print_bars(found):
    rows = [['bar', 'N', 'ours', 'against', 'theirs', 'ratio', 'at most', '']]
    for what, item, n, peer, against, most in BARS:
        ours = found.get((item, n, 'ours'))
        fixed = peer in ('ms', 'bytes')
        other, at = against if isinstance(against, tuple) else (against, n)
        theirs = [against] if fixed else found.get((other, at, peer))
        if not ours or not theirs:
            continue
        mine, limit = statistics.median(ours), statistics.median(theirs)
        named = f'{peer} {other}' + (f' at {at}' if at != n else '')
        rows.append([what, str(n), number(mine), peer if fixed else named, number(limit),
                     f'{mine / limit:.2f}', f'{most:.2f}',
                     'met' if mine <= most * limit else 'MISSED'])
    print('\nOurs against the bars\n')
    print_rows(rows)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument('--pictures', action='store_true', help='walls of pictures, not tags')
    parser.add_argument('--media', action='store_true', help='rulers and timelines, not tags')
    parser.add_argument('--files', action='store_true', help='files dropped, and listed, not tags')
    parser.add_argument('--rounds', type=int, default=5)
    parser.add_argument('--raw', type=argparse.FileType('a'), help='keeps every result as JSON')
    parser.add_argument('programs', nargs='+', metavar='NAME=COMMAND')
    arguments = parser.parse_args()
    commands = [(name, command.split())
                for name, command in (p.split('=', 1) for p in arguments.programs)]
    if arguments.pictures:
        commands, found = run_pictures(commands, arguments.rounds, arguments.raw)
    elif arguments.media:
        commands = [(name, command) for name, command in commands if name in MEDIA_PROGRAMS]
        found = run(commands, MEDIA_JOBS, None, arguments.rounds, arguments.raw)
    elif arguments.files:
        commands = [(name, command) for name, command in commands if name in FILE_PROGRAMS]
        with tempfile.TemporaryDirectory() as folder:
            os.environ['XDG_CONFIG_HOME'] = folder  # the panel keeps there that it is open
            found = run(commands, FILE_JOBS, None, arguments.rounds, arguments.raw)
    else:
        found = run(commands, JOBS, None, arguments.rounds, arguments.raw)
    names = [name for name, _ in commands]
    add_memory(found, names)
    print_table(found, names)
    print_bars(found)


if __name__ == '__main__':
    main()
