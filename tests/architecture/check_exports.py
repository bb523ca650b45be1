#!/usr/bin/env python3
"""Fails on a class that the dialog library exports and that no test uses as an application would.

usage: check_exports.py ROOT

Those tests stand in tests/dialogs/library and link the library alone. Each class or template that a header of dialogs marks as
exported has to be named in one of them, beyond its #include.
"""
import pathlib
import re
import sys

API = 'VDSDKDIALOGS_DATA_QT_API'
TESTS = 'tests/dialogs/library'


def code_of(text):
    """The text without comments and directives."""
    return re.sub(r'//.*|/\*.*?\*/|(?m:^\s*#.*$)', '', text, flags=re.MULTILINE)


def exported_classes(text):
    return set(re.findall(rf'\b(?:class|struct)\s+{API}\s+(\w+)', text))


def problems(files):
    """All classes that no test names; files is a mapping from path to text."""
    tests = ' '.join(code_of(text) for path, text in files.items() if path.startswith(TESTS + '/'))
    named = set(re.findall(r'\w+', tests))
    return [f'{path}: exports {name}, which no test in {TESTS} uses' for path, text in sorted(files.items())
            if path.startswith('dialogs/') for name in sorted(exported_classes(text) - named)]


def read(root):
    return {path.relative_to(root).as_posix(): path.read_text(encoding='utf-8')
            for folder in ('dialogs', TESTS) for path in sorted((root / folder).rglob('*')) if path.suffix in ('.h', '.cpp')}


def main():
    files = read(pathlib.Path(sys.argv[1]))
    if not any(exported_classes(text) for text in files.values()):
        sys.exit('no exported class: is this the root of the project?')
    found = problems(files)
    print('\n'.join(found) if found else f'{len(files)} files, nothing found')
    sys.exit(1 if found else 0)


if __name__ == '__main__':
    main()
