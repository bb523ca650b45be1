#!/usr/bin/env python3
"""Fails when a message in a help page is not one of the program's.

usage: check_help.py ROOT

The messages of a page are the first cells of the table under its heading "Messages".
"""
import html
import pathlib
import re
import sys

SOURCE_FOLDERS = ('platform', 'kernel', 'dialogs', 'host', 'app')
SUFFIXES = {'.h', '.cpp', '.ipp'}


def messages(page):
    found = []
    for table in re.findall(r'(?s)<h2>Messages</h2>.*?</table>', page):
        for cell in re.findall(r'(?s)<tr>\s*<td>(.*?)</td>', table):
            found.append(' '.join(html.unescape(re.sub(r'<[^>]+>', '', cell)).split()))
    return found


def literals(source):
    """Texts of a source, adjacent literals as one."""
    source = re.sub(r'"\s*\n\s*"', '', source)
    return [literal.replace('\\"', '"') for literal in re.findall(r'"((?:[^"\\\n]|\\.)*)"', source)]


def is_said(message, texts):
    """Whether a message is one literal, or one of them and another one behind it: the program puts a title in front of some."""
    return message in texts or any(message[:cut] in texts and message[cut:] in texts for cut in range(1, len(message)))


def problems(pages, texts):
    """@param pages mapping from name to text; @param texts set of all literals of the program"""
    for name, page in sorted(pages.items()):
        for message in messages(page):
            if not is_said(message, texts):
                yield f'{name}: the program never says "{message}"'


def main():
    root = pathlib.Path(sys.argv[1])
    pages = {path.name: path.read_text(encoding='utf-8') for path in (root / 'help').glob('*.html')}
    texts = set()
    for folder in SOURCE_FOLDERS:
        for path in (root / folder).rglob('*'):
            if path.suffix in SUFFIXES:
                texts.update(literals(path.read_text(encoding='utf-8')))
    count = sum(len(messages(page)) for page in pages.values())
    if count == 0:
        sys.exit('no help page has a table of messages')
    found = list(problems(pages, texts))
    print('\n'.join(found) if found else f'{count} messages, all of them the program\'s')
    sys.exit(1 if found else 0)


if __name__ == '__main__':
    main()
