#include "dialogs/smoothing/SmoothVariables.h"

#include "dialogs/models/DrawingStateChange.h"
#include "dialogs/property/AskedAgain.h"
#include "platform/styleproperties/StyleValue.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <optional>

namespace veldraw::dialogs::data {

using sdk::ui::propertymanager::askedAgain;
using toolbox::Set;
using toolbox::StyleValue;

namespace {

std::optional<long long> valueOfLineMap(StyleValue const& assignments, char const* name, int lineMap)
{
    long long value = 0;
    bool const isKnown = StyleValue::returnCodeOk(assignments.child(name).getValue(value, lineMap));
    return isKnown ? std::optional(value) : std::nullopt;
}

int plotTypeOf(long long frameUniqueId)
{
    return askedAgain([=] { return VelUtilFrameGetPlotTypeForFrame(frameUniqueId); });
}

// What a line map cannot tell adds nothing.
Set dependentVariables(long long frameUniqueId)
{
    Set variables;
    StyleValue const assignments(frameUniqueId, "LineMap", "Assign");
    for (int const lineMap : sdk::getEnabledLineMapsForFrame(frameUniqueId).members()) {
        auto const x = valueOfLineMap(assignments, "XAxisVar", lineMap);
        auto const y = valueOfLineMap(assignments, "YAxisVar", lineMap);
        auto const dependency = valueOfLineMap(assignments, "FunctionDependency", lineMap);
        if (x && y && dependency)
            variables.add(*dependency == 0 ? *y : *x);
    }
    return variables;
}

} // namespace

Set smoothVariablesForFrame(long long frameUniqueId)
{
    switch (plotTypeOf(frameUniqueId)) {
    case PlotType_Cartesian3D:
    case PlotType_Cartesian2D:
        return sdk::getNonSpatialEnabledVarsForFrame(frameUniqueId);
    case PlotType_XYLine:
    case PlotType_PolarLine:
        return dependentVariables(frameUniqueId);
    default:
        return {};
    }
}

bool isSmoothVariableStateChange(toolbox::StateChangeEventInterface const& event)
{
    return sdk::ui::dialogs::propertybindings::models::isDrawingStateChange(event);
}

} // namespace veldraw::dialogs::data
