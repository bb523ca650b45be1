#include "dialogs/datasetinfo/VarRangeActiveZonesProperties.h"

#include "dialogs/datasetinfo/NumberProperty.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

VarRangeActiveZonesProperties::VarRangeActiveZonesProperties(Selection const& selectedZones,
                                                             Selection const& selectedVars)
    : ActiveZonesPropertyAbstract(selectedZones, selectedVars)
    , m_min(boost::make_shared<UILocalStyleProperty<double>>(0.0))
    , m_max(boost::make_shared<UILocalStyleProperty<double>>(0.0))
    , m_isKnown(boost::make_shared<UILocalStyleProperty<bool>>(false))
{
    refresh();
}

VarRangeActiveZonesProperties::~VarRangeActiveZonesProperties() = default;

bool VarRangeActiveZonesProperties::updateInActiveZones(int var)
{
    if (!okToQueryForVarInfo(var))
        return false;
    bool const isLinePlot = isValidLinePlotType(static_cast<PlotType_e>(VelUtilFrameGetPlotType()));
    toolbox::Set const zones = isLinePlot ? getZonesFromActiveLineMaps() : getActiveZones();
    double min = 0.0;
    double max = 0.0;
    bool const isKnown = !zones.isEmpty() && getVarMinMaxForZoneSet(var, zones, false, min, max);
    // First of all: who hears that the range is known reads it, and must not take that of another variable for it.
    if (isKnown) {
        setNumber(*m_min, min);
        setNumber(*m_max, max);
    }
    m_isKnown->setValue(isKnown);
    return true;
}

} // namespace veldraw::sdk::ui::propertymanager
