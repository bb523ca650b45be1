#!/usr/bin/env python3
"""Proves that the check of the help pages finds what it is there for."""
import unittest

import check_help

PAGE = """<h2>Messages</h2>
<table><tr><th>Message</th></tr>
<tr><td>No zones are
selected</td><td>Select some.</td></tr>
<tr><td>Axial Rotation &amp; more failed.</td><td>Look.</td></tr></table>
<table><tr><td>no message</td></tr></table>"""


class Help(unittest.TestCase):
    def found(self, *texts):
        return list(check_help.problems({'page.html': PAGE}, set(texts)))

    def test_messages_are_the_first_cells_of_their_table(self):
        self.assertEqual(check_help.messages(PAGE), ['No zones are selected', 'Axial Rotation & more failed.'])

    def test_literals_are_read_as_the_compiler_reads_them(self):
        self.assertEqual(check_help.literals('f("No zones "\n   "are selected", "a \\"b\\"");'), ['No zones are selected', 'a "b"'])

    def test_every_message_is_one_of_the_programs(self):
        self.assertEqual(self.found('No zones are selected', 'Axial Rotation & more failed.'), [])
        self.assertEqual(len(self.found('No zones are selected')), 1)
        self.assertEqual(len(self.found('No zones are selected.', 'Axial Rotation & more failed')), 2)

    def test_a_title_may_stand_in_front(self):
        self.assertEqual(self.found('No zones are selected', 'Axial Rotation', ' & more failed.'), [])


if __name__ == '__main__':
    unittest.main()
