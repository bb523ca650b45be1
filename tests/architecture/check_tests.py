#!/usr/bin/env python3
"""Fails on tests that do not stand where the code stands that they test, or are not named after it.

usage: check_tests.py ROOT

A test stands in tests/FOLDER if it tests what is in FOLDER, is named <Class>Test.cpp or <Class><Aspect>Test.cpp after a class or file of
that folder, and has the namespace veldraw::tests. Test programs are named ..._test. Each operation of the kernel is carried out without memory in the
sweep, and none but the shared main function, which watches the event loop, makes an application of widgets.
"""
import pathlib
import re
import sys

SUFFIXES = {'.h', '.cpp', '.ipp', '.ui'}

# Where tests mirror the code: each folder below these has its double, but for those that hold what tests share or that test the
# library as a whole.
MIRRORED = ('kernel', 'operations', 'host', 'app', 'dialogs')
# Where the namespace is asked for.
ONE_NAMESPACE = ('kernel', 'operations', 'host', 'app', 'support', 'dialogs', 'manual', 'tour')
SHARED = {'app/support', 'dialogs/library', 'dialogs/support', 'kernel/support'}

# Where operations are carried out while requests for memory fail.
MEMORY_SWEEP = 'tests/kernel/session/SessionMemoryTest.cpp'

# Has the watchdog over the event loop.
WIDGETS_MAIN = 'tests/support/QtTestMain.cpp'
# A program to look at.
OWN_MAIN = 'tests/manual/'

# What a whole folder, or several, are tested for.
NAMED_OTHERWISE = {
    'tests/dialogs/interpolation/InterpolationsTest.cpp': 'all dialogs that interpolate',
    'tests/dialogs/models/StockListModelsTest.cpp': 'all lists of zones, variables and line maps',
    'tests/dialogs/zoneops/CreationGuardsTest.cpp': 'all dialogs that create zones',
    'tests/host/IdleTest.cpp': 'all ways to wait for idle',
    'tests/host/WholeConnectionTest.cpp': 'how slots of all signals are connected, by a header of the platform',
    'tests/host/WithoutApplicationTest.cpp': 'all of the host, where there is no application object',
    'tests/kernel/api/VelUtilTest.cpp': 'the C functions together',
}

# A test may be named after what a class is the base, the interface, the binding, the dialog or the manager of: RelevanceTest of
# RelevanceInterface.
ROLES = ('Abstract', 'Dialog', 'Interface', 'PropertiesManager', 'PropertyBinding')


def is_in(folder, roofs):
    return any(folder == roof or folder.startswith(roof + '/') for roof in roofs)


def folder_of(path):
    return path.rpartition('/')[0]


def has_tests(text):
    return re.search(r'(?m)^\s*(TYPED_)?TEST(_[FP])?\(', text) is not None


def subjects(files, folder):
    """What a test of this folder may be named after."""
    names = {pathlib.PurePosixPath(path).stem for path in files if folder_of(path) == folder}
    return names | {name[:-len(role)] for name in names for role in ROLES if name.endswith(role)}


def check_place(files, path):
    folder = folder_of(path).removeprefix('tests/')
    if is_in(folder, MIRRORED) and not is_in(folder, SHARED) and not subjects(files, folder):
        yield f'{path}: there is no folder {folder} to be tested'


def check_name(files, path, text):
    folder = folder_of(path).removeprefix('tests/')
    name = pathlib.PurePosixPath(path).stem
    if not has_tests(text) or not is_in(folder, MIRRORED) or is_in(folder, SHARED) or path in NAMED_OTHERWISE:
        return
    if not name.endswith('Test'):
        yield f'{path}: has tests, but its name does not end in Test'
    elif not any(name.startswith(subject) for subject in subjects(files, folder)):
        yield f'{path}: is named after no class or file of {folder}'


def check_namespace(path, text):
    if is_in(folder_of(path).removeprefix('tests/'), ONE_NAMESPACE) and path.endswith(('.h', '.cpp')):
        others = sorted(set(re.findall(r'(?m)^namespace (veldraw\S*) \{', text)) - {'veldraw::tests'})
        if others:
            yield f'{path}: declares in {", ".join(others)}, not in veldraw::tests'
        elif has_tests(text) and not re.search(r'(?m)^namespace veldraw::tests \{', text):
            yield f'{path}: its tests have no namespace veldraw::tests'


def check_programs(path, text):
    for name in re.findall(r'(?m)^\s*veldraw_add_test\(\s*([a-z]\w*)', text):
        if not name.endswith('_test'):
            yield f'{path}: the test program {name} is not named ..._test'


def public_part(body):
    """What of a class's body is public."""
    parts = re.split(r'(?m)^(public|protected|private):$', body)
    return ''.join(parts[at + 1] for at in range(1, len(parts), 2) if parts[at] == 'public')


def operations(files):
    """Names of the kernel's operations that are more than the base of others."""
    bases, made = {'Operation': None}, set()
    for path, text in files.items():
        if folder_of(path) != 'kernel/operations' or not path.endswith('.h'):
            continue
        for name, base, body in re.findall(r'(?ms)^class (\w+)(?: final)? : public (\w+)\n\{(.*?)^\};', text):
            bases[name] = base
            public = public_part(body)
            if re.search(rf'(?<!~)\b{name}\(', public) or re.search(r'using \w+::\w+;', public):
                made.add(name)

    def is_operation(name):
        return name == 'Operation' or (name in bases and is_operation(bases[name]))

    return {name for name in made if is_operation(name)}


def check_memory_sweep(files):
    text = files.get(MEMORY_SWEEP, '')
    for name in sorted(operations(files)):
        if not re.search(rf'perform\(\s*{name}\(', text):
            yield f'{MEMORY_SWEEP}: does not carry out {name}'


def check_watchdog(path, text):
    if path != WIDGETS_MAIN and not path.startswith(OWN_MAIN) and re.search(
            r'\bQ(Gui)?Application \w+[({]|QTEST(_\w+)?_MAIN\(', text):
        yield f'{path}: makes an application that no watchdog watches; link veldraw_qt_test_main'


def check_list_of_names(files):
    for path in sorted(NAMED_OTHERWISE):
        if path not in files:
            yield f'{path}: stands in the list of names, but is gone'


def problems(files):
    """All that is wrong with files, a mapping from path to text."""
    found = list(check_list_of_names(files)) + list(check_memory_sweep(files))
    for path, text in sorted(files.items()):
        if path.endswith('/CMakeLists.txt'):
            found += check_programs(path, text)
        elif path.startswith('tests/'):
            found += check_place(files, path)
            found += check_name(files, path, text)
            found += check_namespace(path, text)
            found += check_watchdog(path, text)
    return found


def read(root):
    files = {}
    for folder in ('tests',) + tuple(sorted({name.split('/')[0] for name in MIRRORED})):
        for path in sorted((root / folder).rglob('*')):
            if path.suffix in SUFFIXES or (folder == 'tests' and path.name == 'CMakeLists.txt'):
                files[path.relative_to(root).as_posix()] = path.read_text(encoding='utf-8')
    return files


def main():
    files = read(pathlib.Path(sys.argv[1]))
    if not any(has_tests(text) for text in files.values()):
        sys.exit('no tests: is this the root of the project?')
    found = problems(files)
    print('\n'.join(found) if found else f'{len(files)} files, nothing found')
    sys.exit(1 if found else 0)


if __name__ == '__main__':
    main()
