#include "dialogs/datasetinfo/VarRangeStatusDecorator.h"

#include "dialogs/datasetinfo/NumberProperty.h"
#include "dialogs/datasetinfo/ZoneVarInfoStateChange.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

VarRangeStatusDecorator::VarRangeStatusDecorator(boost::shared_ptr<UIStylePropertyAbstract<double>> limit,
                                                 Selection const& selectedZones, Selection const& selectedVars)
    : UIStylePropertyDecoratorAbstract<std::string, double>(std::move(limit))
    , m_selectedZones(selectedZones)
    , m_selectedVars(selectedVars)
    , m_performer([this] { tellListeners(); }, isZoneVarInfoStateChange)
{
    for (Selection const& selection : {m_selectedZones, m_selectedVars})
        m_connections.add(selection->connectValueChanged([this](std::set<int> const&) { tellListeners(); }));
}

VarRangeStatusDecorator::~VarRangeStatusDecorator() = default;

void VarRangeStatusDecorator::storeValue(std::string const&) {}

std::string VarRangeStatusDecorator::retrieveValue() const
{
    std::set<int> const zones = m_selectedZones->value();
    std::set<int> const variables = m_selectedVars->value();
    if (zones.empty() || variables.empty())
        return {};
    int const zone = *zones.begin();
    int const var = *variables.begin();
    AppLock const lock(AppLock::DoNotRecord);
    if (!VelUtilZoneIsEnabled(zone) || !VelUtilVarIsEnabled(var))
        return {};
    if (VelUtilDataValueIsPassive(zone, var))
        return "N/A";
    return VelUtilDataValueIsMinMaxValidByZoneVar(zone, var) ? numberText(decoratedValue()) : "Not Loaded";
}

} // namespace veldraw::sdk::ui::propertymanager
