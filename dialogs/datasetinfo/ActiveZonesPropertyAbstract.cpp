#include "dialogs/datasetinfo/ActiveZonesPropertyAbstract.h"

#include "dialogs/datasetinfo/ZoneVarInfoStateChange.h"

namespace veldraw::sdk::ui::propertymanager {

ActiveZonesPropertyAbstract::ActiveZonesPropertyAbstract(Selection const& selectedZones, Selection const& selectedVars)
    : VarPropertyAbstract(selectedZones, selectedVars)
    , m_forgetter([this] { m_askedVar = 0; }, isZoneVarInfoStateChange)
{
}

ActiveZonesPropertyAbstract::~ActiveZonesPropertyAbstract() = default;

void ActiveZonesPropertyAbstract::updateInZone(int, int var)
{
    if (var == m_askedVar)
        return;
    m_askedVar = var; // now: who hears of the answer may alter the data, and with them what has been asked
    if (!updateInActiveZones(var))
        m_askedVar = 0;
}

} // namespace veldraw::sdk::ui::propertymanager
