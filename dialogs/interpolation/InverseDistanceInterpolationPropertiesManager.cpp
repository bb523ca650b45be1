#include "dialogs/interpolation/InverseDistanceInterpolationPropertiesManager.h"

#include "dialogs/interpolation/InverseDistanceInterpolationPropertiesGenerated.h"
#include "dialogs/models/EnumerationLabels.h"
#include "dialogs/property/InvertingRelevance.h"
#include "dialogs/property/PropertyDependentRelevance.h"
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
using sdk::ui::propertymanager::RelevanceInterface;
using toolbox::Set;

struct InverseDistanceInterpolationPropertiesManager::Impl
{
    explicit Impl(Generated& numbers)
        : generated(&numbers)
        , numPointsRelevance(
              boost::make_shared<InvertingRelevance>(boost::make_shared<PropertyDependentRelevance<PtSelection_e>>(
                  boost::shared_ptr<PropertyAbstract<PtSelection_e> const>(numbers.interpPtSelection()),
                  PtSelection_All)))
    {
    }

    bool callKernel() const;

    Generated* generated;
    boost::shared_ptr<Property<std::set<int>>> sourceZones = boost::make_shared<Property<std::set<int>>>();
    boost::shared_ptr<Property<std::set<int>>> variables = boost::make_shared<Property<std::set<int>>>();
    boost::shared_ptr<Property<int>> destinationZone = boost::make_shared<Property<int>>(1);
    boost::shared_ptr<ZonesListModel> zoneModel =
        boost::make_shared<ZonesListModel>(sdk::getEnabledZonesForFrame, false);
    boost::shared_ptr<VariablesListModel> variablesModel = boost::make_shared<VariablesListModel>();
    boost::shared_ptr<PtSelectionListModel> ptSelectionModel =
        boost::make_shared<PtSelectionListModel>(sdk::ui::dialogs::propertybindings::models::ptSelectionLabels);
    boost::shared_ptr<RelevanceInterface const> numPointsRelevance;
};

bool InverseDistanceInterpolationPropertiesManager::Impl::callKernel() const
{
    Set const zones(sourceZones->value());
    Set const vars(variables->value());
    return VelUtilInverseDistInterpolation(
        zones.getRef(), destinationZone->value(), vars.getRef(), generated->invDistExponent()->value(),
        generated->invDistMinRadius()->value(), generated->interpPtSelection()->value(),
        static_cast<int>(generated->interpNPoints()->value()));
}

InverseDistanceInterpolationPropertiesManager::InverseDistanceInterpolationPropertiesManager(Generated& generated)
    : m_impl(std::make_unique<Impl>(generated))
{
}

InverseDistanceInterpolationPropertiesManager::~InverseDistanceInterpolationPropertiesManager() = default;

InverseDistanceInterpolationPropertiesManager::Generated&
InverseDistanceInterpolationPropertiesManager::generated() const
{
    return *m_impl->generated;
}

boost::shared_ptr<Property<std::set<int>>> InverseDistanceInterpolationPropertiesManager::sourceZones() const
{
    return m_impl->sourceZones;
}

boost::shared_ptr<Property<std::set<int>>> InverseDistanceInterpolationPropertiesManager::variables() const
{
    return m_impl->variables;
}

boost::shared_ptr<Property<int>> InverseDistanceInterpolationPropertiesManager::destinationZone() const
{
    return m_impl->destinationZone;
}

boost::shared_ptr<InverseDistanceInterpolationPropertiesManager::ZonesListModel>
InverseDistanceInterpolationPropertiesManager::zoneModel() const
{
    return m_impl->zoneModel;
}

boost::shared_ptr<InverseDistanceInterpolationPropertiesManager::VariablesListModel>
InverseDistanceInterpolationPropertiesManager::variablesModel() const
{
    return m_impl->variablesModel;
}

boost::shared_ptr<InverseDistanceInterpolationPropertiesManager::PtSelectionListModel>
InverseDistanceInterpolationPropertiesManager::ptSelectionModel() const
{
    return m_impl->ptSelectionModel;
}

boost::shared_ptr<RelevanceInterface const> InverseDistanceInterpolationPropertiesManager::numPointsRelevance() const
{
    return m_impl->numPointsRelevance;
}

void InverseDistanceInterpolationPropertiesManager::interpolate()
{
    AppLock const lock(AppLock::RecordAsUsual);
    // The success text ends with a full stop and the failure text without, on purpose.
    sdk::velUtilActionReporter([this] { return static_cast<char>(m_impl->callKernel()); },
                               "Error processing inverse distance interpolation",
                               "Inverse distance interpolation successful.");
}

} // namespace veldraw::dialogs::data
