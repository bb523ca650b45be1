"""Zones made of arrays."""
import unittest

import numpy as np
import veldraw

from samples import Folder


def zone_of(arrays, cells=None):
    data = veldraw.from_arrays({'Wing': arrays}, cells={} if cells is None else {'Wing': cells})
    return data.zones['Wing']


class FromArrays(unittest.TestCase):
    def refused(self, arrays, cells, *words):
        before = veldraw.data_set()
        with self.assertRaises(veldraw.Error) as caught:
            zone_of(arrays, cells)
        for word in words:
            self.assertIn(word, str(caught.exception))
        self.assertIs(before, veldraw.data_set())

    def test_an_array_of_three_dimensions_is_a_block(self):
        x, y, z = np.meshgrid(np.arange(4.0), np.arange(3.0), np.arange(2.0), indexing='ij')
        zone = zone_of({'X': x, 'Y': y, 'Z': z, 'p': x + 10 * y + 100 * z})
        self.assertEqual(('ordered', (4, 3, 2)), (zone.kind, zone.shape))
        np.testing.assert_array_equal(x + 10 * y + 100 * z, np.asarray(zone['p']))
        self.assertEqual(123, zone['p'][3, 2, 1])

    def test_arrays_of_any_order_and_stride_are_copied(self):
        p = np.arange(24.0).reshape(4, 6)[::-1, ::2]
        zone = zone_of({'p': p, 'q': np.asfortranarray(p)})
        np.testing.assert_array_equal(p, np.asarray(zone['q']))
        p[...] = 0
        self.assertEqual(22, zone['p'].max())

    def test_values_at_cells_are_told_by_their_shape(self):
        zone = zone_of({'X': np.zeros((4, 3)), 'c': np.arange(6.0).reshape(3, 2)})
        self.assertEqual(('points', 'cells'), (zone['X'].location, zone['c'].location))
        np.testing.assert_array_equal([[0, 1], [2, 3], [4, 5]], np.asarray(zone['c']))

    def test_types_are_kept_where_the_kernel_has_them(self):
        for given, kept in (('f4', 'f4'), ('f8', 'f8'), ('i4', 'i4'), ('i2', 'i2'), ('u1', 'u1'), ('f2', 'f4'), ('i1', 'i2'), ('u2', 'i4'),
                            ('i8', 'f8'), ('u4', 'f8'), ('?', 'u1'), ('>f4', 'f4'), ('>i2', 'i2')):
            zone = zone_of({'p': np.array([0, 1, 100], dtype=given)})
            self.assertEqual(np.dtype(kept), zone['p'].dtype, given)
            self.assertEqual([0, 1, 1 if given == '?' else 100], list(zone['p']))

    def test_cells_are_rows_of_points(self):
        x, y = [0, 1, 1, 0, 2], [0, 0, 1, 1, 0]
        zone = zone_of({'X': x, 'Y': y, 'p': np.ones(5), 'c': np.array([7.0, 8.0])}, ('triangles', [[0, 1, 2], [0, 2, 3]]))
        self.assertEqual(('triangles', 5, 2), (zone.kind, zone.point_count, zone.cell_count))
        self.assertEqual('cells', zone['c'].location)
        path = Folder(self).path / 'wing.vtu'
        veldraw.save(path)
        again = veldraw.open(path).zones[1]
        self.assertEqual(('triangles', 5, 2), (again.kind, again.point_count, again.cell_count))
        self.assertEqual([7, 8], list(again['c']))

    def test_all_kinds_of_cells_are_known(self):
        for kind, corners in (('lines', 2), ('triangles', 3), ('quads', 4), ('tetrahedra', 4), ('bricks', 8)):
            zone = zone_of({'X': np.arange(8.0)}, (kind, np.arange(corners, dtype='u2')[None, :]))
            self.assertEqual((kind, 1), (zone.kind, zone.cell_count))

    def test_several_zones_have_variables_by_name(self):
        data = veldraw.from_arrays({'a': {'X': [0, 1], 'p': [2, 3]}, 'b': {'X': [4, 5, 6], 'q': [7, 8, 9]}}, title='Two')
        self.assertEqual(['X', 'p', 'q'], [variable.name for variable in data.variables])
        self.assertTrue(data.zones['a']['q'].is_passive)
        self.assertEqual('Two', data.title)
        self.assertIs(data, veldraw.data_set())

    def test_operations_work_on_them(self):
        zone = zone_of({'X': [1.0, 2.0], 'Y': [0.0, 0.0]})
        veldraw.mirror_zones(zones=zone, plane='X')
        self.assertEqual([-1, -2], list(veldraw.data_set().zones[2]['X']))

    def test_what_is_open_stays_in_its_frame_if_wanted(self):
        first = veldraw.from_arrays({'a': {'X': [0.0, 1.0]}})
        second = veldraw.from_arrays({'b': {'X': [0.0, 1.0]}}, new_frames=True)
        self.assertEqual([first, second], veldraw.data_sets())

    def test_shapes_that_do_not_fit_are_refused(self):
        self.refused({'X': np.zeros((4, 3)), 'p': np.zeros((3, 4))}, None, '"p" of "Wing"', '(3, 4)', '(4, 3)', '(3, 2)')
        self.refused({'X': np.zeros((2, 2, 2, 2))}, None, '4 dimensions')
        self.refused({'X': 1.0}, None, '0 dimensions')
        self.refused({'X': np.zeros((3, 0))}, None, 'no values')
        self.refused({'X': np.zeros((2, 2))}, ('triangles', [[0, 1, 2]]), 'one dimension')

    def test_types_that_are_no_numbers_or_would_change_are_refused(self):
        self.refused({'X': ['a', 'b']}, None, '"X" of "Wing"', '<U1')
        self.refused({'X': np.zeros(2, 'c16')}, None, 'complex128')
        self.refused({'X': np.array([2 ** 53 + 1, 0])}, None, 'digits')
        self.refused({'X': np.array([2 ** 64 - 1, 0], 'u8')}, None, 'digits')
        self.refused({'X': np.ma.masked_equal([1, 2], 2)}, None, 'masked')

    def test_cells_that_are_wrong_are_refused(self):
        points = {'X': [0.0, 1.0, 2.0]}
        self.refused(points, ('triangles', [[0, 1, 3]]), '0 to 2')
        self.refused(points, ('triangles', [[0, 1, -1]]), '0 to 2')
        self.refused(points, ('triangles', [[0, 1]]), '3 in each row')
        self.refused(points, ('triangles', [[0.0, 1.0, 2.0]]), 'float64')
        self.refused(points, ('wedges', [[0, 1, 2]]), 'wedges', 'tetrahedra')
        self.assertRaises(TypeError, lambda: zone_of(points, 'triangles'))
        with self.assertRaises(veldraw.Error):
            veldraw.from_arrays({'Wing': points}, cells={'Tail': ('lines', [[0, 1]])})
        with self.assertRaises(veldraw.Error):
            veldraw.from_arrays({})


if __name__ == '__main__':
    unittest.main()
