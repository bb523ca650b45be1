#!/usr/bin/env python3
"""Proves that the check of tests finds what it is there for."""
import pathlib
import unittest

import check_tests

NAMESPACE = 'namespace veldraw::tests {\n\n'
TEXT = NAMESPACE + 'TEST(Rotation, Turns)\n{\n}\n'


def problems(path, text=TEXT):
    named_otherwise = {name: TEXT for name in check_tests.NAMED_OTHERWISE}
    rooms = {pathlib.PurePosixPath(name).parent.relative_to('tests') / 'Any.h' for name in named_otherwise}
    code = {str(name): '' for name in rooms} | {'kernel/compute/Rotation.h': '', 'kernel/compute/VolumeAbstract.h': ''}
    code |= {'dialogs/zoneops/CutZoneDialog.ui': ''}
    return check_tests.problems({**named_otherwise, **code, path: text})


class Tests(unittest.TestCase):
    def found(self, path, text=TEXT):
        found = problems(path, text)
        self.assertEqual(len(found), 1, found)
        self.assertTrue(found[0].startswith(path + ':'), found[0])

    def test_stand_where_the_code_stands_and_are_named_after_it(self):
        for name in ('RotationTest', 'RotationManyPointsTest', 'VolumeTest', 'VolumeAbstractTest'):
            self.assertEqual(problems(f'tests/kernel/compute/{name}.cpp'), [])

    def test_of_dialogs_are_named_after_dialog_or_manager(self):
        for name in ('CutZoneTest', 'CutZoneDialogTest', 'CutZoneLifecycleTest'):
            self.assertEqual(problems(f'tests/dialogs/zoneops/{name}.cpp'), [])
        self.found('tests/dialogs/zoneops/CuttingTest.cpp')

    def test_of_a_whole_library_have_names_of_their_own(self):
        self.assertEqual(problems('tests/dialogs/library/ExportedTest.cpp'), [])

    def test_are_not_named_after_what_is_elsewhere(self):
        self.found('tests/kernel/compute/ZoneTest.cpp')
        self.found('tests/kernel/compute/Rotation.cpp')

    def test_are_not_in_folders_of_their_own(self):
        self.found('tests/kernel/spin/Helper.h', NAMESPACE)
        self.assertEqual(len(problems('tests/kernel/spin/RotationTest.cpp')), 2)
        self.assertEqual(problems('tests/kernel/support/Helper.h', NAMESPACE), [])

    def test_have_one_namespace(self):
        path = 'tests/kernel/compute/RotationTest.cpp'
        self.found(path, TEXT.replace('veldraw::tests', 'veldraw::test'))
        self.found(path, TEXT.replace('veldraw::tests', 'veldraw::kernel'))
        self.found(path, TEXT.replace(NAMESPACE, ''))
        self.found('tests/manual/Window.cpp', NAMESPACE.replace('veldraw::tests', 'veldraw::gallery'))

    def test_programs_have_one_suffix(self):
        path = 'tests/kernel/CMakeLists.txt'
        self.assertEqual(problems(path, 'veldraw_add_test(kernel_test SOURCES RotationTest.cpp)'), [])
        self.found(path, 'veldraw_add_test(kernel_tests SOURCES RotationTest.cpp)')

    def test_carry_out_each_operation_without_memory(self):
        operations = {
            'kernel/operations/ZoneOperation.h':
                'class ZoneOperation : public Operation\n{\nprotected:\n    explicit ZoneOperation(int zone);\n};\n',
            'kernel/operations/CutZone.h': 'class CutZone : public ZoneOperation\n{\npublic:\n    explicit CutZone(int zone);\n};\n',
            'kernel/operations/Part.h': 'class Part : public Change\n{\npublic:\n    Part();\n};\n'}
        named = {name: TEXT for name in check_tests.NAMED_OTHERWISE}
        sweep = {check_tests.MEMORY_SWEEP: ''}
        self.assertIn(f'{check_tests.MEMORY_SWEEP}: does not carry out CutZone', check_tests.problems({**named, **operations, **sweep}))
        sweep[check_tests.MEMORY_SWEEP] = 'session.perform(\n    CutZone(1));'
        self.assertEqual(list(check_tests.check_memory_sweep({**operations, **sweep})), [])
        self.assertEqual(check_tests.operations(operations), {'CutZone'})

    def test_of_widgets_are_watched(self):
        path = 'tests/dialogs/zoneops/CutZoneTest.cpp'
        for text in ('QApplication application(argc, argv);', 'QTEST_MAIN(CutZone)'):
            self.found(path, TEXT + text)
        self.assertEqual(list(check_tests.check_watchdog(check_tests.WIDGETS_MAIN, 'QApplication a(argc, argv);')), [])

    def test_are_in_the_list_of_names_while_they_exist(self):
        self.assertEqual(len(check_tests.problems({})), len(check_tests.NAMED_OTHERWISE))


if __name__ == '__main__':
    unittest.main()
