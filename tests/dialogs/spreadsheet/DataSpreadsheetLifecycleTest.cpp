#include "dialogs/models/QListModel.h"
#include "dialogs/spreadsheet/DataSpreadsheetDialog.h"
#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/support/EventsWhileMade.h"

#include <QComboBox>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using sdk::ui::dialogs::propertybindings::models::QListModel;

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

/// A spreadsheet that shows a line, for which no plane can be chosen.
class DataSpreadsheetLifecycleTest : public SpreadsheetDriver
{
protected:
    DataSpreadsheetLifecycleTest()
    {
        stage.addZone("line", ZoneType_Ordered, 4, 1, 1);
        stage.fillAll(1);
        stage.show();
    }
};

TEST_F(DataSpreadsheetLifecycleTest, MakesItsBindingsBeforeItsRules)
{
    bool wasBound = false;
    EventsWhileMade const disabled(
        QStringLiteral("dataSpreadsheet_Plane_ComboBox"), QEvent::EnabledChange, [&wasBound](QWidget& window) {
            auto const* const last =
                window.findChild<QComboBox*>(QStringLiteral("dataSpreadsheet_ValueLocation_ComboBox"));
            wasBound = last && qobject_cast<QListModel const*>(last->model());
        });
    EXPECT_FALSE(widget<QComboBox>("Plane_ComboBox").isEnabled()) << "by a rule";
    EXPECT_TRUE(wasBound);
}

TEST_F(DataSpreadsheetLifecycleTest, EndsItsBindingsBeforeItsRules)
{
    Choices::spreadsheetFormat()->setValue(NumberFormat_Float);
    launched();
    QWidget const& precision = widget<QWidget>("Precision_SpinBox");
    bool isBindingGone = false;
    QObject::connect(widget<QComboBox>("ValueLocation_ComboBox").model(), &QObject::destroyed, &mainWindow, [&] {
        isBindingGone = true;
        EXPECT_TRUE(precision.isEnabled());
        Choices::spreadsheetFormat()->setValue(NumberFormat_Integer);
        IdleDispatcher::flush();
        EXPECT_FALSE(precision.isEnabled()) << "the rule is applied still";
    });
    delete &dialog();
    EXPECT_TRUE(isBindingGone);
}

} // namespace
} // namespace veldraw::tests
