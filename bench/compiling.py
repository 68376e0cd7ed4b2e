#!/usr/bin/env python3
"""What it costs to include the whole library, beside what else a program would include.

Compilers read a source of one #include each, in turn; the table shows the median and the least of
the wall time in seconds. Called by bench/run --compiling: compiling.py [--rounds N].
"""
import argparse
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

OURS = '<zqswiftui/zqswiftui.hpp>'
STANDARD = '<string>\n#include <vector>\n#include <optional>\n#include <functional>\n#include <memory>'
BAR = 1.0  # second


def flags(package):
    found = subprocess.run(['pkg-config', '--cflags', package], capture_output=True, text=True)
    return found.stdout.split() if found.returncode == 0 else None


def seconds(compiler, include, options, folder):
    source = os.path.join(folder, 'one.cpp')
    with open(source, 'w') as file:
        file.write(f'#include {include}\n')
    begun = time.monotonic()
    subprocess.run([compiler, '-std=c++20', '-fPIC', '-fsyntax-only', *options, source], check=True)
    return time.monotonic() - begun


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument('--rounds', type=int, default=15)
    rounds = parser.parse_args().rounds
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    rows = [('ours', OURS, ['-I', root]), ('the standard headers in it', STANDARD, [])]
    for name, include, package in (('QtWidgets', '<QtWidgets>', 'Qt6Widgets'),
                                   ('gtk.h', '<gtk/gtk.h>', 'gtk4')):
        options = flags(package)
        if options is not None:
            rows.append((name, include, options))
    missed = False
    for compiler in filter(shutil.which, ('g++-12', 'clang++-16')):
        times = {name: [] for name, _, _ in rows}
        with tempfile.TemporaryDirectory() as folder:
            for _ in range(rounds):
                for name, include, options in rows:
                    times[name].append(seconds(compiler, include, options, folder))
        print(f'\n{compiler:<28}  median   least')
        for name, taken in times.items():
            print(f'{name:<28}  {statistics.median(taken):6.2f}  {min(taken):6.2f}')
        middle = statistics.median(times['ours'])
        if compiler == 'g++-12':
            missed = middle >= BAR
            print('bar: ours below', f'{BAR:.0f} s', 'MISSED' if missed else 'met')
    return 1 if missed else 0


if __name__ == '__main__':
    sys.exit(main())
