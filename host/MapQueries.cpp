#include "host/KernelAccess.h"
#include "kernel/data/TimeStrands.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

namespace veldraw::sdk {

using host::KernelAccess;
using kernel::Session;

namespace {

/// Numbers of a frame's line maps that @p predicate accepts.
template <typename Predicate>
Set lineMapsWhere(kernel::Frame const& frame, Predicate predicate)
{
    Set numbers;
    for (std::size_t n = 0; n < frame.lineMaps.size(); ++n) {
        if (predicate(frame.lineMaps[n]))
            numbers.add(static_cast<long long>(n + 1));
    }
    return numbers;
}

Set zonesOfActiveFieldMaps(kernel::DataSet const& dataSet)
{
    return Set(dataSet.enabledZones());
}

bool isFieldPlotType(PlotType_e plotType)
{
    return plotType == PlotType_Cartesian2D || plotType == PlotType_Cartesian3D;
}

} // namespace

Set getEnabledLineMapsForFrame(long long frameID)
{
    auto const frame = Session::instance().frame(frameID);
    if (!frame || !frame->dataSet)
        return {};
    return lineMapsWhere(
        *frame, [&frame](kernel::LineMap const& lineMap) { return KernelAccess::isEnabled(lineMap, *frame->dataSet); });
}

Set getActiveLineMaps()
{
    auto const frame = Session::instance().activeFrame();
    if (!frame || !frame->dataSet)
        return {};
    return lineMapsWhere(*frame, [&frame](kernel::LineMap const& lineMap) {
        return lineMap.active && KernelAccess::isEnabled(lineMap, *frame->dataSet);
    });
}

Set getZonesFromActiveLineMaps()
{
    Set zones;
    auto const frame = Session::instance().activeFrame();
    for (int lineMap : getActiveLineMaps().members()) {
        zones.add(frame->dataSet->zoneNumber(frame->lineMaps[static_cast<std::size_t>(lineMap - 1)].zone));
    }
    return zones;
}

Set getActiveFieldMaps()
{
    auto const dataSet = Session::instance().activeDataSet();
    if (!dataSet)
        return {};
    Set numbers;
    std::vector<kernel::NumberSet> const maps = kernel::fieldMaps(*dataSet);
    for (std::size_t n = 0; n < maps.size(); ++n) {
        if (!maps[n].empty())
            numbers.add(static_cast<long long>(n + 1));
    }
    return numbers;
}

Set getActiveZones()
{
    auto const frame = Session::instance().activeFrame();
    if (!frame || !frame->dataSet)
        return {};
    if (isValidLinePlotType(frame->plotType))
        return getZonesFromActiveLineMaps();
    return isFieldPlotType(frame->plotType) ? zonesOfActiveFieldMaps(*frame->dataSet) : Set();
}

bool isValidLinePlotType(PlotType_e plotType)
{
    return plotType == PlotType_XYLine || plotType == PlotType_PolarLine;
}

bool dataSetAndFrameAreAvailable()
{
    return Session::instance().activeDataSet() != nullptr;
}

bool isOkToInterpolate()
{
    auto const frame = Session::instance().activeFrame();
    return frame && frame->dataSet && isFieldPlotType(frame->plotType) && !getNonSpatialEnabledVars().isEmpty() &&
           getEnabledZones().size() > 1;
}

} // namespace veldraw::sdk
