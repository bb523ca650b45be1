#include "dialogs/datasetinfo/ActiveZoneAnswers.h"

#include "dialogs/datasetinfo/ZoneVarInfoStateChange.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

namespace veldraw::sdk::ui::propertymanager {

namespace {

bool activeFrameIsLinePlot()
{
    return isValidLinePlotType(static_cast<PlotType_e>(VelUtilFrameGetPlotType()));
}

} // namespace

ActiveZoneAnswers::ActiveZoneAnswers()
    : m_performer([this] { forget(); }, isZoneVarInfoStateChange)
{
}

ActiveZoneAnswers::~ActiveZoneAnswers() = default;

void ActiveZoneAnswers::forget()
{
    ++m_revision;
    m_hasActiveMaps.reset();
    m_zones.reset();
    m_isRangeEstimated.reset();
}

bool ActiveZoneAnswers::hasActiveMaps()
{
    if (!m_hasActiveMaps) {
        AppLock const lock(AppLock::RecordAsUsual);
        m_hasActiveMaps = !(activeFrameIsLinePlot() ? getActiveLineMaps() : getActiveFieldMaps()).isEmpty();
    }
    return *m_hasActiveMaps;
}

toolbox::Set const& ActiveZoneAnswers::zones()
{
    if (!m_zones) {
        AppLock const lock(AppLock::RecordAsUsual);
        m_zones.emplace(activeFrameIsLinePlot() ? getZonesFromActiveLineMaps() : getActiveZones());
    }
    return *m_zones;
}

bool ActiveZoneAnswers::isRangeEstimated(int var)
{
    if (!m_isRangeEstimated || m_estimatedVar != var) {
        AppLock const lock(AppLock::RecordAsUsual);
        m_isRangeEstimated = isVarRangeEstimatedForAnyActiveZones(var);
        m_estimatedVar = var;
    }
    return *m_isRangeEstimated;
}

} // namespace veldraw::sdk::ui::propertymanager
