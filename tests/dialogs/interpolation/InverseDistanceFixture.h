#pragma once

#include "dialogs/interpolation/InverseDistanceInterpolationDialog.h"
#include "tests/dialogs/interpolation/InterpolationFixture.h"
#include "tests/support/StyleSession.h"

namespace veldraw::tests {

inline DialogTraits inverseDistance()
{
    auto traits = DialogTraits::of<dialogs::data::InverseDistanceInterpolationDialog>();
    traits.list = "invDistInterp_Source_MList";
    traits.action = "&Interpolate";
    traits.refusal = "error: Error processing inverse distance interpolation";
    traits.helpTopic = "interpolate_inverse_distance.html";
    traits.plotType = PlotType_Cartesian2D;
    traits.bindsActionBeforeList = false;
    traits.boundInOrder = {"invDistInterp_Source_MList", "invDistInterp_Variable_MList",
                           "invDistInterp_DestZone_CmbBox", "invDistInterp_PtSelect_CmbBox"};
    return traits;
}

/// The dialog with the settings that the kernel has at first.
class InverseDistanceFixture : public InterpolationFixture
{
protected:
    static constexpr char kernelFunction[] = "VelUtilInverseDistInterpolation";
    static constexpr char failed[] = "error: Error processing inverse distance interpolation";
    static constexpr char done[] = "information: Inverse distance interpolation successful.";
    static constexpr char variables[] = "invDistInterp_Variable_MList";
    static constexpr char destination[] = "invDistInterp_DestZone_CmbBox";
    static constexpr char minimumDistance[] = "invDistInterp_MinDist_1Text";
    static constexpr char exponent[] = "invDistInterp_Exponent_1Text";
    static constexpr char pointSelection[] = "invDistInterp_PtSelect_CmbBox";
    static constexpr char numberOfPoints[] = "invDistInterp_NumPoints_1Text";

    InverseDistanceFixture()
        : InterpolationFixture(inverseDistance())
    {
        resetSettings();
    }
    ~InverseDistanceFixture() override { resetSettings(); }

    static void resetSettings()
    {
        StyleSession::setNumber(exponentPath, 2.0);
        StyleSession::setNumber(radiusPath, 0.0);
        StyleSession::setNumber(pointsPath, 8.0);
        StyleSession::setNumber(selectionPath, PtSelection_Octant);
    }
};

} // namespace veldraw::tests
