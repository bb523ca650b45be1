#!/usr/bin/env python3
"""Proves that the check of recipes finds what it is there for."""
import unittest

import check_recipes

TEXT = """# Contributing

See `docs/none.md`.

## Adding a thing

1. Copy `app/Thing.h` and run `tools/build dev`.
2. Mention it in `LIST.md`, with a `Thing`.

## Rules

`app/Nowhere.h`
"""


class Recipes(unittest.TestCase):
    def test_name_paths_that_exist(self):
        self.assertEqual(check_recipes.problems(TEXT, lambda path: True), [])
        self.assertEqual(check_recipes.problems(TEXT, lambda path: path != 'app/Thing.h'),
                         ['Adding a thing: there is no app/Thing.h'])

    def test_are_the_sections_that_add_something(self):
        asked = []
        check_recipes.problems(TEXT, lambda path: asked.append(path) or True)
        self.assertEqual(asked, ['app/Thing.h', 'LIST.md'])


if __name__ == '__main__':
    unittest.main()
