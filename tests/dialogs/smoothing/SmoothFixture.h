#pragma once

#include "dialogs/smoothing/SmoothDialog.h"
#include "dialogs/smoothing/SmoothPropertiesManager.h"
#include "kernel/operations/EnableZone.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/AdditionsToWidgets.h"
#include "tests/dialogs/support/DialogFixture.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <string>
#include <vector>

namespace veldraw::tests {

using dialogs::data::SmoothPropertiesManager;
using sdk::ui::common::IdleDispatcher;

inline DialogTraits smooth()
{
    auto traits = DialogTraits::of<dialogs::data::SmoothDialog>();
    traits.list = "smoothDlg_Zone_ComboBox";
    traits.action = "&Smooth";
    traits.refusal = "error: Error while computing smooth.";
    traits.helpTopic = "alter_smooth.html";
    traits.plotType = PlotType_Cartesian2D;
    traits.isChoiceOfLibrary = true;
    traits.boundInOrder = {"smoothDlg_Boundary_ComboBox", "smoothDlg_Zone_ComboBox", "smoothDlg_Variable_ComboBox"};
    return traits;
}

/// The dialog in a 2D plot with X and Y on the axes, and its settings, which outlive every dialog, as they are at first. The zones
/// Wing and Line are ordered, Body and Tail between them are not. Line has five points, at which P is 0, 0, 1, 0, 0 and T is all 2.
class SmoothFixture : public DialogFixture
{
protected:
    static constexpr char zone[] = "smoothDlg_Zone_ComboBox";
    static constexpr char variable[] = "smoothDlg_Variable_ComboBox";
    static constexpr char passes[] = "smoothDlg_NumOfPasses_LineEdit";
    static constexpr char coefficient[] = "smoothDlg_Coefficent_LineEdit";
    static constexpr char boundary[] = "smoothDlg_Boundary_ComboBox";
    static constexpr char boundaryLabel[] = "smoothDlg_Boundary_Label";

    SmoothFixture()
        : DialogFixture(smooth())
    {
        for (int const number : {2, 3})
            sample.dataSet().zone(number)->type = ZoneType_FETriangle;
        sample.dataSet().addZone(std::make_shared<kernel::Zone>("Line", ZoneType_Ordered, 5, 1, 1));
        setValues(line, 1, {0.0, 1.0, 2.0, 3.0, 4.0});
        setValues(line, 2, {0.0, 0.0, 0.0, 0.0, 0.0});
        setValues(line, 3, bump);
        setValues(line, 4, {2.0, 2.0, 2.0, 2.0, 2.0});
        // Shown once more, now that there is something to assign to the axes.
        sample.session().setFrameDataSet(sample.frame()->id, sample.frame()->dataSet);
        showAs(PlotType_Cartesian2D);
        resetSettings();
    }
    ~SmoothFixture() override { resetSettings(); }

    // An ordered zone takes back what another one may have saved.
    static void resetSettings()
    {
        for (int const number : {4, 1})
            SmoothPropertiesManager::selectedZone()->setValue(number);
        SmoothPropertiesManager::selectedVariable()->setValue(1);
        SmoothPropertiesManager::numberOfPasses()->setValue(1);
        SmoothPropertiesManager::smoothWeight()->setValue(0.5);
        SmoothPropertiesManager::boundaryCondition()->setValue(BoundaryCondition_Fixed);
    }

    void enableZone(int number, bool isEnabled)
    {
        sample.session().perform(kernel::EnableZone(sample.dataSet(), number, isEnabled));
    }

    /// P in the zone Line.
    void selectBump()
    {
        choose(zone, 3);
        choose(variable, 0);
    }

    static constexpr int line = 4;
    std::vector<double> const bump{0.0, 0.0, 1.0, 0.0, 0.0};
    /// After one pass with the coefficient 0.5 and a fixed boundary.
    std::vector<double> const smoothBump{0.0, 0.25, 0.5, 0.25, 0.0};
};

} // namespace veldraw::tests
