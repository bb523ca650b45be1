#pragma once

#include "dialogs/interpolation/LinearInterpDialog.h"
#include "dialogs/interpolation/LinearInterpPropertiesManager.h"
#include "tests/dialogs/interpolation/InterpolationFixture.h"

namespace veldraw::tests {

using dialogs::data::LinearInterpPropertiesManager;

inline DialogTraits linearInterp()
{
    auto traits = DialogTraits::of<dialogs::data::LinearInterpDialog>();
    traits.list = "LinearIterp_SourceZones_ListView";
    traits.action = "&Interpolate";
    traits.refusal = "error: No source zones were specified.";
    traits.helpTopic = "interpolate_linear.html";
    traits.plotType = PlotType_Cartesian2D;
    traits.bindsActionBeforeList = false;
    traits.boundInOrder = {"LinearIterp_SourceZones_ListView", "LinearIterp_SourceVariables_ListView",
                           "LinearIterp_DestZone_ComboBox"};
    return traits;
}

/// The dialog with its settings, which outlive every dialog, as they are at first.
class LinearInterpFixture : public InterpolationFixture
{
protected:
    static constexpr char kernelFunction[] = "VelUtilLinearInterpolate";
    static constexpr char failed[] = "error: Linear interpolation error";
    static constexpr char done[] = "information: Linear interpolation successful.";
    static constexpr char variables[] = "LinearIterp_SourceVariables_ListView";
    static constexpr char destination[] = "LinearIterp_DestZone_ComboBox";
    static constexpr char noChange[] = "LinearIterp_NoChange_RadioButton";
    static constexpr char constant[] = "LinearIterp_Constant_RadioButton";
    static constexpr char constantLabel[] = "LinearIterp_ConstValue_Label";
    static constexpr char constantValue[] = "LinearIterp_ConstValue_LineEdit";

    LinearInterpFixture()
        : InterpolationFixture(linearInterp())
    {
        resetSettings();
    }
    ~LinearInterpFixture() override { resetSettings(); }

    static void resetSettings()
    {
        LinearInterpPropertiesManager::outsidePointValue()->setValue(0.0);
        LinearInterpPropertiesManager::linearInterpMode()->setValue(LinearInterpMode_DontChange);
    }

    /// A zone without cells that could contain a point.
    void addLine()
    {
        int const zone = sample.dataSet().addZone(std::make_shared<kernel::Zone>("Line", ZoneType_Ordered, 6, 1, 1));
        sample.session().events().emitEvent({StateChange_ZonesAdded, {zone}, {}, {}, 0});
    }
};

} // namespace veldraw::tests
