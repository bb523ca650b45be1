#!/usr/bin/env python3
"""Proves that the check of exports finds what it is there for."""
import unittest

import check_exports

HEADER = 'dialogs/models/Rows.h'
TEST = 'tests/dialogs/library/ExportedRowsTest.cpp'


def problems(header, test):
    return check_exports.problems({HEADER: header, TEST: test})


class Exports(unittest.TestCase):
    def found(self, header, test):
        found = problems(header, test)
        self.assertEqual(len(found), 1, found)
        self.assertTrue(found[0].startswith(HEADER + ': exports Rows,'), found[0])

    def test_are_used_in_a_test_of_the_library(self):
        header = 'class VDSDKDIALOGS_DATA_QT_API Rows\n{\n};\n'
        self.assertEqual(problems(header, 'Rows const rows;'), [])
        self.found(header, 'RowsOfOthers const rows;')

    def test_are_not_used_by_an_include_or_a_comment(self):
        header = 'class VDSDKDIALOGS_DATA_QT_API Rows : public Base\n{\n};\n'
        self.found(header, '#include "dialogs/models/Rows.h"\n// Rows\n/* Rows */\n')

    def test_are_templates_too(self):
        header = 'extern template class VDSDKDIALOGS_DATA_QT_API Rows<int>;\n'
        self.found(header, '')
        self.assertEqual(problems(header, 'Rows<int> const rows;'), [])
        self.found('#define VELDRAW_DECLARE(T) extern template class VDSDKDIALOGS_DATA_QT_API Rows<T>;\n', '')

    def test_are_only_what_is_marked(self):
        self.assertEqual(problems('class Rows;\nextern template class Rows<double>;\n', ''), [])


if __name__ == '__main__':
    unittest.main()
