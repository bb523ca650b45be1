#include "host/ActiveZones.h"
#include "host/KernelAccess.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

namespace veldraw::sdk {

using host::ActiveZones;
using host::KernelAccess;
using kernel::Session;

Set getEnabledLineMapsForFrame(long long frameID)
{
    auto const frame = Session::instance().frame(frameID);
    kernel::NumberSet maps;
    if (frame && frame->dataSet) {
        host::ZoneNumbers const numbers(*frame->dataSet, frame->lineMaps.size());
        for (std::size_t n = 0; n < frame->lineMaps.size(); ++n) {
            if (numbers.enabledZoneOf(frame->lineMaps[n]) != 0)
                maps.insert(static_cast<int>(n) + 1);
        }
    }
    return Set::Take(new Set_s{std::move(maps)});
}

Set getActiveLineMaps()
{
    return ActiveZones::now().lineMaps();
}

Set getZonesFromActiveLineMaps()
{
    return ActiveZones::now().lineMapZones();
}

Set getActiveFieldMaps()
{
    return ActiveZones::now().fieldMaps();
}

Set getActiveZones()
{
    return ActiveZones::now().zones();
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
    return frame && frame->dataSet && KernelAccess::isFieldPlotType(frame->plotType) &&
           !getNonSpatialEnabledVars().isEmpty() && getEnabledZones().size() > 1;
}

} // namespace veldraw::sdk
