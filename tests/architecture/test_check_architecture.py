#!/usr/bin/env python3
"""Proves that the architecture check finds what it is there for."""
import unittest

import check_architecture


def quoted(name):
    return f'#pragma once\n#include "{name}"\n'


def angled(name):
    return f'#include <{name}>\n'


class Includes(unittest.TestCase):
    def refused(self, path, text):
        found = list(check_architecture.check_includes(path, text))
        self.assertEqual(len(found), 1, f'{path} may include {text}')
        self.assertTrue(found[0].startswith(path + ':'), found[0])

    def allowed(self, path, text):
        self.assertEqual(list(check_architecture.check_includes(path, text)), [])

    def test_platform_includes_itself_the_standard_library_and_boost(self):
        path = 'platform/vdtoolbox/Set.h'
        self.allowed(path, quoted('platform/PlatformApi.h') + angled('vector') + angled('boost/function.hpp'))
        for name in ('kernel/data/Zone.h', 'host/IdleHold.h', 'dialogs/property/Property.h', 'app/Application.h'):
            self.refused(path, quoted(name))
        self.refused(path, angled('QString'))

    def test_kernel_includes_the_kernel_functions_and_no_qt(self):
        path = 'kernel/session/Session.cpp'
        self.allowed(path, quoted('platform/vdsdkbase/VelUtilTypes.h') + quoted('platform/PlatformApi.h') +
                     quoted('kernel/data/Zone.h') + angled('fftw3.h') + angled('Eigen/Dense'))
        for name in ('platform/vdtoolbox/Set.h', 'host/IdleHold.h', 'dialogs/property/Property.h', 'app/Application.h'):
            self.refused(path, quoted(name))
        self.refused(path, angled('QString'))
        self.refused(path, angled('QtCore/QString'))
        self.refused(path, angled('vtkDataSet.h'))

    def test_rooms_of_the_kernel_include_what_is_before_them(self):
        rooms = check_architecture.KERNEL_ROOMS
        for place, room in enumerate(rooms):
            for target_place, target in enumerate(rooms):
                check = self.allowed if target_place <= place else self.refused
                check(f'kernel/{room}/File.cpp', quoted(f'kernel/{target}/Other.h'))

    def test_every_folder_of_the_kernel_has_its_place_in_the_order(self):
        self.refused('kernel/attic/File.cpp', quoted('kernel/base/Progress.h'))
        self.refused('kernel/api/File.cpp', quoted('kernel/attic/Other.h'))

    def test_the_dialog_library_never_includes_what_implements_the_platform(self):
        for part in ('property', 'models', 'widgets', 'bindings', 'frame', 'zoneops', 'spreadsheet'):
            for name in ('host/IdleHold.h', 'kernel/data/Zone.h', 'app/Application.h'):
                self.refused(f'dialogs/{part}/File.cpp', quoted(name))

    def test_properties_know_no_qt_and_no_models(self):
        path = 'dialogs/property/Property.h'
        self.allowed(path, quoted('platform/vdsdkcommon/AppLock.h') + quoted('dialogs/property/DialogsApi.h'))
        for name in ('dialogs/models/ListModel.h', 'dialogs/bindings/Binding.h', 'dialogs/zoneops/Dialog.h'):
            self.refused(path, quoted(name))
        self.refused(path, angled('QString'))

    def test_models_know_qt_core_alone(self):
        path = 'dialogs/models/QListModel.h'
        self.allowed(path, quoted('dialogs/property/Property.h') + angled('QAbstractListModel') + angled('QVariant'))
        self.refused(path, angled('QWidget'))
        self.refused(path, angled('QtWidgets/QComboBox'))
        self.refused(path, quoted('dialogs/widgets/SpinBox.h'))

    def test_widgets_know_qt_alone(self):
        path = 'dialogs/widgets/SpinBox.h'
        self.allowed(path, angled('QSpinBox') + quoted('dialogs/property/DialogsApi.h'))
        self.refused(path, quoted('dialogs/property/Property.h'))
        self.refused(path, quoted('platform/vdsdkcommon/AppLock.h'))

    def test_bindings_do_not_know_the_frame(self):
        path = 'dialogs/bindings/ComboBoxBinding.cpp'
        for part in ('property', 'models', 'widgets'):
            self.allowed(path, quoted(f'dialogs/{part}/File.h'))
        self.refused(path, quoted('dialogs/frame/QtDialogAbstract.h'))

    def test_the_frame_does_not_know_models(self):
        path = 'dialogs/frame/QtDialogAbstract.cpp'
        self.allowed(path, quoted('dialogs/bindings/Binding.h') + quoted('dialogs/property/Relevance.h'))
        self.refused(path, quoted('dialogs/models/ListModel.h'))

    def test_dialog_folders_know_the_framework_and_not_one_another(self):
        path = 'dialogs/zoneops/MirrorDialog.cpp'
        for part in ('property', 'models', 'widgets', 'bindings', 'frame', 'zoneops'):
            self.allowed(path, quoted(f'dialogs/{part}/File.h'))
        self.allowed(path, quoted('ui_MirrorDialog.h'))
        self.refused(path, quoted('dialogs/variableops/File.h'))
        self.refused('dialogs/variableops/File.cpp', quoted('dialogs/spreadsheet/File.h'))

    def test_what_shows_data_knows_the_variable_operations(self):
        for folder in ('spreadsheet', 'datasetinfo'):
            self.allowed(f'dialogs/{folder}/File.cpp', quoted('dialogs/variableops/LoadVariables.h'))
            self.refused(f'dialogs/{folder}/File.cpp', quoted('dialogs/zoneops/File.h'))

    def test_forms_belong_to_dialog_folders(self):
        self.refused('dialogs/bindings/Binding.cpp', quoted('ui_MirrorDialog.h'))

    def test_operations_know_platform_and_kernel_alone(self):
        path = 'operations/entries/ZoneEntries.cpp'
        self.allowed(path, quoted('platform/vdtoolbox/Set.h') + quoted('kernel/session/Session.h') + quoted('operations/Command.h'))
        for name in ('dialogs/property/Property.h', 'host/IdleHold.h', 'app/Application.h'):
            self.refused(path, quoted(name))
        self.refused(path, angled('QString'))
        self.refused('kernel/session/Session.cpp', quoted('operations/Command.h'))
        self.refused('host/IdleQueue.cpp', quoted('operations/Command.h'))

    def test_the_python_module_knows_operations_and_files_and_no_window(self):
        path = 'python/Module.cpp'
        self.allowed(path, quoted('operations/Registry.h') + quoted('kernel/data/Zone.h') + quoted('app/commands/DataFiles.h') +
                     quoted('app/import/child/ReaderProcess.h') + angled('pybind11/pybind11.h') + angled('QString'))
        for name in ('dialogs/property/Property.h', 'host/IdleHold.h', 'app/window/MainWindow.h', 'app/commandline/BatchRun.h'):
            self.refused(path, quoted(name))
        self.refused(path, angled('QWidget'))
        for other in ('operations/Registry.cpp', 'app/commands/DataFiles.cpp'):
            self.refused(other, quoted('python/Failure.h'))
            self.refused(other, angled('pybind11/pybind11.h'))

    def test_the_host_knows_platform_kernel_and_qt(self):
        path = 'host/IdleQueue.cpp'
        self.allowed(path, quoted('platform/vdtoolbox/Set.h') + quoted('kernel/data/Zone.h') + angled('QTimer'))
        for name in ('dialogs/property/Property.h', 'app/Application.h'):
            self.refused(path, quoted(name))
        self.refused(path, angled('vtkDataSet.h'))

    def test_the_application_knows_all_but_tests(self):
        path = 'app/window/MainWindow.cpp'
        self.allowed(path, angled('vtkRenderer.h') + angled('QVTKOpenGLNativeWidget.h') + quoted('host/MessageLog.h') +
                     quoted('dialogs/frame/DialogInterface.h') + quoted('kernel/session/Session.h'))
        self.refused(path, quoted('tests/support/KernelSpy.h'))

    def test_headers_that_nobody_knows_are_refused(self):
        for path in ('kernel/base/Parallel.cpp', 'app/plot/PageView.cpp', 'host/IdleQueue.cpp'):
            self.allowed(path, angled('vector') + angled('sys/mman.h'))
            for name in ('tbb/tbb.h', 'glib.h', 'xml.h', 'vectors'):
                self.refused(path, angled(name))

    def test_paths_start_at_the_root_of_the_project(self):
        self.refused('host/IdleQueue.cpp', quoted('IdleQueue.h'))
        self.refused('host/IdleQueue.cpp', quoted('../kernel/data/Zone.h'))

    def test_odd_spelling_is_no_way_round(self):
        self.refused('kernel/data/Zone.cpp', '  #  include   "host/IdleHold.h" // needed\n')
        self.refused('kernel/data/Zone.cpp', '#include <host/IdleHold.h>\n')


class FileRooms(unittest.TestCase):
    def problems(self, path, text):
        return list(check_architecture.check_file_rooms(path, text))

    def refused(self, path, name):
        self.assertEqual(len(self.problems(path, quoted(name))), 1, f'{path} may include {name}')

    def allowed(self, path, name):
        self.assertEqual(self.problems(path, quoted(name)), [])

    def test_include_what_is_below_them(self):
        self.allowed('app/import/reading/Reader.h', 'app/import/zones/ImportedZone.h')
        self.allowed('app/import/zones/ImportedZone.h', 'kernel/data/Zone.h')
        self.refused('app/import/zones/ImportedZone.h', 'app/import/reading/Reader.h')
        self.refused('app/files/FileStamp.h', 'app/import/raw/RawArray.h')
        self.refused('app/import/Importer.cpp', 'app/export/Exporter.h')
        self.allowed('app/export/writing/Writer.cpp', 'app/files/PathChecks.h')

    def test_include_both_what_is_said_to_the_reader(self):
        self.allowed('app/import/child/ReadingChild.h', 'app/handover/Channel.h')
        self.refused('app/handover/Channel.h', 'app/files/FileStamp.h')

    def test_need_neither_windows_nor_dialogs(self):
        for name in ('app/window/MainWindow.h', 'app/plot/PageView.h', 'host/MessageLog.h', 'dialogs/property/Property.h'):
            self.refused('app/import/Importer.cpp', name)

    def test_a_format_uses_what_readers_share_and_no_other_format(self):
        path = 'app/import/formats/new/NewReader.cpp'
        self.allowed(path, 'app/import/formats/new/NewHeader.h')
        self.allowed(path, 'app/import/reading/Reader.h')
        self.refused(path, 'app/import/formats/table/CsvReader.h')
        self.refused(path, 'app/import/Importer.h')
        self.allowed('app/import/formats/vtklegacy/VtkLegacyReader.cpp', 'app/import/formats/vtkxml/VtkXmlReader.h')
        self.refused('app/import/formats/vtkxml/VtkXmlReader.cpp', 'app/import/formats/vtklegacy/VtkLegacyReader.h')

    def test_only_the_tables_know_formats(self):
        self.allowed('app/import/ReadableFormats.cpp', 'app/import/formats/table/TableReader.h')
        self.refused('app/import/Importer.cpp', 'app/import/formats/table/TableReader.h')
        self.refused('app/export/WritableFormats.cpp', 'app/window/MainWindow.h')

    def test_are_all_listed(self):
        self.assertEqual(len(self.problems('app/import/odds/Ends.h', '#pragma once\n')), 1)
        self.assertEqual(self.problems('app/import/formats/new/Ends.h', '#pragma once\n'), [])
        self.assertEqual(self.problems('app/window/Ends.h', quoted('app/import/odds/Ends.h')), [])


class Reader(unittest.TestCase):
    def problems(self, path, included):
        return list(check_architecture.check_reader(path, quoted(included)))

    def test_includes_little_of_ours(self):
        for name in ('app/reader/Sandbox.h', 'app/handover/Channel.h', 'app/files/ImportError.h', 'app/vtk/VtkErrorCapture.h'):
            self.assertEqual(self.problems('app/reader/main.cpp', name), [])
        for name in ('kernel/data/Zone.h', 'app/import/raw/RawType.h', 'host/MessageLog.h'):
            self.assertEqual(len(self.problems('app/reader/main.cpp', name)), 1)

    def test_is_included_by_nobody(self):
        self.assertEqual(len(self.problems('app/import/Importer.cpp', 'app/reader/Sandbox.h')), 1)


class PartsOfTheApplication(unittest.TestCase):
    def problems(self, path, included):
        return list(check_architecture.check_app_parts(path, quoted(included)))

    def test_include_what_is_before_them(self):
        parts = check_architecture.APP_PARTS
        for place, part in enumerate(parts):
            for target_place, target in enumerate(parts):
                self.assertEqual(len(self.problems(f'{part}/File.cpp', f'{target}/Other.h')), 0 if target_place <= place else 1)

    def test_are_free_beside_that(self):
        self.assertEqual(self.problems('app/plot/File.cpp', 'app/vtk/CellShapes.h'), [])
        self.assertEqual(self.problems('app/main.cpp', 'app/commandline/Program.h'), [])


class NumericalLibraries(unittest.TestCase):
    def problems(self, path, text):
        return list(check_architecture.check_numerics(path, text))

    def test_are_used_by_their_own_sources(self):
        for library, header in (('CGAL', 'CGAL/Triangulation_2.h'), ('Eigen', 'Eigen/Dense'), ('FFTW', 'fftw3.h'),
                                ('OpenMP', 'omp.h')):
            for path in check_architecture.NUMERICS[library]:
                self.assertEqual(self.problems(path, angled(header)), [])
            self.assertEqual(len(self.problems('kernel/mesh/CellMap.cpp', angled(header))), 1)

    def test_are_not_used_by_pragmas(self):
        for text in ('#pragma omp parallel for\n', '    #  pragma omp simd\n', '_Pragma("omp simd")\n'):
            self.assertEqual(len(self.problems('kernel/mesh/CellMap.cpp', text)), 1, text)
        self.assertEqual(self.problems('kernel/mesh/CellMap.cpp', '#pragma once\n// omp\n'), [])

    def test_are_in_the_table_while_their_sources_exist(self):
        sources = {path: '' for paths in check_architecture.NUMERICS.values() for path in paths}
        self.assertEqual(list(check_architecture.check_users_of_numerics(sources)), [])
        self.assertEqual(len(list(check_architecture.check_users_of_numerics({}))), len(sources))


class KernelFunctions(unittest.TestCase):
    @staticmethod
    def declarations(count):
        return ''.join(f'/// A function. See VelUtilOther(int);\nVELDRAW_PLATFORM_API int VelUtilF{n}(int a,\n  int b);\n'
                       for n in range(count))

    def problems(self, text):
        return list(check_architecture.check_kernel_functions({'platform/vdsdkbase/VelUtilTest.h': text}))

    def test_are_as_many_as_is_stated(self):
        count = check_architecture.KERNEL_FUNCTIONS
        self.assertEqual(self.problems(self.declarations(count)), [])
        self.assertEqual(len(self.problems(self.declarations(count - 1))), 1)
        self.assertEqual(len(self.problems(self.declarations(count + 1))), 1)

    def test_are_declared_once(self):
        twice = self.declarations(check_architecture.KERNEL_FUNCTIONS) + 'int VelUtilF0(int a, int b);\n'
        self.assertEqual(len(self.problems(twice)), 1)


class ClassNames(unittest.TestCase):
    def problems(self, path, text):
        return list(check_architecture.check_class_name(path, text))

    def test_are_the_names_of_their_files(self):
        text = 'namespace a {\nclass Other;\nclass VELDRAW_PLATFORM_API Thing final : public Base\n{\n    int f();\n};\n}\n'
        self.assertEqual(self.problems('host/Thing.h', text), [])
        self.assertEqual(len(self.problems('host/Else.h', text)), 1)
        template = 'template <typename T>\nclass Thing : public Base<T>\n{\n};\n'
        self.assertEqual(len(self.problems('host/Else.h', template)), 1)

    def test_are_free_where_a_header_declares_functions(self):
        text = 'struct Piece\n{\n};\n\nstd::vector<Piece> piecesOf(int n);\n'
        self.assertEqual(self.problems('app/import/Pieces.h', text), [])


if __name__ == '__main__':
    unittest.main()
