#!/usr/bin/env python3
"""Proves that the check of documents finds what it is there for."""
import unittest

import check_documents

PATHS = {'kernel', 'kernel/base', 'kernel/base/Parallel.h', 'tools/bench', 'LIST.md'}
WORDS = {'Parallel', 'forEach', 'kernel_test'}


def problems(text):
    return check_documents.problems({'docs/page.md': text}, PATHS, WORDS)


class Documents(unittest.TestCase):
    def test_name_paths_that_exist(self):
        self.assertEqual(problems('`kernel/`, `kernel/base/Parallel.h`, `base/Parallel`, `Parallel.h`, `tools/bench`, `LIST.md`'), [])
        for name in ('kernel/house/', 'kernel/base/Serial.h', 'base/Serial', 'Serial.h', 'se/Parallel.h', 'tools/chair', 'NONE.md'):
            self.assertEqual(problems(f'See `{name}`.'), [f'docs/page.md: there is no {name}'])

    def test_name_words_of_the_code(self):
        self.assertEqual(problems('`Parallel`, `forEach()`, `Parallel::forEach` run in `kernel_test`'), [])
        for name in ('Serial', 'forAll()', 'Parallel::forAll', 'kernel_tests'):
            self.assertEqual(problems(f'See `{name}`.'), [f'docs/page.md: {name} is in no source'])

    def test_may_name_other_things(self):
        self.assertEqual(problems('`./run FILE`, `.vts`, `--help`, `/tmp`, `softpipe`, `app/formats/*`, `run/10`'), [])

    def test_may_show_blocks_of_code(self):
        self.assertEqual(problems('```\nsee `Serial`\n```\n'), [])
        self.assertEqual(len(problems('```\ncode\n```\n`Serial`')), 1)


if __name__ == '__main__':
    unittest.main()
