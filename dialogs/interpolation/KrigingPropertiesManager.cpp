#include "dialogs/interpolation/KrigingPropertiesManager.h"

#include "dialogs/models/EnumerationLabels.h"
#include "dialogs/property/BoundedProperty.h"
#include "dialogs/property/InvertingRelevance.h"
#include "dialogs/property/PropertyDependentRelevance.h"
#include "dialogs/property/PropertyPredicateDependentRelevance.h"
#include "dialogs/property/RelevanceExpression.h"
#include "dialogs/property/StateChangeDependentRelevance.h"
#include "platform/vdsdkbase/VelUtilDataOperation.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdtoolbox/Set.h"

#include <boost/make_shared.hpp>

namespace veldraw::dialogs::data {

using sdk::AppLock;
using sdk::ui::propertymanager::InvertingRelevance;
using sdk::ui::propertymanager::PropertyDependentRelevance;
using sdk::ui::propertymanager::PropertyPredicateDependentRelevance;
using sdk::ui::propertymanager::RelevanceExpression;
using sdk::ui::propertymanager::RelevanceInterface;
using sdk::ui::propertymanager::StateChangeDependentRelevance;
using toolbox::Set;

namespace {

// Made when the library is loaded; every dialog that comes shows what was set last.
boost::shared_ptr<Property<double>> const theKrigRange = boundedProperty(0.3, 0.0, 1.0);
boost::shared_ptr<Property<double>> const theKrigZeroValue = boundedProperty(0.0, 0.0, 1.0);
boost::shared_ptr<Property<Drift_e>> const theKrigDrift = boost::make_shared<Property<Drift_e>>(Drift_Linear);
boost::shared_ptr<Property<PtSelection_e>> const theKrigPtSelection =
    boost::make_shared<Property<PtSelection_e>>(PtSelection_Octant);
boost::shared_ptr<Property<long long>> const theKrigNumPoints = boundedProperty(8LL, 1LL, 4611686018427387903LL);

} // namespace

struct KrigingPropertiesManager::Impl
{
    Impl();

    Rule readyWhenChanged(boost::shared_ptr<PropertyItemInterface const> const& property) const;
    bool callKernel() const;

    boost::shared_ptr<Property<std::set<int>>> sourceZones = boost::make_shared<Property<std::set<int>>>();
    boost::shared_ptr<Property<std::set<int>>> variables = boost::make_shared<Property<std::set<int>>>();
    boost::shared_ptr<Property<int>> destinationZone = boost::make_shared<Property<int>>(1);
    boost::shared_ptr<ZonesListModel> zoneModel =
        boost::make_shared<ZonesListModel>(sdk::getEnabledZonesForFrame, false);
    boost::shared_ptr<VariablesListModel> variablesModel = boost::make_shared<VariablesListModel>();
    boost::shared_ptr<PtSelectionListModel> ptSelectionModel =
        boost::make_shared<PtSelectionListModel>(sdk::ui::dialogs::propertybindings::models::ptSelectionLabels);
    boost::shared_ptr<DriftListModel> driftModel =
        boost::make_shared<DriftListModel>(sdk::ui::dialogs::propertybindings::models::driftLabels);
    Rule numPointsRelevance;
    Rule interpolateButtonRelevance;
};

KrigingPropertiesManager::Impl::Impl()
    : numPointsRelevance(
          boost::make_shared<InvertingRelevance>(boost::make_shared<PropertyDependentRelevance<PtSelection_e>>(
              boost::shared_ptr<PropertyAbstract<PtSelection_e> const>(theKrigPtSelection), PtSelection_All)))
{
    auto const rule = boost::make_shared<RelevanceExpression>(readyWhenChanged(sourceZones));
    rule->aand(readyWhenChanged(variables)).aand(readyWhenChanged(destinationZone));
    interpolateButtonRelevance = *rule;
}

// The whole question each time, asked again whenever the one property changes. It holds the properties and not this object,
// which the rule may outlive.
KrigingPropertiesManager::Rule
KrigingPropertiesManager::Impl::readyWhenChanged(boost::shared_ptr<PropertyItemInterface const> const& property) const
{
    auto const isReadyToKrig = [vars = variables, zones = sourceZones, destination = destinationZone] {
        return !vars->value().empty() && !zones->value().empty() && zones->value().count(destination->value()) == 0;
    };
    return boost::make_shared<PropertyPredicateDependentRelevance>(property, isReadyToKrig);
}

bool KrigingPropertiesManager::Impl::callKernel() const
{
    Set const zones(sourceZones->value());
    Set const vars(variables->value());
    return VelUtilKrig(zones.getRef(), destinationZone->value(), vars.getRef(), theKrigRange->value(),
                       theKrigZeroValue->value(), theKrigDrift->value(), theKrigPtSelection->value(),
                       theKrigNumPoints->value());
}

KrigingPropertiesManager::KrigingPropertiesManager()
    : m_impl(std::make_unique<Impl>())
{
}

KrigingPropertiesManager::~KrigingPropertiesManager() = default;

KrigingPropertiesManager::Rule KrigingPropertiesManager::relevance()
{
    static Rule const rule = boost::make_shared<StateChangeDependentRelevance>(&sdk::isOkToInterpolate);
    return rule;
}

boost::shared_ptr<Property<double>> KrigingPropertiesManager::krigRange()
{
    return theKrigRange;
}

boost::shared_ptr<Property<double>> KrigingPropertiesManager::krigZeroValue()
{
    return theKrigZeroValue;
}

boost::shared_ptr<Property<Drift_e>> KrigingPropertiesManager::krigDrift()
{
    return theKrigDrift;
}

boost::shared_ptr<Property<PtSelection_e>> KrigingPropertiesManager::krigPtSelection()
{
    return theKrigPtSelection;
}

boost::shared_ptr<Property<long long>> KrigingPropertiesManager::krigNumPoints()
{
    return theKrigNumPoints;
}

boost::shared_ptr<Property<std::set<int>>> KrigingPropertiesManager::sourceZones() const
{
    return m_impl->sourceZones;
}

boost::shared_ptr<Property<std::set<int>>> KrigingPropertiesManager::variables() const
{
    return m_impl->variables;
}

boost::shared_ptr<Property<int>> KrigingPropertiesManager::destinationZone() const
{
    return m_impl->destinationZone;
}

boost::shared_ptr<KrigingPropertiesManager::ZonesListModel> KrigingPropertiesManager::zoneModel() const
{
    return m_impl->zoneModel;
}

boost::shared_ptr<KrigingPropertiesManager::VariablesListModel> KrigingPropertiesManager::variablesModel() const
{
    return m_impl->variablesModel;
}

boost::shared_ptr<KrigingPropertiesManager::PtSelectionListModel> KrigingPropertiesManager::ptSelectionModel() const
{
    return m_impl->ptSelectionModel;
}

boost::shared_ptr<KrigingPropertiesManager::DriftListModel> KrigingPropertiesManager::driftModel() const
{
    return m_impl->driftModel;
}

KrigingPropertiesManager::Rule KrigingPropertiesManager::numPointsRelevance() const
{
    return m_impl->numPointsRelevance;
}

KrigingPropertiesManager::Rule KrigingPropertiesManager::interpolateButtonRelevance() const
{
    return m_impl->interpolateButtonRelevance;
}

void KrigingPropertiesManager::interpolate()
{
    AppLock const lock(AppLock::RecordAsUsual);
    sdk::velUtilActionReporter([this] { return static_cast<char>(m_impl->callKernel()); },
                               "Error processing kriging interpolation", "Kriging interpolation successful.");
}

} // namespace veldraw::dialogs::data
