#!/usr/bin/env python3
"""Writes the type stubs of the module veldraw, which has to be found: PYTHONPATH=build/dev/python.

usage: make_stubs.py [FILE]

FILE is veldraw.pyi beside this program unless another one is named. What is no operation stands in veldraw.pyi.in.
"""
import inspect
import pathlib
import re
import sys

import veldraw

FOLDER = pathlib.Path(__file__).parent

TYPES = {'zones': '_Zones', 'zone': '_Zone', 'variables': '_Variables', 'variable': '_Variable', 'numbers': '_Numbers', 'whole': 'int',
         'real': 'float', 'place': 'Sequence[float]', 'direction': "Union[Literal['X', 'Y', 'Z'], Sequence[float]]", 'flag': 'bool', 'text': 'str'}


def type_of(parameter):
    if parameter['kind'] == 'choice':
        return 'Literal[' + ', '.join(map(repr, parameter['words'])) + ']'
    return TYPES[parameter['kind']]


def operators():
    """What Values has of the operators, beyond those that stand in veldraw.pyi.in."""
    written = set(re.findall(r'def (__\w+__)', (FOLDER / 'veldraw.pyi.in').read_text(encoding='utf-8')))
    names = [name for name in vars(veldraw.Values) if name.startswith('__') and inspect.isroutine(vars(veldraw.Values)[name])]
    left = sorted(set(names) - written - {'__init__', '__repr__', '__new__'})
    for name in left:
        if name in ('__neg__', '__pos__', '__abs__', '__invert__'):
            yield f'    def {name}(self) -> Any: ...\n'
        else:
            comment = '  # type: ignore[override]' if name in ('__eq__', '__ne__') else ''
            yield f'    def {name}(self, other: Any) -> Any: ...{comment}\n'


def function(name, parameters):
    signature = inspect.signature(getattr(veldraw, name))
    types = {parameter['name']: type_of(parameter) for parameter in parameters}
    words = []
    for each in signature.parameters.values():
        word = f'{each.name}: {types[each.name]}'
        if each.default is None:
            word = f'{each.name}: Optional[{types[each.name]}] = None'
        elif each.default is not each.empty:
            word += f' = {each.default!r}'
        words.append(word)
    sentence = inspect.getdoc(getattr(veldraw, name)).splitlines()[0]
    head = f'def {name}(' + ', '.join(['*', *words] if words else []) + ') -> None:'
    return f'{head}\n    """{sentence}"""\n'


def stubs():
    text = (FOLDER / 'veldraw.pyi.in').read_text(encoding='utf-8').replace('@OPERATORS@\n', ''.join(operators()) + '\n')
    return text + '\n' + '\n'.join(function(name, parameters) for name, parameters in veldraw._operations())


if __name__ == '__main__':
    path = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else FOLDER / 'veldraw.pyi'
    path.write_text(stubs(), encoding='utf-8')
