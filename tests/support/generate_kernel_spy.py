#!/usr/bin/env python3
"""Writes the functions that stand in front of the kernel's: one for each VelUtil declaration of platform/vdsdkbase.

usage: generate_kernel_spy.py OUTPUT HEADER...
"""
import re
import sys

ARRAYS_OF_THREE = {'xyz', 'origin', 'axis'}
# What a function answers when it fails, where that is not the zero of its type.
FAILURES = {'SetValueReturnCode_e': 'SetValueReturnCode_Refused', 'GetValueReturnCode_e': 'GetValueReturnCode_Unknown',
            'VelUtilDataValueGetLocation': '-1', 'VelUtilZoneGetType': '-1'}
OPAQUE = {'Set_s', 'ArgList_s', 'StringList_s'}


def prototypes(text):
    text = re.sub(r'/\*.*?\*/', ' ', text, flags=re.S)
    text = re.sub(r'//[^\n]*', ' ', text)
    text = re.sub(r'^\s*#[^\n]*', ' ', text, flags=re.M)
    for match in re.finditer(r'([\w\s*]+?)\b(VelUtil\w+)\s*\(([^()]*)\)\s*;', text):
        result, name, parameters = (re.sub(r'\s+', ' ', part).strip() for part in match.groups())
        result = result.replace('VELDRAW_PLATFORM_API', '').strip()
        parameters = [] if parameters in ('', 'void') else [split(p.strip()) for p in parameters.split(',')]
        yield result, name, parameters


def split(parameter):
    kind, name = re.match(r'(.*?[\s*])(\w+)(?:\[\d*\])?$', parameter).groups()
    return kind.strip(), name


def describe(kind, name):
    if '*' not in kind:
        return f'KernelSpy::describe({name})' if not kind.endswith('_e') else f'KernelSpy::describe(static_cast<int>({name}))'
    base = kind.replace('*', '').replace('const', '').strip()
    if kind.count('*') == 1 and (base in OPAQUE - {'StringList_s'} or (base == 'char' and 'const' in kind)):
        return f'KernelSpy::describe({name})'
    if kind.count('*') == 1 and 'const' in kind and base in ('int', 'double'):
        return f'KernelSpy::describe({name}, {3 if name in ARRAYS_OF_THREE else 1})'
    return 'std::string("out")'


def clear_outputs(parameters):
    """Failed queries leave unknown sizes as -1 and handles as null."""
    lines = []
    for kind, name in parameters:
        if kind in ('long long*', 'long long *'):
            lines.append(f'        if ({name})\n            *{name} = -1;')
        elif re.fullmatch(r'(char|Set_s|StringList_s)\s*\*\s*\*', kind):
            lines.append(f'        if ({name})\n            *{name} = nullptr;')
    return lines


def interposer(result, name, parameters):
    declared = ', '.join(f'{kind} {parameter}' for kind, parameter in parameters)
    passed = ', '.join(parameter for _, parameter in parameters)
    described = ', '.join(describe(kind, parameter) for kind, parameter in parameters)
    failure = FAILURES.get(name, FAILURES.get(result, f'{{}}'))
    deallocates = name.endswith('Dealloc')
    lines = [f'extern "C" {result} {name}({declared})', '{',
             f'    using Function = {result} (*)({", ".join(kind for kind, _ in parameters)});',
             f'    static Function const real = reinterpret_cast<Function>(KernelSpy::realFunction("{name}"));',
             f'    bool const fails = KernelSpy::isWatching() && KernelSpy::noteCall("{name}", {{{described}}});']
    if deallocates:  # giving memory back cannot fail
        lines += ['    static_cast<void>(fails);']
    else:
        lines += ['    if (fails) {', *clear_outputs(parameters),
                  '        return;' if result == 'void' else
                  f'        return {result}{failure};' if failure == '{}' and '*' not in result and ' ' not in result else
                  f'        return {"0" if failure == "{}" and "*" not in result else "nullptr" if failure == "{}" else failure};',
                  '    }']
    lines += [f'    {"" if result == "void" else "return "}real({passed});', '}', '']
    return '\n'.join(lines)


def main():
    output, headers = sys.argv[1], sys.argv[2:]
    found = [p for header in headers for p in prototypes(open(header, encoding='utf-8').read())]
    with open(output, 'w', encoding='utf-8') as out:
        out.write('#include "platform/vdsdkbase/VelUtil.h"\n#include "tests/support/KernelSpy.h"\n\n#include <string>\n\n')
        out.write('using veldraw::tests::KernelSpy;\n\n')
        for prototype in found:
            out.write(interposer(*prototype) + '\n')
        out.write(f'static_assert({len(found)} == 101, "the kernel has 101 functions");\n')


main()
