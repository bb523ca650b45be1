#pragma once

#include "dialogs/interpolation/KrigingDialog.h"
#include "dialogs/interpolation/KrigingPropertiesManager.h"
#include "tests/dialogs/interpolation/InterpolationFixture.h"

namespace veldraw::tests {

using dialogs::data::KrigingPropertiesManager;

inline DialogTraits kriging()
{
    auto traits = DialogTraits::of<dialogs::data::KrigingDialog>();
    traits.list = "krigingDlg_SourceZone_ListView";
    traits.action = "&Interpolate";
    traits.helpTopic = "interpolate_kriging.html";
    traits.plotType = PlotType_Cartesian2D;
    traits.actionNeedsSelection = true;
    traits.selectMore = [](QDialog& dialog) {
        QTest::keyClick(dialog.findChild<QListView*>(QStringLiteral("krigingDlg_Variables_ListView")), Qt::Key_A,
                        Qt::ControlModifier);
        QTest::keyClick(dialog.findChild<QComboBox*>(QStringLiteral("krigingDlg_DestZone_ComboBox")), Qt::Key_End);
    };
    traits.boundInOrder = {"krigingDlg_SourceZone_ListView", "krigingDlg_Variables_ListView",
                           "krigingDlg_DestZone_ComboBox", "krigingDlg_PointSelection_ComboBox",
                           "krigingDlg_Drift_ComboBox"};
    return traits;
}

/// The dialog with its settings, which outlive every dialog, as they are at first.
class KrigingFixture : public InterpolationFixture
{
protected:
    static constexpr char kernelFunction[] = "VelUtilKrig";
    static constexpr char failed[] = "error: Error processing kriging interpolation";
    static constexpr char done[] = "information: Kriging interpolation successful.";
    static constexpr char variables[] = "krigingDlg_Variables_ListView";
    static constexpr char destination[] = "krigingDlg_DestZone_ComboBox";
    static constexpr char range[] = "krigingDlg_Range_LineEdit";
    static constexpr char zeroValue[] = "krigingDlg_ZeroValue_LineEdit";
    static constexpr char drift[] = "krigingDlg_Drift_ComboBox";
    static constexpr char pointSelection[] = "krigingDlg_PointSelection_ComboBox";
    static constexpr char numberOfPoints[] = "krigingDlg_NumOfPoints_LineEdit";

    KrigingFixture()
        : InterpolationFixture(kriging())
    {
        resetSettings();
    }
    ~KrigingFixture() override { resetSettings(); }

    static void resetSettings()
    {
        KrigingPropertiesManager::krigRange()->setValue(0.3);
        KrigingPropertiesManager::krigZeroValue()->setValue(0.0);
        KrigingPropertiesManager::krigDrift()->setValue(Drift_Linear);
        KrigingPropertiesManager::krigPtSelection()->setValue(PtSelection_Octant);
        KrigingPropertiesManager::krigNumPoints()->setValue(8);
    }
};

} // namespace veldraw::tests
