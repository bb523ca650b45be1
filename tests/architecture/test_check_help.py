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

SAVING = """<table><tr><th align="left">Ending</th><th>What it takes</th></tr>
<tr><td>.abc</td><td>Everything, as .other</td></tr>
<tr><td>.de, .fg</td><td>A table</td></tr></table>
<p>As .png</p>"""

FORMATS = """{{"First", {"abc"}}, writerOf<One>},
{{"Second", {"de", "fg"}}, writerOf<Two>},"""


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

    def test_endings_are_the_first_cells_of_their_table(self):
        self.assertEqual(check_help.endings(SAVING), ['abc', 'de', 'fg'])
        self.assertEqual(check_help.written_endings(FORMATS), ['abc', 'de', 'fg'])

    def test_every_ending_that_is_written_is_said_and_no_other(self):
        self.assertEqual(list(check_help.ending_problems(SAVING, FORMATS)), [])
        self.assertEqual(len(list(check_help.ending_problems(SAVING, FORMATS.replace('"fg"', '"hi"')))), 2)
        self.assertEqual(len(list(check_help.ending_problems(SAVING.replace('Ending', 'Name'), FORMATS))), 3)
        self.assertNotEqual(list(check_help.ending_problems(SAVING, '')), [])


if __name__ == '__main__':
    unittest.main()
