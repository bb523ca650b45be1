"""Files, data sets, zones, variables and operations, as a program of Python has them."""
import inspect
import logging
import os
import subprocess
import sys
import unittest

import numpy as np
import veldraw

from samples import Folder


class Modules(unittest.TestCase):
    def setUp(self):
        self.folder = Folder(self)
        self.data = veldraw.open(self.folder.grid())
        self.zone = self.data.zones[1]

    def refused(self, work, *words):
        with self.assertRaises(veldraw.Error) as caught:
            work()
        for word in words:
            self.assertIn(word, str(caught.exception))


class Files(Modules):
    def test_open_gives_the_data_set_of_the_file(self):
        self.assertIs(self.data, veldraw.data_set())
        self.assertEqual(['X', 'Y', 'Z', 'p', 'q'], [variable.name for variable in self.data.variables])
        self.assertEqual((4, 3, 2), self.zone.shape)
        self.assertEqual('ordered', self.zone.kind)
        self.assertEqual((24, 6), (self.zone.point_count, self.zone.cell_count))

    def test_several_files_have_a_data_set_each(self):
        first, second = self.folder.grid('a.vtk'), self.folder.grid('other.vtk', (2, 2, 2))
        veldraw.open(first, second)
        self.assertEqual([(4, 3, 2), (2, 2, 2)], [data.zones[1].shape for data in veldraw.data_sets()])

    def test_what_is_open_stays_for_new_frames_only(self):
        other = veldraw.open(self.folder.grid('other.vtk'), new_frames=True)
        self.assertEqual([self.data, other], veldraw.data_sets())
        third = veldraw.open(self.folder.grid('third.vtk'))
        self.assertEqual([third], veldraw.data_sets())

    def test_what_cannot_be_opened_is_refused_with_the_reason_and_nothing_changes(self):
        self.refused(lambda: veldraw.open('nowhere.vtu'), 'nowhere.vtu', 'no such file')
        self.refused(lambda: veldraw.open(), 'No file')
        self.refused(lambda: veldraw.open(self.folder.grid(), defer='now'), 'defer', 'now')
        self.assertIs(self.data, veldraw.data_set())

    def test_a_saved_file_brings_the_same_values_back(self):
        path = self.folder.path / 'saved.vts'
        veldraw.save(path)
        again = veldraw.open(path)
        np.testing.assert_array_equal(np.arange(24.0) ** 2, np.asarray(again.zones[1]['q']).ravel(order='F'))

    def test_a_data_set_that_is_not_active_is_saved_by_itself(self):
        veldraw.open(self.folder.grid('small.vtk', (2, 2, 2)), new_frames=True)
        self.data.save(str(self.folder.path / 'first.vts'))
        self.assertEqual((2, 2, 2), veldraw.data_set().zones[1].shape)
        self.assertEqual((4, 3, 2), veldraw.open(self.folder.path / 'first.vts').zones[1].shape)

    def test_a_file_of_an_unknown_kind_is_not_written(self):
        path = self.folder.path / 'saved.xyz'
        self.refused(lambda: veldraw.save(path), '.xyz', '.vtu')
        self.assertFalse(path.exists())

    def test_tables_of_several_zones_need_leave_to_replace_a_folder(self):
        veldraw.duplicate_zones(zones=1)
        path = self.folder.path / 'tables.csv'
        veldraw.save(path)
        self.refused(lambda: veldraw.save(path), 'overwrite=True')
        veldraw.save(path, overwrite=True)

    def test_remarks_go_to_the_log_of_the_program(self):
        with self.assertLogs('veldraw', logging.INFO) as logged:
            veldraw.smooth(zone=1, variable='p')
        self.assertIn('Smooth: "p"', logged.output[0])


class Lists(Modules):
    def test_zones_and_variables_are_found_by_number_from_1_and_by_name(self):
        self.assertEqual(self.data.variables[4], self.data.variables['p'])
        self.assertEqual(4, self.data.variables['p'].number)
        self.assertIn('p', self.data.variables)
        self.assertNotIn('r', self.data.variables)
        self.assertEqual([self.zone], list(self.data.zones))
        self.assertEqual((1, 5), (len(self.data.zones), len(self.data.variables)))

    def test_what_is_not_there_is_told_as_python_tells_it(self):
        for number in (0, 2, -1, 2 ** 40):
            self.assertRaises(IndexError, lambda: self.data.zones[number])
        self.assertRaises(KeyError, lambda: self.data.zones['wing'])
        self.assertRaises(TypeError, lambda: self.data.zones[1.5])

    def test_a_zone_stays_itself_when_another_one_gets_its_number(self):
        veldraw.delete_variables(variables='X')
        p = self.data.variables['p']
        self.assertEqual(3, p.number)
        veldraw.undo()
        self.assertEqual(4, p.number)

    def test_what_has_gone_says_so(self):
        veldraw.duplicate_zones(zones=1)
        copy = self.data.zones[2]
        veldraw.undo()
        self.refused(lambda: copy.number, 'not in its data set any more')
        self.refused(lambda: copy['p'].array, 'not in its data set any more')
        veldraw.redo()
        self.assertEqual(2, copy.number)

    def test_auxiliary_data_are_a_dictionary(self):
        veldraw.set_auxiliary_data(zone=1, name='Alpha', value='3 degrees')
        self.assertEqual({'Alpha': '3 degrees'}, self.zone.auxiliary_data)


class Operations(Modules):
    def test_a_function_has_the_signature_of_its_operation(self):
        signature = inspect.signature(veldraw.duplicate_zones_axially)
        self.assertTrue(all(each.kind is each.KEYWORD_ONLY for each in signature.parameters.values()))
        self.assertIs(inspect.Parameter.empty, signature.parameters['copies'].default)
        self.assertEqual(0.0, signature.parameters['offset'].default)
        self.assertIs(True, signature.parameters['add_to_strands'].default)
        self.assertIn('in degrees', inspect.getdoc(veldraw.duplicate_zones_axially))

    def test_zones_are_given_in_all_ways_of_the_command_line_and_as_objects(self):
        veldraw.duplicate_zones(zones=1)
        veldraw.rename_zone(zone=2, name='Wing, left')
        for given in ('2', 2, np.int64(2), '"Wing, left"', 'Wing*', [2], {2}, range(2, 3), self.data.zones[2],
                      [self.data.zones['Wing, left']]):
            veldraw.mirror_zones(zones=given, plane='X')
            self.assertEqual(3, len(self.data.zones), given)
            veldraw.undo()
        veldraw.mirror_zones(zones=(1, 'Wing*'), plane='Y')
        self.assertEqual(4, len(self.data.zones))

    def test_a_mirrored_zone_has_the_negative_coordinate(self):
        veldraw.mirror_zones(zones='*', plane='X')
        np.testing.assert_array_equal(-np.asarray(self.zone['X']), np.asarray(self.data.zones[2]['X']))

    def test_numbers_flags_and_places_are_those_of_python(self):
        veldraw.rotate_zones(zones=1, angle=90, origin=(1, 0, np.float32(0)), axis=[0, 0, 1], vector=np.bool_(False), space='3d')
        x = np.asarray(self.zone['X'])
        np.testing.assert_allclose(1 - np.arange(3.0)[None, :, None] + np.zeros((4, 3, 2)), x, atol=1e-12)

    def test_mistakes_are_told_in_the_names_of_python(self):
        self.refused(lambda: veldraw.mirror_zones(zone=1, plane='X'), '"mirror_zones"', '"zone"', 'Did you mean "zones"?')
        self.refused(lambda: veldraw.mirror_zones(plane='X'), '"mirror_zones" needs zones')
        self.refused(lambda: veldraw.mirror_zones(zones=7, plane='X'), 'There is no zone 7')
        self.refused(lambda: veldraw.mirror_zones(zones='wing', plane='X'), 'called "wing"')
        self.refused(lambda: veldraw.mirror_zones(zones=[], plane='X'), 'missing')
        self.refused(lambda: veldraw.duplicate_zones_axially(zones=1, angle=1, copies=0), '"copies"', 'at least 1')
        self.refused(lambda: veldraw.delete_variables(variables='*'), 'variable')
        self.assertEqual(1, len(self.data.zones))

    def test_a_value_of_a_wrong_type_is_a_type_error(self):
        for wrong in ({'zones': 1.5}, {'zones': None, 'plane': 3}, {'zones': True}, {'zones': self.data.variables[1]}):
            with self.assertRaises((TypeError, veldraw.Error), msg=wrong):
                veldraw.mirror_zones(**{'plane': 'X', **wrong})
        self.assertRaises(TypeError, lambda: veldraw.mirror_zones(1, 'X'))
        self.assertRaises(TypeError, lambda: veldraw.rotate_zones(zones=1, angle='90'))
        self.assertRaises(TypeError, lambda: veldraw.rotate_zones(zones=1, angle=90, vector='yes'))
        self.assertEqual(1, len(self.data.zones))

    def test_a_zone_of_another_data_set_is_refused(self):
        veldraw.open(self.folder.grid('other.vtk'), new_frames=True)
        self.refused(lambda: veldraw.mirror_zones(zones=self.zone, plane='X'), 'not of the active data set')

    def test_undo_and_redo_go_through_the_steps(self):
        veldraw.duplicate_zones(zones=1)
        veldraw.undo()
        self.assertEqual(1, len(self.data.zones))
        veldraw.redo()
        self.assertEqual(2, len(self.data.zones))
        self.refused(veldraw.redo, 'nothing to redo')

    def test_the_journal_is_a_script_for_the_command_line(self):
        veldraw.duplicate_zones(zones=1)
        veldraw.undo()
        veldraw.mirror_zones(zones=1, plane='Z')
        np.asarray(self.zone['q'])
        lines = veldraw.journal().splitlines()
        self.assertTrue(lines[-2].startswith('open files='))
        self.assertEqual('mirror-zones zones=1 plane=Z', lines[-1])


class Installation(unittest.TestCase):
    def test_the_installed_module_works_by_itself(self):
        folder = Folder(self)
        prefix = folder.path / 'prefix'
        subprocess.run(['cmake', '--install', os.environ['VELDRAW_BUILD'], '--component', 'python', '--prefix', str(prefix)],
                       check=True, stdout=subprocess.DEVNULL)
        module = next(prefix.rglob('veldraw.*.so'))
        # By the file of VTK's format, which the process that reads files opens, and by one that it loads its module for.
        surface = folder.path / 'a.obj'
        surface.write_text('v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n')
        code = (f'import veldraw; print(veldraw.__file__, veldraw.open({str(folder.grid())!r}).zones[1].shape, '
                f'veldraw.open({str(surface)!r}).zones[1].name)')
        environment = dict(os.environ, PYTHONPATH=str(module.parent))
        printed = subprocess.run([sys.executable, '-c', code], env=environment, check=True, capture_output=True, text=True).stdout
        self.assertEqual(f'{module} (4, 3, 2) a', printed.strip())
        self.assertTrue((prefix / 'bin' / 'veldraw_reader').exists())


if __name__ == '__main__':
    unittest.main()
