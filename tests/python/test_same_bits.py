"""Each operation, done by Python and by the command line on the same file, saves the same bytes."""
import os
import pathlib
import subprocess
import unittest

import numpy as np
import veldraw

from samples import Folder

PROGRAM = pathlib.Path(os.environ['VELDRAW_BUILD']) / 'bin' / 'veldraw'

# Each operation: what stands before it on the command line, what is given to it, and the file it works on.
PLANE, LINE, TIMES = 'plane.vtm', 'line.vtm', 'times.vtm'
CASES = {
    'delete_variables': (PLANE, {'variables': 'q'}),
    'load_variables': (PLANE, {'variables': '*'}),
    'set_value': (PLANE, {'zone': 1, 'variable': 'p', 'index': 3, 'value': 0.1 + 0.2}),
    'duplicate_zones': (PLANE, {'zones': '1:2'}),
    'mirror_zones': (PLANE, {'zones': '*', 'plane': 'Y'}),
    'rotate_zones': (PLANE, {'zones': [1, 2], 'angle': 1 / 3, 'axis': (1, 2, 3.5), 'origin': (0.1, 0, -1), 'space': '3d'}),
    'duplicate_zones_axially': (PLANE, {'zones': 2, 'angle': 77.7, 'copies': 3, 'offset': 1e-3, 'axis': 'Z', 'add_to_strands': False}),
    'enable_zone': (PLANE, {'zone': 1}),
    'disable_zone': (PLANE, {'zone': 'left'}),
    'enable_variable': (PLANE, {'variable': 'p'}),
    'disable_variable': (PLANE, {'variable': 'p'}),
    'interpolate_inverse_distance': (PLANE, {'zones': 1, 'destination': 2, 'variables': 'p,q', 'exponent': 3.3, 'points': 5}),
    'krige': (PLANE, {'zones': 'left', 'destination': 2, 'variables': ['p'], 'range': 0.7, 'drift': 'quadratic', 'points': 12}),
    'interpolate_linearly': (PLANE, {'zones': 1, 'destination': 2, 'variables': 'p', 'outside': 'constant', 'constant': -0.1}),
    'probe_line': (PLANE, {'zones': 'left', 'from_': (0.1, 0.1, 0), 'to': (0.9, 0.8, 0), 'points': 40}),
    'smooth': (PLANE, {'zone': 1, 'variable': 'p', 'passes': 7, 'coefficient': 0.3, 'boundary': 'second-order'}),
    'triangulate': (PLANE, {'zones': '1:2', 'keep_factor': 0.01}),
    'fourier_transform': (LINE, {'zones': 1, 'variables': 'u', 'independent': 'time', 'window': 'hann', 'conjugates': True}),
    'rename_zone': (PLANE, {'zone': 1, 'name': 'Wing, left #1'}),
    'rename_variable': (PLANE, {'variable': 'p', 'name': 'pressure [Pa]'}),
    'set_title': (PLANE, {'title': 'A "new" title'}),
    'set_auxiliary_data': (PLANE, {'zone': 2, 'name': 'Alpha', 'value': '3.5 degrees, up'}),
    'delete_auxiliary_data': (PLANE, {'variable': 'p', 'name': 'Unit'}),
    'new_frame': (PLANE, {'like': 1}),
    'set_frame_data': (PLANE, {'like': 1}),
    'delete_frame': (PLANE, {}),
    'activate_frame': (PLANE, {'frame': 1}),
    'move_frame': (PLANE, {'x': 1, 'y': 0.5, 'width': 3, 'height': 2.25}),
    'rename_frame': (PLANE, {'name': 'Front'}),
    'set_plot_type': (PLANE, {'type': '3d'}),
    'assign_variable': (PLANE, {'to': 'C', 'variable': 'q'}),
    'set_contour_variable': (PLANE, {'variable': 'q'}),
    'set_contour_colours': (PLANE, {'min': -1 / 3, 'max': 2, 'levels': 7, 'map': 'inferno'}),
    'set_value_blanking': (PLANE, {'constraints': 'p < 0.1; q > 2e-5 off'}),
    'set_plot_option': (PLANE, {'option': 'FieldLayers/ShowMesh', 'on': True}),
    'set_line_plot': (LINE, {'zone': 1, 'x': 'time', 'y': 'u'}),
    'new_line_map': (LINE, {}),
    'set_line_maps': (LINE, {'maps': 1, 'show': False, 'name': 'a #1', 'y': 'time', 'colour': '1F6FB5', 'line': 'dotted', 'width': 1 / 3 + 1,
                             'symbols': 'yes'}),
    'set_line_axis': (LINE, {'axis': 'y2', 'min': -1 / 3, 'max': 2, 'title': 'u #1'}),
    'set_plot_title': (LINE, {'title': 'a #1'}),
    'duplicate_line_maps': (LINE, {'maps': 1}),
    'delete_line_maps': (LINE, {'maps': 1}),
    'set_solution_time': (TIMES, {'time': 1}),
}
# What has to be done before, as the command line and Python write it.
BEFORE = {
    'delete_auxiliary_data': [('set_auxiliary_data', {'variable': 'p', 'name': 'Unit', 'value': 'Pa'})],
    'triangulate': [('set_plot_type', {'type': '2d'})],
    'enable_zone': [('disable_zone', {'zone': 1})],
    'enable_variable': [('disable_variable', {'variable': 'p'})],
    'delete_frame': [('new_frame', {'like': 1})],
    'set_frame_data': [('new_frame', {'like': 0})],
}
# These leave what is saved as it was.
NO_CHANGE = {'load_variables', 'enable_zone', 'disable_zone', 'enable_variable', 'disable_variable', 'delete_auxiliary_data', 'new_frame',
             'set_frame_data', 'delete_frame', 'activate_frame', 'move_frame', 'rename_frame', 'set_plot_type', 'assign_variable', 'set_title',
             'set_contour_variable', 'set_contour_colours', 'set_value_blanking', 'set_plot_option', 'set_line_plot', 'new_line_map', 'set_line_maps',
             'duplicate_line_maps', 'delete_line_maps', 'set_line_axis', 'set_plot_title', 'set_solution_time'}


def written(value):
    """A value as the command line has it."""
    if isinstance(value, bool):
        return 'yes' if value else 'no'
    if isinstance(value, (list, tuple)):
        return ','.join(map(written, value))
    text = repr(value) if isinstance(value, float) else str(value)
    if isinstance(value, str) and any(letter in value for letter in ' "#'):
        return '"' + text.replace('\\', '\\\\').replace('"', '\\"') + '"'
    return text


def line(name, values):
    words = [f'{parameter.rstrip("_").replace("_", "-")}={written(value)}' for parameter, value in values.items()]
    return ' '.join([name.replace('_', '-'), *words])


def bytes_of(folder):
    return {path.relative_to(folder).as_posix(): path.read_bytes() for path in sorted(folder.rglob('*')) if path.is_file()}


class SameBits(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = Folder(cls).path
        random = np.random.default_rng(3)
        def sheet(shift):
            x, y = np.meshgrid(np.linspace(0, 1, 9) + shift, np.linspace(0, 1, 7) ** 1.5, indexing='ij')
            return {'X': x, 'Y': y, 'Z': 0.1 * x * y, 'p': random.random(x.shape), 'q': random.random(x.shape).astype('f4')}
        veldraw.from_arrays({'left': sheet(0), 'right': sheet(0.31)}, title='Sheets').save(cls.folder / PLANE)
        time = np.arange(50) / 50
        veldraw.from_arrays({'signal': {'time': time, 'u': random.random(50)}}).save(cls.folder / LINE)
        veldraw.from_arrays({'first': {'X': [0., 1.]}, 'second': {'X': [2., 3.]}}).save(cls.folder / TIMES)
        cls.by_program = cls.folder / 'program'
        cls.run_program()

    @classmethod
    def addCleanup(cls, function, *values):
        cls.addClassCleanup(function, *values)

    @classmethod
    def run_program(cls):
        """All operations in one process, each on a file that is opened for it."""
        lines = []
        for name, (file, values) in CASES.items():
            (cls.by_program / name).mkdir(parents=True)
            lines.append(line('open', {'files': str(cls.folder / file)}))
            lines += [line(*before) for before in BEFORE.get(name, [])]
            lines += [line(name, values), line('save', {'file': str(cls.by_program / name / 'out.vtm')})]
        script = cls.folder / 'all.vdo'
        script.write_text('\n'.join(lines) + '\n', encoding='utf-8')
        ended = subprocess.run([str(PROGRAM), '--quiet', '--run', str(script)], capture_output=True, text=True)
        assert ended.returncode == 0, ended.stderr

    def saved_by_python(self, name, steps, file):
        target = self.folder / 'python' / name
        target.mkdir(parents=True)
        veldraw.open(self.folder / file)
        for step, values in steps:
            getattr(veldraw, step)(**values)
        veldraw.save(target / 'out.vtm')
        return bytes_of(target)

    def test_each_operation_is_tried(self):
        self.assertEqual({name for name, _ in veldraw._operations()}, set(CASES))

    def test_python_and_the_command_line_save_the_same_bytes(self):
        plain = {file: self.saved_by_python('plain ' + file, [], file) for file in (PLANE, LINE, TIMES)}
        for name, (file, values) in CASES.items():
            with self.subTest(name):
                made = self.saved_by_python(name, [*BEFORE.get(name, []), (name, values)], file)
                self.assertGreater(len(made), 1)
                self.assertEqual(made, bytes_of(self.by_program / name))
                self.assertEqual(name in NO_CHANGE, plain[file] == made, 'changes something or not')

    def test_the_journal_of_python_makes_the_same_bytes_by_the_program(self):
        folder = self.folder / 'journal'
        folder.mkdir()
        names = ('mirror_zones', 'rotate_zones', 'smooth', 'krige', 'set_value', 'triangulate', 'duplicate_zones_axially', 'rename_zone',
                 'set_title', 'interpolate_linearly')
        steps = [step for name in names for step in [*BEFORE.get(name, []), (name, CASES[name][1])]]
        made = self.saved_by_python('session', steps, PLANE)
        script = folder / 'session.vdo'
        script.write_text(veldraw.journal().replace(str(self.folder / 'python' / 'session'), str(folder)), encoding='utf-8')
        subprocess.run([str(PROGRAM), '--quiet', '--run', str(script), '--save', str(folder / 'out.vtm')], check=True)
        script.unlink()
        self.assertEqual(made, bytes_of(folder))


if __name__ == '__main__':
    unittest.main()
