#!/usr/bin/env python3
"""Proves that the check of exported symbols finds what it is there for."""
import unittest

import check_symbols

NM = '''0000000000001000 T veldraw::Property::value() const
0000000000001008 T veldraw::Property::name[abi:cxx11](std::set<int, std::less<int>, std::allocator<int> > const&)
0000000000001010 W veldraw::PropertyAbstract<int>::~PropertyAbstract()
0000000000001010 W veldraw::PropertyAbstract<int>::~PropertyAbstract()
0000000000002000 V vtable for veldraw::Property
0000000000002008 V typeinfo for veldraw::Property
0000000000002010 V typeinfo name for veldraw::Property
0000000000002018 W std::vector<veldraw::Property*, std::allocator<veldraw::Property*> >::push_back(veldraw::Property* const&)
0000000000002020 W void veldraw::Dialog::bind<int>(int)
0000000000002028 T veldraw::Dialog::Impl::setUp()
0000000000002030 u veldraw::Dialog::instance()::dialog
0000000000002038 V vtable for boost::detail::sp_counted_impl_p<veldraw::Property>
'''


class Symbols(unittest.TestCase):
    def test_are_those_of_our_classes_each_once(self):
        self.assertEqual(check_symbols.exported(NM), [
            'veldraw::Property::name(std::set<int> const&)',
            'veldraw::Property::value() const',
            'veldraw::PropertyAbstract<int>::~PropertyAbstract()',
            'vtable for veldraw::Property',
        ])

    def test_are_missed_when_they_are_lost(self):
        self.assertEqual(check_symbols.problems(['veldraw::a()'], ['veldraw::a()', 'veldraw::b()']), ['lost: veldraw::b()'])

    def test_are_told_when_they_are_new(self):
        self.assertEqual(check_symbols.problems(['veldraw::a()'], []), ['not in the list: veldraw::a()'])

    def test_are_fine_when_they_are_the_same(self):
        self.assertEqual(check_symbols.problems(['veldraw::a()'], ['veldraw::a()']), [])


if __name__ == '__main__':
    unittest.main()
