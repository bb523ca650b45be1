#!/usr/bin/env python3
"""Fails when the dialog library exports something else than the kept list says, so that no change loses a symbol unnoticed.

usage: check_symbols.py LIBRARY LIST [--write]

The list has the demangled names of functions, data and tables of virtual functions of our classes. Left out are symbols of std,
Boost and Qt that come along, what follows from a table of virtual functions, function templates, and what stands in a function or
an Impl: which of these there are is up to the compiler. --write makes the list anew.
"""
import argparse
import pathlib
import re
import subprocess
import sys

OURS = re.compile(r'(vtable for )?veldraw::')
LEFT_OUT = re.compile(r'::Impl\b|\)( const)?::')
SHORT_NAMES = {
    'std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >': 'std::string',
    'std::set<int, std::less<int>, std::allocator<int> >': 'std::set<int>',
    '[abi:cxx11]': '',
}


def exported(nm_output):
    """Names of ours in what nm tells of a library, each once."""
    names = set()
    for line in nm_output.splitlines():
        name = re.sub(r'^[0-9a-f]+ [A-Za-z] ', '', line)
        if OURS.match(name) and not LEFT_OUT.search(name):
            for long_name, short_name in SHORT_NAMES.items():
                name = name.replace(long_name, short_name)
            names.add(name)
    return sorted(names)


def problems(found, kept):
    """What is exported but not kept, and the other way round."""
    lost = [f'lost: {name}' for name in sorted(set(kept) - set(found))]
    new = [f'not in the list: {name}' for name in sorted(set(found) - set(kept))]
    return lost + new


def read(library):
    command = ['nm', '--dynamic', '--defined-only', '--demangle', library]
    return exported(subprocess.run(command, check=True, capture_output=True, text=True).stdout)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument('library')
    parser.add_argument('list', type=pathlib.Path)
    parser.add_argument('--write', action='store_true')
    arguments = parser.parse_args()
    found = read(arguments.library)
    if not found:
        sys.exit(f'{arguments.library} exports nothing of ours')
    if arguments.write:
        arguments.list.write_text('\n'.join(found) + '\n', encoding='utf-8')
    wrong = problems(found, arguments.list.read_text(encoding='utf-8').splitlines())
    if wrong:
        print('\n'.join(wrong))
        sys.exit('If this is meant: tools/exported-symbols --write')
    print(f'{len(found)} symbols, as the list says')


if __name__ == '__main__':
    main()
