#!/usr/bin/env python3
"""Fails on files and functions that have grown too long to be read at one go.

usage: check_sizes.py ROOT

A function counts from the first line of its head to its closing brace.
"""
import pathlib
import re
import sys

SOURCE_FOLDERS = ('platform', 'kernel', 'operations', 'dialogs', 'host', 'app', 'python')
SUFFIXES = {'.h', '.cpp', '.ipp'}

LINES_OF_A_FILE = 400
LINES_OF_A_FUNCTION = 45

# What a brace of its own line can belong to besides a function.
NO_FUNCTION = re.compile(r'\s*(?:template\b.*>\s*)?(?:class|struct|enum|union|namespace|extern\s+"C")\b(?!.*\)\s*(?:const|noexcept|override|final)?\s*$)')


def heads_first_line(lines, brace):
    """The line on which the head before this brace starts."""
    first = brace
    while first > 0 and not re.search(r'(^\s*$)|[;}]$|^\s*(#|//|public:|protected:|private:)|^\s*\{$', lines[first - 1]):
        first -= 1
    return first


def name_of(head):
    """The name of the function that has this head; None where the head is no function's."""
    if NO_FUNCTION.match(head):
        return None
    names = re.findall(r'(operator\(\)|operator[^\w\s(]+|[~\w]+)\s*\(', head)
    return next((name for name in names if not name.isupper()), None)  # macros come first


def functions(text):
    """(name, number of its first line, lines) of each function with a body of several lines."""
    lines = text.split('\n')
    for brace, line in enumerate(lines):
        match = re.fullmatch(r'( *)\{', line)
        if not match:
            continue
        first = heads_first_line(lines, brace)
        name = name_of(' '.join(lines[first:brace]))
        end = next((n for n in range(brace + 1, len(lines)) if re.match(match.group(1) + r'\}', lines[n])), None)
        if name and end:
            yield name, first + 1, end - first + 1


def too_long_functions(path, text):
    for name, number, lines in functions(text):
        if lines > LINES_OF_A_FUNCTION:
            yield f'{path}:{number}: {name} has {lines} lines'


def problems(files):
    """All that is wrong with files, a mapping from path to text."""
    found = []
    for path, text in sorted(files.items()):
        lines = text.count('\n')
        if lines > LINES_OF_A_FILE:
            found.append(f'{path}: has {lines} lines')
        found += too_long_functions(path, text)
    return found


def read(root):
    files = {}
    for folder in SOURCE_FOLDERS:
        for path in sorted((root / folder).rglob('*')):
            if path.suffix in SUFFIXES:
                files[path.relative_to(root).as_posix()] = path.read_text(encoding='utf-8')
    return files


def main():
    files = read(pathlib.Path(sys.argv[1]))
    count = sum(1 for text in files.values() for _ in functions(text))
    if not count:
        sys.exit('no functions: is this the root of the project?')
    found = problems(files)
    print('\n'.join(found) if found else f'{len(files)} files and {count} functions, nothing found')
    sys.exit(1 if found else 0)


if __name__ == '__main__':
    main()
