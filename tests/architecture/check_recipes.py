#!/usr/bin/env python3
"""Fails when a recipe of CONTRIBUTING.md ("## Adding ...") names a path that does not exist.

usage: check_recipes.py ROOT
"""
import pathlib
import re
import sys


def recipes(text):
    """(title, body) of each."""
    return re.findall(r'(?ms)^## (Adding [^\n]*)\n(.*?)(?=^## |\Z)', text)


def paths(body):
    """What stands in backquotes and looks like a path of the tree: it has a slash, or is a file of the root."""
    return [name for name in re.findall(r'`([^`\s]+)`', body) if '/' in name or name.endswith('.md')]


def problems(text, exists):
    found = []
    for title, body in recipes(text):
        found += [f'{title}: there is no {path}' for path in paths(body) if not exists(path)]
    return found


def main():
    root = pathlib.Path(sys.argv[1])
    text = (root / 'CONTRIBUTING.md').read_text(encoding='utf-8')
    if not any(paths(body) for _, body in recipes(text)):
        sys.exit('CONTRIBUTING.md has no recipe that names a path')
    found = problems(text, lambda path: (root / path).exists())
    print('\n'.join(found) if found else f'{len(recipes(text))} recipes, all of their paths exist')
    sys.exit(1 if found else 0)


if __name__ == '__main__':
    main()
