"""The examples of docs/python.md do what stands there, and there is one for each operation."""
import doctest
import os
import pathlib
import re
import tempfile
import unittest

import veldraw

DOCUMENT = pathlib.Path(os.environ['VELDRAW_SOURCES']) / 'docs' / 'python.md'


class Documentation(unittest.TestCase):
    def setUp(self):
        self.text = DOCUMENT.read_text(encoding='utf-8')

    def test_examples_do_what_they_say(self):
        examples = doctest.DocTestParser().get_doctest(re.sub(r'(?m)^```.*$', '', self.text), {}, 'python.md', str(DOCUMENT), 0)
        self.assertGreater(len(examples.examples), 80)
        told = []
        runner = doctest.DocTestRunner(verbose=False)
        with tempfile.TemporaryDirectory() as folder:
            here = os.getcwd()
            os.chdir(folder)
            try:
                runner.run(examples, out=told.append)
            finally:
                os.chdir(here)
        self.assertFalse(told, ''.join(told))

    def test_each_operation_has_an_example(self):
        examples = ''.join(re.findall(r'(?m)^(?:>>>|\.\.\.) .*$', self.text))
        missing = [name for name, _ in veldraw._operations() if f'veldraw.{name}(' not in examples]
        self.assertEqual([], missing)


if __name__ == '__main__':
    unittest.main()
