#include "dialogs/datasetinfo/ZoneVarInfoPropertiesManager.h"

#include "platform/vdsdkcommon/DataSetQueries.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

namespace {

boost::shared_ptr<UILocalStyleProperty<std::string>> textProperty(char const* text = "")
{
    return boost::make_shared<UILocalStyleProperty<std::string>>(text);
}

} // namespace

ZoneVarInfoPropertiesManager::ZoneVarInfoPropertiesManager()
    : m_selectedZones(boost::make_shared<SelectionProperty>())
    , m_selectedVars(boost::make_shared<SelectionProperty>())
    , m_zoneName(m_selectedZones)
    , m_varName(m_selectedZones, m_selectedVars)
    , m_zoneType(m_selectedZones, textProperty())
    , m_zoneTypeLabel(textProperty("Zone Type:"))
    , m_zoneDimensionLabels(m_selectedZones)
    , m_zoneDimensions(m_selectedZones)
    , m_zoneTime(m_selectedZones)
    , m_solutionTimeLabel(textProperty("Solution Time:"))
    , m_timeStrandLabel(textProperty("Time Strand:"))
    , m_varType(m_selectedZones, m_selectedVars, textProperty())
    , m_varTypeLabel(textProperty("Var Type:"))
    , m_varLocation(m_selectedZones, m_selectedVars, textProperty())
    , m_varLocationLabel(textProperty("Var Location:"))
    , m_varStatus(m_selectedZones, m_selectedVars, boost::make_shared<UILocalStyleProperty<VarStatus_e>>())
    , m_selectedRangeTitle(textProperty("Var Range -- Selected Zone:"))
    , m_selectedMinLabel(m_selectedZones, m_selectedVars, RangeLimit::Min)
    , m_selectedMaxLabel(m_selectedZones, m_selectedVars, RangeLimit::Max)
    , m_selectedRange(m_selectedZones, m_selectedVars)
    , m_activeRange(m_selectedZones, m_selectedVars)
    , m_activeMinLabel(m_selectedZones, m_selectedVars, RangeLimit::Min)
    , m_activeMaxLabel(m_selectedZones, m_selectedVars, RangeLimit::Max)
    , m_zoneListModel(boost::make_shared<ZoneListModel>(getEnabledZonesForFrame, true))
    , m_variableListModel(boost::make_shared<EnabledVariablesListModel>(getEnabledVarsForFrame, true))
    , m_selectedMinText(
          boost::make_shared<VarRangeStatusDecorator>(m_selectedRange.min(), m_selectedZones, m_selectedVars))
    , m_selectedMaxText(
          boost::make_shared<VarRangeStatusDecorator>(m_selectedRange.max(), m_selectedZones, m_selectedVars))
    , m_activeMinText(
          boost::make_shared<NoActiveMapDecorator>(m_activeRange.min(), m_activeRange.isKnown(), m_selectedVars))
    , m_activeMaxText(
          boost::make_shared<NoActiveMapDecorator>(m_activeRange.max(), m_activeRange.isKnown(), m_selectedVars))
{
}

ZoneVarInfoPropertiesManager::~ZoneVarInfoPropertiesManager() = default;

} // namespace veldraw::sdk::ui::propertymanager
