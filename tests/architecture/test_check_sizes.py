#!/usr/bin/env python3
"""Proves that the check of sizes finds what it is there for."""
import unittest

import check_sizes


def function(name, lines):
    """One that has so many lines from its head to its closing brace."""
    return f'/// Says what it does.\nint {name}(int a,\n' + ' ' * 8 + 'int b)\n{\n' + '    f(a, b);\n' * (lines - 4) + '}\n'


class Sizes(unittest.TestCase):
    def problems(self, text, path='kernel/base/File.cpp'):
        return check_sizes.problems({path: text})

    def test_of_functions_are_limited(self):
        self.assertEqual(self.problems(function('short', check_sizes.LINES_OF_A_FUNCTION)), [])
        self.assertEqual(self.problems('\n\n' + function('tall', check_sizes.LINES_OF_A_FUNCTION + 1)),
                         ['kernel/base/File.cpp:4: tall has 46 lines'])

    def test_of_members_constructors_and_operators_are_limited(self):
        body = '{\n' + '    f();\n' * 45 + '}\n'
        for head in ('Thing::Thing(int a)\n    : m_a(a)\n', 'bool Thing::f(int a) const\n', 'bool operator==(int a)\n', 'template <typename T>\nvoid g(T a)\n',
                     'struct Answer f()\n'):
            self.assertEqual(len(self.problems(head + body)), 1, head)
        inside = 'class Thing\n{\npublic:\n' + ''.join('    ' + line + '\n' for line in ('void f()\n' + body).splitlines()) + '};\n'
        self.assertEqual(len(self.problems(inside)), 1)

    def test_of_classes_and_enumerations_are_free(self):
        for head in ('class Thing', 'struct Thing : public Base<int(int)>', 'template <typename T>\nclass Thing', 'enum class Thing'):
            self.assertEqual(self.problems(head + '\n{\n' + '    int m_a;\n' * 60 + '};\n'), [], head)

    def test_of_files_are_limited(self):
        self.assertEqual(self.problems('\n' * check_sizes.LINES_OF_A_FILE), [])
        self.assertEqual(self.problems('\n' * (check_sizes.LINES_OF_A_FILE + 1)), ['kernel/base/File.cpp: has 401 lines'])


if __name__ == '__main__':
    unittest.main()
