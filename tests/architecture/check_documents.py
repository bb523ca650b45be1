#!/usr/bin/env python3
"""Fails when a document names, in backquotes, a path, class, function or other word of the code that does not exist.

usage: check_documents.py ROOT

What has a slash or the suffix of a source is a path of the tree, or its end, with suffix or without: `base/File`. What is one word, or words
joined by :: or followed by (), has to stand in some file that is no document. Commands, values and patterns are not looked at.
"""
import pathlib
import re
import sys

FOLDERS = ('platform', 'kernel', 'operations', 'dialogs', 'host', 'app', 'python', 'tests', 'bench', 'tools', 'cmake', 'help', '.ci')
CODE = {'.h', '.cpp', '.ipp', '.c', '.ui', '.py', '.pyi', '.sh', '.cmake', '.txt', '.json', ''}
# What belongs to others, or comes into being only when it is used.
OF_OTHERS = {'llvmpipe', 'softpipe', 'out/'}


def documents(root):
    return {path.relative_to(root).as_posix(): path.read_text(encoding='utf-8')
            for path in sorted([*root.glob('*.md'), *root.glob('docs/*.md')])}


def names(text):
    """What stands in backquotes outside of blocks of code."""
    return re.findall(r'`([^`\n]+)`', re.sub(r'(?ms)^```.*?^```', '', text))


def is_path(name):
    if name in OF_OTHERS or name.startswith(('/', './')) or re.search(r'/\d+$', name):  # /0: a benchmark's argument
        return False
    return re.fullmatch(r'[\w.-]+(/[\w.-]*)+|\w[\w-]*\.(h|cpp|ipp|py|txt|md)', name) is not None


def words_of(name):
    """The words of a name of the code; none where it is something else, such as a command."""
    bare = re.sub(r'\(\)$', '', name)
    if not re.fullmatch(r'~?[A-Za-z_]\w*(::~?[A-Za-z_]\w*)*', bare) or bare in OF_OTHERS:
        return []
    return bare.split('::')


def is_known(path, paths):
    return any(('/' + known).endswith('/' + path) or ('/' + known.rpartition('.')[0]).endswith('/' + path) for known in paths)


def problems(texts, paths, words):
    """All that is wrong with texts, a mapping from document to text, in a tree with these paths and words."""
    found = []
    for document, text in sorted(texts.items()):
        for name in names(text):
            if is_path(name):
                if not is_known(name.rstrip('/'), paths):
                    found.append(f'{document}: there is no {name}')
            else:
                found += [f'{document}: {name} is in no source' for word in words_of(name) if word not in words]
    return found


def tree(root):
    """The paths of the tree, folders included, and the words that stand in its files and their names."""
    paths, words = set(), set()
    for folder in FOLDERS:
        paths.add(folder)
        for path in (root / folder).rglob('*'):
            paths.add(path.relative_to(root).as_posix())
            words.add(path.stem)
            if path.is_file() and path.suffix in CODE:
                words.update(re.findall(r'\w+', path.read_text(encoding='utf-8', errors='ignore')))
    for path in root.iterdir():
        if path.is_file():
            paths.add(path.name)
            words.update(re.findall(r'\w+', path.read_text(encoding='utf-8', errors='ignore')) if path.suffix in CODE else [])
    return paths | {'docs'} | {path.relative_to(root).as_posix() for path in (root / 'docs').iterdir()}, words


def main():
    root = pathlib.Path(sys.argv[1])
    texts = documents(root)
    count = sum(len(names(text)) for text in texts.values())
    if not count:
        sys.exit('the documents name nothing: is this the root of the project?')
    found = problems(texts, *tree(root))
    print('\n'.join(found) if found else f'{len(texts)} documents with {count} names, all of them exist')
    sys.exit(1 if found else 0)


if __name__ == '__main__':
    main()
