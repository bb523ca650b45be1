#include "host/KernelAccess.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/Names.h"

namespace veldraw::sdk {

using host::KernelAccess;
using kernel::Session;

Set getEnabledVars()
{
    return getEnabledVarsForFrame(KernelAccess::activeFrameID());
}

Set getEnabledVarsForFrame(long long frameID)
{
    auto const dataSet = KernelAccess::dataSetOf(frameID);
    return dataSet ? Set::Take(new Set_s{dataSet->enabledVariables()}) : Set(); // not a copy: there may be very many
}

Set getNonSpatialEnabledVars()
{
    return getNonSpatialEnabledVarsForFrame(KernelAccess::activeFrameID());
}

Set getNonSpatialEnabledVarsForFrame(long long frameID)
{
    Set variables = getEnabledVarsForFrame(frameID);
    auto const frame = Session::instance().frame(frameID);
    if (frame && (frame->plotType == PlotType_Cartesian2D || frame->plotType == PlotType_Cartesian3D)) {
        for (int axisVariable : frame->axisVariables())
            variables.remove(axisVariable);
    }
    return variables;
}

Set getNotLoadedVariablesForZone(int zone)
{
    Set notLoaded;
    auto const dataSet = Session::instance().activeDataSet();
    if (!dataSet)
        return notLoaded;
    for (int variable : dataSet->enabledVariables()) {
        kernel::Field const* const field = dataSet->field(zone, variable);
        if (field && !field->isLoaded())
            notLoaded.add(variable);
    }
    return notLoaded;
}

bool okToQueryForVarInfo(int var)
{
    auto const dataSet = Session::instance().activeDataSet();
    auto const variable = dataSet ? dataSet->variable(var) : nullptr;
    return variable && variable->enabled;
}

// A variable has no other name than its own.
std::string variableNameFormattedForAliases(int var)
{
    return variableNameForFrame(KernelAccess::activeFrameID(), var);
}

std::string variableNameFormattedForAliasesForFrame(long long frameID, int var)
{
    return variableNameForFrame(frameID, var);
}

} // namespace veldraw::sdk
