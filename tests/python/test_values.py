"""Values as arrays of NumPy: no copies, nothing loaded before it is touched, written as one step, never left without memory."""
import gc
import os
import resource
import unittest

import numpy as np
import veldraw

from samples import Folder, write_raw_image


def loaded_memory():
    """Bytes of memory that the process has now."""
    with open('/proc/self/statm', encoding='ascii') as file:
        return int(file.read().split()[1]) * resource.getpagesize()


class Values(unittest.TestCase):
    def setUp(self):
        self.folder = Folder(self)
        self.data = veldraw.open(self.folder.grid())
        self.zone = self.data.zones[1]
        self.squares = np.arange(24.0).reshape((4, 3, 2), order='F') ** 2

    def refused(self, work, *words):
        with self.assertRaises(veldraw.Error) as caught:
            work()
        for word in words:
            self.assertIn(word, str(caught.exception))


class Reading(Values):
    def test_indices_of_an_array_are_those_of_the_zone(self):
        x, y, z = (np.asarray(self.zone[name]) for name in 'XYZ')
        self.assertEqual((3, 2, 1), (x[3, 2, 1], y[3, 2, 1], z[3, 2, 1]))
        np.testing.assert_array_equal(self.squares, np.asarray(self.zone['q']))

    def test_arrays_are_the_memory_of_the_kernel(self):
        address = self.zone['q'].array.__array_interface__['data'][0]
        self.assertEqual(address, np.asarray(self.zone['q']).__array_interface__['data'][0])
        veldraw.duplicate_zones(zones=1)
        self.assertEqual(2, self.zone['q'].share_count)
        self.assertEqual(address, self.data.zones[2]['q'].array.__array_interface__['data'][0])

    def test_arrays_cannot_be_written_to(self):
        array = np.asarray(self.zone['q'])
        with self.assertRaises(ValueError):
            array[0, 0, 0] = 1
        with self.assertRaises(ValueError):
            array.setflags(write=True)
        with self.assertRaises(TypeError):
            self.zone['q'][0, 0, 0] = 1

    def test_an_array_stays_what_it_is_after_an_edit_a_deletion_and_an_undo(self):
        veldraw.mirror_zones(zones=1, plane='X')
        mirrored = np.asarray(self.data.zones[2]['X'])
        kept, wanted = np.asarray(self.zone['q']), self.squares.copy()
        veldraw.undo()
        veldraw.set_value(zone=1, variable='q', index=1, value=-5)
        self.assertEqual(-5, self.zone['q'][0, 0, 0])
        veldraw.delete_variables(variables='q')
        veldraw.open(self.folder.grid('other.vtk', (2, 2, 2)))
        del self.data, self.zone
        gc.collect()
        np.empty(1 << 20).fill(7)
        np.testing.assert_array_equal(wanted, kept)
        self.assertEqual(-3, mirrored[3, 0, 0])

    def test_values_work_as_arrays_do(self):
        q = self.zone['q']
        self.assertEqual((24, 3, 4), (q.size, q.ndim, len(q)))
        self.assertEqual(np.dtype('f8'), q.dtype)
        self.assertEqual(float(self.squares.mean()), q.mean())
        np.testing.assert_array_equal(2 * self.squares - 1, 2 * q - 1)
        np.testing.assert_array_equal(np.sqrt(self.squares), np.sqrt(q))
        np.testing.assert_array_equal(self.squares.astype('f4'), np.asarray(q, dtype='f4'))
        self.assertEqual(23, int((q > 0).sum()))
        self.assertEqual((0, 529), q.range)

    def test_dimensions_of_one_at_the_end_are_left_out(self):
        plane = veldraw.open(self.folder.grid('plane.vtk', (3, 2, 1))).zones[1]
        self.assertEqual(((3, 2), (3, 2)), (plane.shape, plane['p'].shape))
        self.assertEqual(5, plane['p'][2, 1])

    def test_values_at_cells_are_those_of_cells_alone(self):
        path = self.folder.path / 'cells.vtk'
        text = self.folder.grid('points.vtk', (4, 3, 2)).read_text()
        path.write_text(text + '\nCELL_DATA 6\nSCALARS c double 1\nLOOKUP_TABLE default\n0 1 2 3 4 5\n')
        cells = veldraw.open(path).zones[1]['c']
        self.assertEqual('cells', cells.location)
        np.testing.assert_array_equal(np.arange(6.0).reshape((3, 2, 1), order='F'), np.asarray(cells))

    def test_a_passive_variable_reads_as_zeros_that_take_no_memory(self):
        first, second = self.folder.grid('a.vtk', p=range(24)), self.folder.grid('b.vtk', r=range(24))
        (self.folder.path / 'both.series').write_text('{"file-series-version": "1.0", "files": [{"name": "%s", "time": 0}, '
                                                      '{"name": "%s", "time": 1}]}' % (first.name, second.name))
        data = veldraw.open(self.folder.path / 'both.series', defer='never')
        values = data.zones[2]['p']
        self.assertTrue(values.is_passive)
        self.assertEqual((4, 3, 2), np.asarray(values).shape)
        self.assertEqual(0, values.max())
        self.refused(lambda: data.zones[2].writing('p').__enter__(), 'passive')


class OnDemand(Values):
    def test_values_are_loaded_when_they_are_touched(self):
        path = write_raw_image(self.folder.path, 'image', (5, 4, 3), np.arange(60).reshape((5, 4, 3), order='F'))
        values = veldraw.open(path, defer='always').zones[1][4]
        self.assertFalse(values.is_loaded)
        self.assertEqual(((5, 4, 3), np.dtype('f4')), (values.shape, values.dtype))
        self.assertFalse(values.is_loaded)
        self.assertEqual(59, values[4, 3, 2])
        self.assertTrue(values.is_loaded)

    def test_a_thousand_million_values_cost_nothing_until_they_are_touched(self):
        path = write_raw_image(self.folder.path, 'large', (1000, 1000, 1000))
        before = loaded_memory()
        values = veldraw.open(path, defer='always').zones[1][4]
        self.assertEqual(10 ** 9, values.size)
        array = np.asarray(values)
        self.assertEqual((1000, 1000, 1000), array.shape)
        self.assertLess(loaded_memory() - before, 100e6)
        self.assertEqual(0, array[999, 999, 999])
        self.assertLess(loaded_memory() - before, 100e6)

    def test_a_file_that_has_gone_is_told_when_its_values_are_touched(self):
        path = write_raw_image(self.folder.path, 'image', (5, 4, 3), np.zeros((5, 4, 3)))
        values = veldraw.open(path, defer='always').zones[1][4]
        os.remove(path.with_suffix('.raw'))
        self.refused(lambda: values[0, 0, 0], 'image.raw')


class Writing(Values):
    def test_what_is_written_is_one_step(self):
        with self.zone.writing('q') as values:
            values *= 2
            values[0, 0, 0] = -7
        wanted = 2 * self.squares
        wanted[0, 0, 0] = -7
        np.testing.assert_array_equal(wanted, np.asarray(self.zone['q']))
        self.assertEqual((-7, 2 * 529), self.zone['q'].range)
        veldraw.undo()
        np.testing.assert_array_equal(self.squares, np.asarray(self.zone['q']))
        self.assertEqual((0, 529), self.zone['q'].range)
        veldraw.redo()
        np.testing.assert_array_equal(wanted, np.asarray(self.zone['q']))
        veldraw.undo()
        self.refused(veldraw.undo, 'nothing to undo')

    def test_nothing_is_seen_of_it_before_the_end(self):
        with self.zone.writing('q') as values:
            values[...] = 0
            np.testing.assert_array_equal(self.squares, np.asarray(self.zone['q']))

    def test_an_exception_leaves_everything_as_it_was(self):
        with self.assertRaises(ZeroDivisionError):
            with self.zone.writing('q') as values:
                values[...] = 1 / 0
        np.testing.assert_array_equal(self.squares, np.asarray(self.zone['q']))
        self.refused(veldraw.undo, 'nothing to undo')

    def test_the_same_values_are_no_step(self):
        with self.zone.writing('q') as values:
            values[...] = self.squares
        self.refused(veldraw.undo, 'nothing to undo')

    def test_after_the_end_nobody_writes_to_the_values_any_more(self):
        with self.zone.writing('q') as values:
            values[0, 0, 0] = 4
            part = values[:2]
        with self.assertRaises(ValueError):
            values[0, 0, 0] = 5
        part[...] = 9
        self.assertEqual(4, self.zone['q'][0, 0, 0])

    def test_zones_that_share_the_values_keep_theirs_or_get_the_new_ones(self):
        veldraw.duplicate_zones(zones=1)
        other = self.data.zones[2]
        with self.zone.writing('q', shared=True) as values:
            values[...] = 1
        self.assertEqual((1, 2), (other['q'].max(), other['q'].share_count))
        with self.zone.writing('q') as values:
            values[...] = 2
        self.assertEqual((1, 1), (other['q'].max(), other['q'].share_count))
        veldraw.undo()
        self.assertEqual((1, 2), (self.zone['q'].max(), other['q'].share_count))

    def test_a_zone_that_goes_meanwhile_takes_nothing(self):
        veldraw.duplicate_zones(zones=1)
        def write():
            with self.data.zones[2].writing('q') as values:
                values[...] = 3
                veldraw.undo()
        self.refused(write, 'not in its data set any more')
        np.testing.assert_array_equal(self.squares, np.asarray(self.zone['q']))


if __name__ == '__main__':
    unittest.main()
