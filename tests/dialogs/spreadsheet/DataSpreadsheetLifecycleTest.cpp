#include "dialogs/spreadsheet/DataSpreadsheetDialog.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"

namespace veldraw::tests {
namespace {

DialogTraits dataSpreadsheet()
{
    auto traits = DialogTraits::of<sdk::ui::dialogs::DataSpreadsheetDialog>();
    traits.list = "dataSpreadsheet_Array_TableView";
    traits.helpTopic = "spreadsheet.html";
    traits.boundInOrder = {"dataSpreadsheet_Zone_ComboBox", "dataSpreadsheet_Variable_ComboBox",
                           "dataSpreadsheet_Plane_ComboBox", "dataSpreadsheet_Format_ComboBox",
                           "dataSpreadsheet_ValueLocation_ComboBox"};
    return traits;
}

INSTANTIATE_TEST_SUITE_P(DataSpreadsheet, DialogLifecycleTest, testing::Values(dataSpreadsheet()));

} // namespace
} // namespace veldraw::tests
