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

#include <QWidget>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using dialogs::data::AxialDuplicationDialog;
using dialogs::data::AxialRotationDialog;
using dialogs::data::CreateMirrorZoneDialog;
using dialogs::data::DataSetInfoDialog;
using dialogs::data::DeleteVariableDialog;
using dialogs::data::DuplicateZoneDialog;
using dialogs::data::FourierTransformDialog;
using dialogs::data::InverseDistanceInterpolationDialog;
using dialogs::data::KrigingDialog;
using dialogs::data::LinearInterpDialog;
using dialogs::data::LoadVariablesDialog;
using dialogs::data::SmoothDialog;
using dialogs::data::TriangulateDialog;
using sdk::ui::dialogs::DataSpreadsheetDialog;

/// Drives a dialog as an application does that knows no more of it than its class.
/// @param dialogIn gives the dialog of a window
template <typename Dialog, typename DialogIn>
void expectDrivenThroughTheCommonInterface(DialogIn const& dialogIn)
{
    auto const rule = Dialog::relevance();
    EXPECT_FALSE(rule->isRelevant()) << "no data set is open";
    QWidget window;
    Dialog& instance = dialogIn(window);
    DialogInterface& dialog = instance;
    dialog.launch();
    EXPECT_TRUE(instance.isVisible());
    dialog.updateContent();
    dialog.drop();
    EXPECT_FALSE(instance.isVisible());
    EXPECT_EQ(&dialogIn(window), &instance);
    EXPECT_EQ(Dialog::relevance(), rule);
    EXPECT_TRUE(dynamic_cast<Dialog*>(&dialog));
}

template <typename Dialog, typename... Arguments>
void expectDriven(Arguments... arguments)
{
    expectDrivenThroughTheCommonInterface<Dialog>(
        [=](QWidget& window) -> Dialog& { return Dialog::getInstance(window, arguments...); });
}

TEST(DialogLibrary, GivesTheApplicationItsDialogsThroughTheCommonInterface)
{
    expectDriven<AxialDuplicationDialog>();
    expectDriven<AxialRotationDialog>();
    expectDriven<CreateMirrorZoneDialog>();
    expectDriven<DataSetInfoDialog>();
    expectDriven<DeleteVariableDialog>();
    expectDriven<DuplicateZoneDialog>();
    expectDrivenThroughTheCommonInterface<FourierTransformDialog>(&FourierTransformDialog::instance);
    expectDriven<InverseDistanceInterpolationDialog>();
    expectDriven<KrigingDialog>();
    expectDriven<LinearInterpDialog>();
    expectDriven<LoadVariablesDialog>(1);
    expectDriven<DataSpreadsheetDialog>();
    expectDriven<SmoothDialog>();
    expectDriven<TriangulateDialog>();
}

} // namespace
} // namespace veldraw::tests
