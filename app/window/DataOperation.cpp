#include "app/window/DataOperation.h"

#include "dialogs/datasetinfo/DataSetInfoDialog.h"
#include "dialogs/fourier/FourierTransformDialog.h"
#include "dialogs/interpolation/InverseDistanceInterpolationDialog.h"
#include "dialogs/interpolation/KrigingDialog.h"
#include "dialogs/interpolation/LinearInterpDialog.h"
#include "dialogs/smoothing/SmoothDialog.h"
#include "dialogs/smoothing/TriangulateDialog.h"
#include "dialogs/spreadsheet/DataSpreadsheetDialog.h"
#include "dialogs/variableops/DeleteVariableDialog.h"
#include "dialogs/variableops/LoadVariablesDialog.h"
#include "dialogs/zoneops/AxialDuplicationDialog.h"
#include "dialogs/zoneops/AxialRotationDialog.h"
#include "dialogs/zoneops/CreateMirrorZoneDialog.h"
#include "dialogs/zoneops/DuplicateZoneDialog.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

namespace veldraw::app {

namespace {

template <typename Dialog>
DialogInterface& dialog(QWidget& parent)
{
    return Dialog::getInstance(parent);
}

DialogInterface& fourierTransformDialog(QWidget& parent)
{
    return dialogs::data::FourierTransformDialog::instance(parent);
}

// The menu has no zone in mind; the user chooses one in the dialog.
DialogInterface& loadVariablesDialog(QWidget& parent)
{
    std::vector<int> const zones = sdk::getEnabledZones().members();
    return dialogs::data::LoadVariablesDialog::getInstance(parent, zones.empty() ? 1 : zones.front());
}

} // namespace

std::vector<DataOperation> const& dataOperations()
{
    using namespace dialogs::data;
    using sdk::ui::dialogs::DataSpreadsheetDialog;
    static std::vector<DataOperation> const operations{
        {"axialDuplicationAction", "&Axial Duplication...", &AxialDuplicationDialog::relevance,
         &dialog<AxialDuplicationDialog>},
        {"axialRotationAction", "Axial &Rotation...", &AxialRotationDialog::relevance, &dialog<AxialRotationDialog>},
        {"createMirrorZoneAction", "Create &Mirror Zone...", &CreateMirrorZoneDialog::relevance,
         &dialog<CreateMirrorZoneDialog>},
        {"duplicateZoneAction", "Create D&uplicate Zone...", &DuplicateZoneDialog::relevance,
         &dialog<DuplicateZoneDialog>},
        {"deleteVariableAction", "&Delete Variable...", &DeleteVariableDialog::relevance,
         &dialog<DeleteVariableDialog>},
        {"loadVariableAction", "&Load Variable...", &LoadVariablesDialog::relevance, &loadVariablesDialog},
        {"inverseDistanceInterpolationAction", "&Inverse-Distance Interpolation...",
         &InverseDistanceInterpolationDialog::relevance, &dialog<InverseDistanceInterpolationDialog>},
        {"krigingAction", "&Kriging...", &KrigingDialog::relevance, &dialog<KrigingDialog>},
        {"linearInterpolationAction", "Linear I&nterpolation...", &LinearInterpDialog::relevance,
         &dialog<LinearInterpDialog>},
        {"triangulateAction", "2D &Triangulation...", &TriangulateDialog::relevance, &dialog<TriangulateDialog>},
        {"smoothAction", "Sm&ooth...", &SmoothDialog::relevance, &dialog<SmoothDialog>},
        {"fourierTransformAction", "Discrete &Fourier Transform...", &FourierTransformDialog::relevance,
         &fourierTransformDialog},
        {"dataSpreadsheetAction", "Data &Spreadsheet...", &DataSpreadsheetDialog::relevance,
         &dialog<DataSpreadsheetDialog>},
        {"dataSetInfoAction", "Data S&et Information...", &DataSetInfoDialog::relevance, &dialog<DataSetInfoDialog>},
    };
    return operations;
}

} // namespace veldraw::app
