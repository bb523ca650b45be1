#!/usr/bin/env python3
"""Reads what the sources include and fails on what the layers do not allow.

usage: check_architecture.py ROOT

Also checked: platform/vdsdkbase declares as many kernel functions as are stated below, each once; a header that declares classes and no
functions is named as one of its classes; each numerical library has its own sources.
"""
import pathlib
import re
import sys

KERNEL_FUNCTIONS = 101
SOURCE_FOLDERS = ('platform', 'kernel', 'operations', 'dialogs', 'host', 'app', 'python')
SUFFIXES = {'.h', '.cpp', '.ipp'}

FRAMEWORK = {'property', 'models', 'widgets', 'bindings', 'frame'}
# What each part of the dialog library may include of the library itself; dialog folders: the whole framework.
WITHIN_DIALOGS = {
    'property': set(),
    'models': {'property'},
    'widgets': set(),
    'bindings': {'models', 'property', 'widgets'},
    'frame': {'property', 'bindings'},
}
SIDEWAYS = {'datasetinfo': {'variableops'}, 'spreadsheet': {'variableops'}}
# Every part exports by this header.
FOR_ALL_DIALOGS = 'dialogs/property/DialogsApi.h'

# The rooms of reading and writing files, from bottom to top: each may include those that stand before it.
FILE_ROOMS = ['app/handover', 'app/vtk', 'app/files', 'app/import/raw', 'app/import/zones', 'app/import/reading', 'app/import/child',
              'app/import/cells', 'app/import/xml', 'app/import/formats/*', 'app/import', 'app/export/writing', 'app/export/formats/*',
              'app/export']
# The process that reads files is a program of its own, small and quick to start: what it may include of ours.
READER = 'app/reader'
READER_MAY_INCLUDE = {'app/handover', 'app/vtk', 'app/files'}
# A format knows no other one, but for these; what is above the formats knows them by their table alone.
FORMATS_KNOWN = {'app/import/formats/vtklegacy': {'app/import/formats/vtkxml'},
                 'app/import/formats/surface': {'app/import/formats/vtkxml'},
                 'app/import/formats/ensight': {'app/import/formats/vtkxml'},
                 'app/import/formats/openfoam': {'app/import/formats/vtkxml'},
                 'app/import/formats/exodus': {'app/import/formats/vtkxml'},
                 'app/export/formats/vtkxml': {'app/import/formats/vtkxml'}}
TABLES_OF_FORMATS = {'app/import/ReadableFormats.cpp', 'app/export/WritableFormats.cpp'}

# The rooms of the kernel, in order: each may include itself and those before it.
KERNEL_ROOMS = ['base', 'storage', 'compute', 'events', 'undo', 'data', 'mesh', 'frames', 'operations', 'style', 'session', 'api']

# The parts of the application above the rooms of files, in order: each may include itself and those before it.
APP_PARTS = ['app/plot', 'app/commands', 'app/recovery', 'app/window', 'app/commandline']

# The sources that use a numerical library; the others have what they need from these.
NUMERICS = {
    'CGAL': {'kernel/compute/LinedTriangulation.h', 'kernel/compute/PlaneTriangulation.cpp'},
    'Eigen': {'kernel/compute/DenseKriging.cpp', 'kernel/compute/DriftBasis.h'},
    'FFTW': {'kernel/compute/FourierPlan.cpp'},
    'GMP': {'kernel/base/ExactMemory.cpp'},
    'OpenMP': set(),  # its library ends the process where there are no threads to be had
}

# Headers of the standard library, of C and of the system. Any other in angle brackets is refused as long as it stands neither here nor above.
STANDARD = set('''
    algorithm any array atomic bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes climits clocale cmath complex
    condition_variable csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution
    filesystem forward_list fstream functional future initializer_list iomanip ios iosfwd iostream istream iterator limits list locale map
    memory memory_resource mutex new numeric optional ostream queue random ratio regex scoped_allocator set shared_mutex sstream stack
    stdexcept streambuf string string_view system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility
    valarray variant vector
    assert.h ctype.h errno.h float.h limits.h locale.h math.h signal.h stdarg.h stdbool.h stddef.h stdint.h stdio.h stdlib.h string.h time.h
    dirent.h dlfcn.h fcntl.h linux/audit.h linux/filter.h linux/magic.h linux/seccomp.h malloc.h poll.h pthread.h sched.h spawn.h sys/file.h sys/mman.h sys/prctl.h
    sys/resource.h sys/socket.h sys/stat.h sys/syscall.h sys/types.h sys/vfs.h sys/wait.h sys/xattr.h unistd.h zlib.h
'''.split())

QT_CORE = {'QtCore', 'Qt', 'QtGlobal', 'QObject', 'QString', 'QStringList', 'QByteArray', 'QVariant', 'QPointer', 'QVector', 'QList',
           'QMap', 'QHash', 'QSet', 'QTimer', 'QLocale', 'QEvent', 'QCoreApplication', 'QMetaObject', 'QMetaType', 'QScopedPointer',
           'QSharedPointer', 'QAbstractItemModel', 'QAbstractListModel', 'QAbstractTableModel', 'QAbstractProxyModel', 'QModelIndex',
           'QPersistentModelIndex', 'QItemSelection', 'QItemSelectionModel', 'QItemSelectionRange', 'QSortFilterProxyModel',
           'QRegularExpression', 'QStringListModel'}


def kind_of(name):
    """The library that <name> or "name" belongs to, for what is not ours."""
    first = name.split('/')[0]
    if first == 'boost':
        return 'boost'
    if first.startswith('vtk') or first.startswith('QVTK'):
        return 'vtk'
    if re.match(r'Q[A-Z]', first) or first.startswith('Qt') or first == 'qglobal.h':
        base = name.split('/')[-1]
        return 'qtcore' if base in QT_CORE or first == 'QtCore' else 'qt'
    if first == 'pybind11':
        return 'pybind11'
    if numerical_library(name):
        return 'numerics'
    return 'std' if name in STANDARD else 'unknown'


def numerical_library(name):
    """The key in NUMERICS of what <name> belongs to, or None."""
    first = name.split('/')[0]
    return {'omp.h': 'OpenMP', 'fftw3.h': 'FFTW', 'gmp.h': 'GMP'}.get(first, first if first in NUMERICS else None)


def outside_allowed(folder):
    """Libraries that a file of this folder (its first two path parts) may include."""
    layer, part = folder
    if layer == 'platform':
        return {'std', 'boost'}
    if layer == 'kernel':
        return {'std', 'numerics'}
    if layer == 'operations':
        return {'std'}
    if layer == 'dialogs':
        if part == 'property':
            return {'std', 'boost'}
        if part == 'models':
            return {'std', 'boost', 'qtcore'}
        return {'std', 'boost', 'qtcore', 'qt'}
    if layer == 'host':
        return {'std', 'boost', 'qtcore', 'qt'}
    if layer == 'python':
        return {'std', 'qtcore', 'pybind11'}
    return {'std', 'boost', 'qtcore', 'qt', 'vtk'}


def ours_allowed(folder, included):
    """Whether a file of this folder may include a file of ours."""
    layer, part = folder
    target = included.split('/')
    target_layer, target_part = target[0], target[1] if len(target) > 2 else ''
    if layer == 'platform':
        return target_layer == 'platform'
    if layer == 'kernel':
        if target_layer == 'kernel':
            rooms = KERNEL_ROOMS
            return part in rooms and target_part in rooms and rooms.index(target_part) <= rooms.index(part)
        return included == 'platform/PlatformApi.h' or included.startswith('platform/vdsdkbase/')
    if layer == 'dialogs':
        return dialogs_allowed(part, target_layer, target_part, included)
    if layer in ('host', 'operations'):
        return target_layer in ('platform', 'kernel', layer)
    if layer == 'python':
        return target_layer in ('platform', 'kernel', 'operations', layer) or is_without_window(included)
    return target_layer in SOURCE_FOLDERS and target_layer != 'python'


def dialogs_allowed(part, target_layer, target_part, included):
    if target_layer == 'platform':
        return part != 'widgets' or included in ('platform/PlatformApi.h', 'platform/signals/WholeConnection.h')
    if target_layer != 'dialogs':
        return False
    if target_part == part or included == FOR_ALL_DIALOGS:
        return True
    if part in WITHIN_DIALOGS:
        return target_part in WITHIN_DIALOGS[part]
    return target_part in FRAMEWORK or target_part in SIDEWAYS.get(part, set())


def is_below(folder, roof):
    return folder == roof or folder.startswith(roof + '/')


def is_without_window(included):
    """Whether it is a part of the application that the Python module may use."""
    folder = included.rpartition('/')[0]
    return folder == 'app/commands' or is_about_files(folder)


def is_about_files(folder):
    return any(is_below(folder, roof) for roof in ('app/handover', 'app/vtk', 'app/files', 'app/import', 'app/export'))


def file_room(folder):
    """The place of a folder in FILE_ROOMS; None if it is no room."""
    kind = re.sub(r'/formats/[^/]+$', '/formats/*', folder)
    return FILE_ROOMS.index(kind) if kind in FILE_ROOMS else None


def file_room_allowed(path, included):
    """Whether a file of one of the rooms may include a file of ours."""
    folder, target = path.rpartition('/')[0], included.rpartition('/')[0]
    if not included.startswith('app/'):
        return included.startswith(('platform/', 'kernel/'))
    own, other = file_room(folder), file_room(target)
    if folder == target:
        return True
    if own is None or other is None or other > own:
        return False
    if '/formats/' in target:
        return path in TABLES_OF_FORMATS or target in FORMATS_KNOWN.get(folder, set())
    return True


def check_file_rooms(path, text):
    folder = path.rpartition('/')[0]
    if not is_about_files(folder):
        return
    if file_room(folder) is None:
        yield f'{path}: {folder} is none of the rooms of files'
    for number, name, _ in includes(text):
        if name.split('/')[0] in SOURCE_FOLDERS and not file_room_allowed(path, name):
            yield f'{path}:{number}: must not include {name}'


def check_reader(path, text):
    is_own = path.startswith(READER + '/')
    for number, name, _ in includes(text):
        folder = name.rpartition('/')[0]
        if is_own and name.split('/')[0] in SOURCE_FOLDERS and folder != READER and folder not in READER_MAY_INCLUDE:
            yield f'{path}:{number}: must not include {name}'
        if folder == READER and not is_own:
            yield f'{path}:{number}: must not include {name}, which is the reader\'s'


def check_app_parts(path, text):
    own = next((part for part in APP_PARTS if is_below(path.rpartition('/')[0], part)), None)
    for number, name, _ in includes(text):
        other = next((part for part in APP_PARTS if name.startswith(part + '/')), None)
        if own and other and APP_PARTS.index(other) > APP_PARTS.index(own):
            yield f'{path}:{number}: {own} must not include {name}'


def check_numerics(path, text):
    for number, name, _ in includes(text):
        library = numerical_library(name)
        if library and path not in NUMERICS[library]:
            yield f'{path}:{number}: must not use {library}'
    if re.search(r'(?m)^\s*#\s*pragma\s+omp\b|\b_Pragma\s*\(\s*"omp\b', text):
        yield f'{path}: must not use OpenMP'


def check_users_of_numerics(files):
    for library, users in NUMERICS.items():
        for path in sorted(users - set(files)):
            yield f'{path}: stands in the list of what uses {library}, but is gone'


def includes(text):
    """(line number, name, is in quotes) of each include."""
    for number, line in enumerate(text.splitlines(), 1):
        match = re.match(r'\s*#\s*include\s*(["<])([^">]+)[">]', line)
        if match:
            yield number, match.group(2), match.group(1) == '"'


def is_made_by_a_tool(name):
    return re.fullmatch(r'ui_\w+\.h|moc_\w+\.cpp|\w+\.moc', name) is not None


def check_includes(path, text):
    parts = path.split('/')
    folder = (parts[0], parts[1] if len(parts) > 2 else '')
    for number, name, in_quotes in includes(text):
        if name.split('/')[0] in SOURCE_FOLDERS + ('tests', 'bench'):
            if not ours_allowed(folder, name):
                yield f'{path}:{number}: must not include {name}'
        elif in_quotes and not is_made_by_a_tool(name):
            yield f'{path}:{number}: {name} is not given by its path from the root of the project'
        elif not in_quotes and kind_of(name) not in outside_allowed(folder):
            yield f'{path}:{number}: must not include <{name}>'
        elif is_made_by_a_tool(name) and name.startswith('ui_') and (folder[0] != 'dialogs' or folder[1] in FRAMEWORK):
            if folder[0] != 'app':
                yield f'{path}:{number}: forms belong to dialog folders, not {name} here'


def without_comments(text):
    text = re.sub(r'/\*.*?\*/', ' ', text, flags=re.S)
    return re.sub(r'//[^\n]*', ' ', text)


def kernel_functions(texts):
    found = []
    for text in texts:
        declarations = re.sub(r'(?m)^\s*#[^\n]*', ' ', without_comments(text))
        found += re.findall(r'\b(VelUtil\w+)\s*\([^()]*\)\s*;', declarations)
    return found


def check_kernel_functions(files):
    found = kernel_functions(text for path, text in sorted(files.items()) if path.startswith('platform/vdsdkbase/'))
    for name in sorted({name for name in found if found.count(name) > 1}):
        yield f'platform/vdsdkbase: {name} is declared more than once'
    if len(set(found)) != KERNEL_FUNCTIONS:
        yield f'platform/vdsdkbase: {len(set(found))} kernel functions, not {KERNEL_FUNCTIONS}'


def classes_of(text):
    """Names of the classes, structures and enumerations that stand at the outermost level of the header's namespaces."""
    pattern = r'(?m)^(?:template\s*<[^;{]*>\s*)?(?:class|struct|enum(?:\s+class)?)\s+(?:[A-Z][A-Z_]+_API\s+)?(\w+)[^;{()]*\{'
    return re.findall(pattern, without_comments(text))


def has_functions(text):
    """Whether functions stand at the outermost level; the members of classes are indented."""
    return re.search(r'(?m)^(?!class|struct|enum|using|typedef|namespace|template)[A-Za-z_][\w:<>,&* ]*[\w>&*]\(', without_comments(text)) is not None


def check_class_name(path, text):
    if not path.endswith('.h') or path.startswith('platform/vdsdkbase/') or has_functions(text):
        return
    classes = [name for name in classes_of(text) if not name.endswith(('_e', '_s'))]
    name = pathlib.PurePosixPath(path).stem
    if classes and name not in classes:
        yield f'{path}: declares {", ".join(classes)}, but is named {name}'


def problems(files):
    """All that is wrong with files, a mapping from path to text."""
    found = []
    for path, text in sorted(files.items()):
        found += check_includes(path, text)
        found += check_file_rooms(path, text)
        found += check_reader(path, text)
        found += check_app_parts(path, text)
        found += check_numerics(path, text)
        found += check_class_name(path, text)
    found += check_kernel_functions(files)
    found += check_users_of_numerics(files)
    return found


def read(root):
    files = {}
    for folder in SOURCE_FOLDERS:
        for path in sorted((root / folder).rglob('*')):
            if path.suffix in SUFFIXES and path.is_file():
                files[path.relative_to(root).as_posix()] = path.read_text(encoding='utf-8')
    return files


def main():
    files = read(pathlib.Path(sys.argv[1]))
    for folder in SOURCE_FOLDERS:
        if not any(path.startswith(folder + '/') for path in files):
            sys.exit(f'no sources in {folder}: is this the root of the project?')
    found = problems(files)
    print('\n'.join(found) if found else f'{len(files)} files, nothing found')
    sys.exit(1 if found else 0)


if __name__ == '__main__':
    main()
