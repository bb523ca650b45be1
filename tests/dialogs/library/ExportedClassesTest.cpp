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
using dialogs::data::DeleteVariableDialog;
using dialogs::data::DuplicateZoneDialog;
using dialogs::data::InverseDistanceInterpolationDialog;
using dialogs::data::KrigingDialog;
using dialogs::data::LinearInterpDialog;
using dialogs::data::LoadVariablesDialog;
using dialogs::data::SmoothDialog;
using dialogs::data::TriangulateDialog;
using sdk::ui::dialogs::DataSpreadsheetDialog;

/// Drives a dialog as an application does that knows no more of it than its class.
template <typename Dialog, typename... Arguments>
void expectDrivenThroughTheCommonInterface(Arguments... arguments)
{
    auto const rule = Dialog::relevance();
    EXPECT_FALSE(rule->isRelevant()) << "no data set is open";
    QWidget window;
    DialogInterface& dialog = Dialog::getInstance(window, arguments...);
    dialog.launch();
    EXPECT_TRUE(Dialog::getInstance(window, arguments...).isVisible());
    dialog.updateContent();
    dialog.drop();
    EXPECT_FALSE(Dialog::getInstance(window, arguments...).isVisible());
    EXPECT_EQ(Dialog::relevance(), rule);
    EXPECT_TRUE(dynamic_cast<Dialog*>(&dialog));
}

TEST(DialogLibrary, GivesTheApplicationItsDialogsThroughTheCommonInterface)
{
    expectDrivenThroughTheCommonInterface<AxialDuplicationDialog>();
    expectDrivenThroughTheCommonInterface<AxialRotationDialog>();
    expectDrivenThroughTheCommonInterface<CreateMirrorZoneDialog>();
    expectDrivenThroughTheCommonInterface<DeleteVariableDialog>();
    expectDrivenThroughTheCommonInterface<DuplicateZoneDialog>();
    expectDrivenThroughTheCommonInterface<InverseDistanceInterpolationDialog>();
    expectDrivenThroughTheCommonInterface<KrigingDialog>();
    expectDrivenThroughTheCommonInterface<LinearInterpDialog>();
    expectDrivenThroughTheCommonInterface<LoadVariablesDialog>(1);
    expectDrivenThroughTheCommonInterface<DataSpreadsheetDialog>();
    expectDrivenThroughTheCommonInterface<SmoothDialog>();
    expectDrivenThroughTheCommonInterface<TriangulateDialog>();
}

} // namespace
} // namespace veldraw::tests
