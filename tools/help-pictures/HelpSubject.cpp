#include "tools/help-pictures/HelpSubject.h"

#include "platform/vdtoolbox/AuxData.h"

#include <QAbstractButton>
#include <QDialog>
#include <QListView>
#include <QTabBar>
#include <QTabWidget>

namespace veldraw::app {

using tests::UserDriver;

namespace {

template <typename Widget>
Widget& child(QDialog& dialog, char const* name)
{
    auto* const found = dialog.findChild<Widget*>(QLatin1String(name));
    if (!found)
        qFatal("the dialog has no \"%s\"", name);
    return *found;
}

// Radio buttons take clicks on their mark and text, which need not reach the middle.
void turnOn(QDialog& dialog, UserDriver& user, char const* name)
{
    auto& button = child<QAbstractButton>(dialog, name);
    user.click(button, QPoint(8, button.height() / 2));
}

void enterNumber(QDialog& dialog, UserDriver& user, char const* name, char const* number)
{
    child<QWidget>(dialog, name).setFocus();
    user.key(Qt::Key_A, Qt::ControlModifier);
    user.type(QString::fromLatin1(number));
    user.key(Qt::Key_Tab);
}

void selectFirstZone(QDialog& dialog, UserDriver& user, char const* list)
{
    user.clickRow(child<QListView>(dialog, list), 0);
}

void enterDuplicate(QDialog& dialog, UserDriver& user)
{
    selectFirstZone(dialog, user, "duplicateZone_Source_MList");
}

void enterMirror(QDialog& dialog, UserDriver& user)
{
    selectFirstZone(dialog, user, "createMirrorZone_Source_MList");
    turnOn(dialog, user, "createMirrorZone_Axis3DYZ_RadioButton");
}

void enterRotation(QDialog& dialog, UserDriver& user)
{
    selectFirstZone(dialog, user, "zoneList");
    enterNumber(dialog, user, "angle_spinBox", "30");
}

void enterAxialDuplication(QDialog& dialog, UserDriver& user)
{
    selectFirstZone(dialog, user, "zoneList");
    turnOn(dialog, user, "fullRotation_radioButton");
    enterNumber(dialog, user, "numberOfSegments", "6");
}

// As narrow as it can be, so that the picture fits into the page.
void showTable(QDialog& dialog, UserDriver& user)
{
    dialog.resize(dialog.minimumSizeHint().width(), 330);
    user.settle();
    child<QWidget>(dialog, "dataSpreadsheet_Array_TableView").setFocus();
    user.key(Qt::Key_Home, Qt::ControlModifier);
}

void showLastRow(QDialog& dialog, UserDriver& user)
{
    showTable(dialog, user);
    user.key(Qt::Key_End, Qt::ControlModifier);
}

void selectVariables(QDialog& dialog, UserDriver& user)
{
    auto& list = child<QListView>(dialog, "LoadVariables_Variables_listView");
    user.clickRow(list, 0);
    user.clickRow(list, 2, Qt::ShiftModifier);
}

// The rainfall, which stands behind Z in its list, to the map, which is the last zone.
void enterRainfall(QDialog& dialog, UserDriver& user, char const* sources, char const* variables,
                   char const* destination)
{
    user.clickRow(child<QListView>(dialog, sources), 0);
    user.clickRow(child<QListView>(dialog, variables), 1);
    child<QWidget>(dialog, destination).setFocus();
    user.key(Qt::Key_End);
}

void enterInverseDistance(QDialog& dialog, UserDriver& user)
{
    enterRainfall(dialog, user, "invDistInterp_Source_MList", "invDistInterp_Variable_MList",
                  "invDistInterp_DestZone_CmbBox");
}

void enterKriging(QDialog& dialog, UserDriver& user)
{
    enterRainfall(dialog, user, "krigingDlg_SourceZone_ListView", "krigingDlg_Variables_ListView",
                  "krigingDlg_DestZone_ComboBox");
}

void enterLinear(QDialog& dialog, UserDriver& user)
{
    enterRainfall(dialog, user, "LinearIterp_SourceZones_ListView", "LinearIterp_SourceVariables_ListView",
                  "LinearIterp_DestZone_ComboBox");
    turnOn(dialog, user, "LinearIterp_Constant_RadioButton");
    user.settle();
    enterNumber(dialog, user, "LinearIterp_ConstValue_LineEdit", "10");
}

// The marks and, held in by both lines, the island.
void enterTriangulation(QDialog& dialog, UserDriver& user)
{
    user.clickRow(child<QListView>(dialog, "sourceZonesListView"), 0);
    turnOn(dialog, user, "useBoundaryZonesCheckBox");
    user.settle();
    turnOn(dialog, user, "includeBoundaryPointsCheckBox");
    auto& boundaries = child<QListView>(dialog, "boundaryZonesListView");
    int const last = boundaries.model()->rowCount() - 1;
    user.clickRow(boundaries, last - 1);
    user.clickRow(boundaries, last, Qt::ShiftModifier);
}

// Enough for the quick one of the two tones to go.
void enterSmoothing(QDialog& dialog, UserDriver& user)
{
    enterNumber(dialog, user, "smoothDlg_NumOfPasses_LineEdit", "20");
}

// The signal over the time, both of which come first in their lists.
void enterFourierTransform(QDialog& dialog, UserDriver& user)
{
    user.clickRow(child<QListView>(dialog, "dependentVariablesListView"), 1);
    child<QWidget>(dialog, "windowFunctionComboBox").setFocus();
    user.key(Qt::Key_H);
}

// Narrow enough for the picture to fit into the page.
void goToPage(QDialog& dialog, UserDriver& user, int page)
{
    dialog.resize(560, dialog.sizeHint().height());
    user.settle();
    QTabBar& bar = *child<QTabWidget>(dialog, "dataSetInfoTabWidget").tabBar();
    user.click(bar, bar.tabRect(page).center());
    user.settle();
}

// The displacement along X, which is not loaded.
void showZoneAndVariable(QDialog& dialog, UserDriver& user)
{
    goToPage(dialog, user, 0);
    user.clickRow(child<QListView>(dialog, "selectedVarsList"), 3);
}

void showDataSet(QDialog& dialog, UserDriver& user)
{
    goToPage(dialog, user, 1);
}

// With items as another program leaves them with a zone.
void showAuxData(QDialog& dialog, UserDriver& user)
{
    toolbox::AuxData const plate(AuxDataLocation_Zone, 1);
    plate.setText("Material", "copper", true);
    plate.setText("Source.Power", "80", true);
    plate.setText("Thickness", "0.002", true);
    goToPage(dialog, user, 2);
}

} // namespace

std::vector<HelpSubject> const& helpSubjects()
{
    static std::vector<HelpSubject> const subjects{
        {"axialDuplicationAction", "axial_duplication", "&Duplicate", enterAxialDuplication},
        {"axialRotationAction", "axial_rotation", "&Rotate", enterRotation},
        {"createMirrorZoneAction", "create_zone_mirror", "C&reate", enterMirror},
        {"duplicateZoneAction", "create_zone_duplicate", nullptr, enterDuplicate},
        {"dataSpreadsheetAction", "spreadsheet", nullptr, showTable},
        {"loadVariableAction", "load_variable", nullptr, selectVariables, "tetra.vtu", Deferral::Always},
        {"dataSetInfoAction", "data_set_info_zone_variable_info", nullptr, showZoneAndVariable, "tetra.vtu",
         Deferral::Always},
        {"inverseDistanceInterpolationAction", "interpolate_inverse_distance", "&Interpolate", enterInverseDistance,
         "rainfall.vtm"},
        {"krigingAction", "interpolate_kriging", "&Interpolate", enterKriging, "rainfall.vtm"},
        {"linearInterpolationAction", "interpolate_linear", "&Interpolate", enterLinear, "rainfall.vtm"},
        {"triangulateAction", "triangulate", "&Triangulate", enterTriangulation, "island.vtm"},
        {"smoothAction", "alter_smooth", "&Smooth", enterSmoothing, "timeseries.csv"},
        {"fourierTransformAction", "fourier_transform", "&Transform", enterFourierTransform, "timeseries.csv"},
        {"dataSetInfoAction", "data_set_info_data_set", nullptr, showDataSet, "transient.vtm"},
        {"dataSetInfoAction", "data_set_info_aux_data", nullptr, showAuxData, "transient.vtm"},
        {"dataSpreadsheetAction", "spreadsheet_long", nullptr, showLastRow, "line.mhd"},
    };
    return subjects;
}

} // namespace veldraw::app
