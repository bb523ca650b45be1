"""The type stubs are those of the module as it is."""
import ast
import inspect
import os
import pathlib
import sys
import unittest

import veldraw

FOLDER = pathlib.Path(os.environ['VELDRAW_SOURCES']) / 'python'
sys.path.insert(0, str(FOLDER))
import make_stubs  # noqa: E402


class Stubs(unittest.TestCase):
    def setUp(self):
        self.text = (FOLDER / 'veldraw.pyi').read_text(encoding='utf-8')
        self.tree = ast.parse(self.text)

    def test_are_what_the_registry_says(self):
        self.assertEqual(make_stubs.stubs(), self.text, 'run python/make_stubs.py')

    def test_name_all_that_is_in_the_module(self):
        functions = {node.name for node in self.tree.body if isinstance(node, ast.FunctionDef)}
        classes = {node.name: {each.name for each in node.body if isinstance(each, ast.FunctionDef)}
                   for node in self.tree.body if isinstance(node, ast.ClassDef)}
        public = {name: thing for name, thing in vars(veldraw).items() if not name.startswith('_')}
        self.assertEqual({name for name, thing in public.items() if inspect.isclass(thing)}, set(classes))
        self.assertEqual({name for name, thing in public.items() if not inspect.isclass(thing)}, functions)
        for name, members in classes.items():
            if name != 'Error':
                own = {member for member in vars(getattr(veldraw, name)) if not member.startswith('_')}
                self.assertEqual(own, {member for member in members if not member.startswith('_')}, name)

    def test_stand_beside_the_module(self):
        beside = pathlib.Path(veldraw.__file__).with_name('veldraw.pyi')
        self.assertEqual(self.text, beside.read_text(encoding='utf-8'))


if __name__ == '__main__':
    unittest.main()
