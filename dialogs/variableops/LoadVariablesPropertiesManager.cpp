#include "dialogs/variableops/LoadVariablesPropertiesManager.h"

#include "dialogs/property/PropertyPredicateDependentRelevance.h"
#include "platform/styleproperties/StyleValue.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "platform/vdtoolbox/Set.h"

#include <boost/make_shared.hpp>

namespace veldraw::dialogs::data {

using sdk::ui::propertymanager::PropertyPredicateDependentRelevance;
using toolbox::Set;

namespace {

boost::shared_ptr<PropertyPredicateDependentRelevance>
whileNotEmpty(boost::shared_ptr<Property<std::set<int>>> const& selection)
{
    return boost::make_shared<PropertyPredicateDependentRelevance>(selection,
                                                                   [selection] { return !selection->value().empty(); });
}

bool keepsDrawnZonesLoaded()
{
    bool keeps = false;
    toolbox::StyleValue("FileConfig", "LoadOnDemand", "KeepHighPriorityVarsAvailable").getValue(keeps);
    return keeps;
}

} // namespace

struct LoadVariablesPropertiesManager::Impl
{
    explicit Impl(int firstZone);

    // The kernel is told the whole wanted set: what is left out may go when memory is short.
    Set wantedVariables() const;
    Set wantedZones() const;

    boost::shared_ptr<Property<int>> const zone;
    boost::shared_ptr<Property<std::set<int>>> const selectedVariables;
    boost::shared_ptr<ZoneListModel> const zonesListModel;
    boost::shared_ptr<NotLoadedVariablesListModel> const variablesListModel;
    boost::shared_ptr<PropertyPredicateDependentRelevance> const hasSelection;
};

LoadVariablesPropertiesManager::Impl::Impl(int firstZone)
    : zone(boost::make_shared<Property<int>>(firstZone))
    , selectedVariables(boost::make_shared<Property<std::set<int>>>())
    , zonesListModel(boost::make_shared<ZoneListModel>(sdk::getEnabledZonesForFrame, false))
    , variablesListModel(boost::make_shared<NotLoadedVariablesListModel>(zone))
    , hasSelection(whileNotEmpty(selectedVariables))
{
}

Set LoadVariablesPropertiesManager::Impl::wantedVariables() const
{
    Set wanted;
    int const zoneNumber = zone->value();
    for (int const variable : sdk::getEnabledVars().members())
        if (VelUtilDataValueIsLoaded(zoneNumber, variable))
            wanted.add(variable);
    wanted.add(Set(selectedVariables->value()));
    return wanted;
}

Set LoadVariablesPropertiesManager::Impl::wantedZones() const
{
    bool const withDrawnZones = keepsDrawnZonesLoaded();
    Set wanted(zone->value());
    if (withDrawnZones)
        wanted.add(sdk::getActiveZones());
    return wanted;
}

LoadVariablesPropertiesManager::LoadVariablesPropertiesManager(int zone)
    : m_impl(std::make_unique<Impl>(zone))
{
}

LoadVariablesPropertiesManager::~LoadVariablesPropertiesManager() = default;

boost::shared_ptr<Property<int>> LoadVariablesPropertiesManager::zone() const
{
    return m_impl->zone;
}

boost::shared_ptr<Property<std::set<int>>> LoadVariablesPropertiesManager::selectedVariables() const
{
    return m_impl->selectedVariables;
}

boost::shared_ptr<LoadVariablesPropertiesManager::ZoneListModel> LoadVariablesPropertiesManager::zonesListModel() const
{
    return m_impl->zonesListModel;
}

boost::shared_ptr<NotLoadedVariablesListModel> LoadVariablesPropertiesManager::variablesListModel() const
{
    return m_impl->variablesListModel;
}

boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const>
LoadVariablesPropertiesManager::hasSelection() const
{
    return m_impl->hasSelection;
}

void LoadVariablesPropertiesManager::loadSelectedVariables()
{
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    sdk::WaitState const busy;
    Set const variables = m_impl->wantedVariables();
    Set const zones = m_impl->wantedZones();
    VelUtilDataSetMakeVarsAvailableByUniqueID(VelUtilDataSetGetUniqueID(), zones.getRef(), variables.getRef());
}

} // namespace veldraw::dialogs::data
