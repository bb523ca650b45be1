#!/usr/bin/env python3
"""Fails when a message in a help page is not one of the program's, or the page on saving names other endings than the program writes.

usage: check_help.py ROOT

The messages of a page are the first cells of the table under its heading "Messages", the endings those of the table with the header
"Ending".
"""
import html
import pathlib
import re
import sys

SOURCE_FOLDERS = ('platform', 'kernel', 'operations', 'dialogs', 'host', 'app', 'python')
SUFFIXES = {'.h', '.cpp', '.ipp'}


def messages(page):
    found = []
    for table in re.findall(r'(?s)<h2>Messages</h2>.*?</table>', page):
        for cell in re.findall(r'(?s)<tr>\s*<td>(.*?)</td>', table):
            found.append(' '.join(html.unescape(re.sub(r'<[^>]+>', '', cell)).split()))
    return found


def endings(page):
    """As help/saving.html lists them."""
    table = re.search(r'(?s)<tr><th[^>]*>Ending</th>.*?</table>', page)
    cells = re.findall(r'(?s)<tr>\s*<td>(.*?)</td>', table.group()) if table else []
    return [ending for cell in cells for ending in re.findall(r'\.(\w+)', cell)]


def written_endings(source):
    """As app/export/WritableFormats.cpp has them in its table."""
    return [ending for entry in re.findall(r'\{\{"[^"]*", \{([^}]*)\}\}', source) for ending in re.findall(r'"(\w+)"', entry)]


def ending_problems(page, source):
    said, written = endings(page), written_endings(source)
    if not written:
        yield 'the table of writable formats has no endings'
    for ending in sorted(set(written) - set(said)):
        yield f'saving.html does not say what .{ending} takes'
    for ending in sorted(set(said) - set(written)):
        yield f'saving.html: the program does not write .{ending}'


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
    formats = (root / 'app/export/WritableFormats.cpp').read_text(encoding='utf-8')
    found = list(problems(pages, texts)) + list(ending_problems(pages['saving.html'], formats))
    print('\n'.join(found) if found else f'{count} messages and {len(written_endings(formats))} endings, all of them the program\'s')
    sys.exit(1 if found else 0)


if __name__ == '__main__':
    main()
