#pragma once

#include "dialogs/fourier/FourierTransformDialog.h"
#include "dialogs/fourier/FourierTransformPropertiesManager.h"
#include "kernel/operations/EnableZone.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/DialogFixture.h"

#include <QDialogButtonBox>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <cmath>
#include <string>
#include <vector>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;
using sdk::ui::propertymanager::FourierTransformPropertiesManager;

inline DialogTraits fourierTransform()
{
    using dialogs::data::FourierTransformDialog;
    DialogTraits traits;
    traits.instance = [](QWidget& parent) -> dialogs::common::QtDialogAbstract& {
        return FourierTransformDialog::instance(parent);
    };
    traits.relevance = &FourierTransformDialog::relevance;
    traits.list = "dependentVariablesListView";
    traits.action = "&Transform";
    traits.helpTopic = "fourier_transform.html";
    traits.plotType = PlotType_XYLine;
    traits.actionNeedsSelection = true;
    traits.followsItsRule = false;
    traits.bindsActionBeforeList = false;
    traits.zonesAreLines = true;
    // The first row is the independent variable.
    traits.selectMore = [](QDialog& dialog) {
        QTest::keyClick(dialog.findChild<QListView*>(QStringLiteral("dependentVariablesListView")), Qt::Key_A,
                        Qt::ControlModifier);
    };
    traits.boundInOrder = {"independentVariablesComboBox", "windowFunctionComboBox", "dependentVariablesListView",
                           "sourceZonesListView", "plotPlacementComboBox"};
    return traits;
}

/// The dialog over the zones Wing, Body and Tail of six points each, with X as the time and Y, P and T as signals; and its options,
/// which outlive every dialog, as they are at first.
class FourierFixture : public DialogFixture
{
protected:
    static constexpr char kernelFunction[] = "VelUtilFourierTransformX";
    static constexpr char independent[] = "independentVariablesComboBox";
    static constexpr char window[] = "windowFunctionComboBox";
    static constexpr char dependent[] = "dependentVariablesListView";
    static constexpr char sources[] = "sourceZonesListView";
    static constexpr char placement[] = "plotPlacementComboBox";
    static constexpr char conjugates[] = "includeConjugatesCheckBox";
    static constexpr char replaceZones[] = "latestResultZonesCheckBox";
    static constexpr char replaceVars[] = "latestResultVariablesCheckBox";
    static constexpr char blanking[] = "obeySourceZoneBlankingCheckBox";

    FourierFixture()
        : DialogFixture(fourierTransform())
    {
        for (int const zone : {1, 2, 3}) {
            setValues(zone, 1, {0.0, 0.5, 1.0, 1.5, 2.0, 2.5});
            setValues(zone, 2, {1.0, 0.5, -0.5, -1.0, -0.5, 0.5}); // a cosine of one period
            setValues(zone, 3, {3.0, 1.0, 4.0, 1.0, 5.0, 9.0});
            setValues(zone, 4, {2.0, 6.0, 5.0, 3.0, 5.0, 8.0});
        }
        resetOptions();
    }
    ~FourierFixture() override { resetOptions(); }

    static void resetOptions()
    {
        using Manager = FourierTransformPropertiesManager;
        Manager::windowFunction()->setValue(WindowFunction_Rectangular);
        Manager::plotDisplay()->setValue(FourierPlotDisplayType_InCorner);
        Manager::includeConjugates()->setValue(false);
        Manager::replaceLatestResultZones()->setValue(true);
        Manager::replaceLatestResultVars()->setValue(true);
        Manager::obeySourceZoneBlanking()->setValue(false);
    }

    void enableZone(int number, bool isEnabled)
    {
        sample.session().perform(kernel::EnableZone(sample.dataSet(), number, isEnabled));
    }

    std::vector<std::shared_ptr<kernel::Frame>> const& frames() const { return sample.session().activePage()->frames; }
    kernel::Frame& resultsFrame() const { return *frames().at(1); }
};

} // namespace veldraw::tests
