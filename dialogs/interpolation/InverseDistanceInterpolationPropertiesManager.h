#pragma once

#include "dialogs/models/NonSpatialVariablesListModel.h"
#include "dialogs/models/PremappedListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/RelevanceInterface.h"

#include <boost/shared_ptr.hpp>

#include <memory>
#include <set>

namespace veldraw::sdk::ui::propertymanager {
class InverseDistanceInterpolationPropertiesGenerated;
}

namespace veldraw::dialogs::data {

/// The logic of the inverse-distance interpolation: from which zones, which variables, to which zone, and the operation itself.
/// The numbers that it goes by are the kernel's.
class InverseDistanceInterpolationPropertiesManager
{
public:
    using Generated = sdk::ui::propertymanager::InverseDistanceInterpolationPropertiesGenerated;
    using ZonesListModel = sdk::ui::dialogs::propertybindings::models::ZoneListModel;
    using VariablesListModel = sdk::ui::dialogs::propertybindings::models::NonSpatialVariablesListModel;
    using PtSelectionListModel = sdk::ui::dialogs::propertybindings::models::PremappedListModel<PtSelection_e>;

    /// @param generated the numbers; they must outlive this object
    explicit InverseDistanceInterpolationPropertiesManager(Generated& generated);
    virtual ~InverseDistanceInterpolationPropertiesManager();
    InverseDistanceInterpolationPropertiesManager(InverseDistanceInterpolationPropertiesManager const&) = delete;
    InverseDistanceInterpolationPropertiesManager&
    operator=(InverseDistanceInterpolationPropertiesManager const&) = delete;

    Generated& generated() const;
    /// Numbers of the zones to interpolate from, from 1; empty at first.
    boost::shared_ptr<Property<std::set<int>>> sourceZones() const;
    /// Numbers of the variables to interpolate, from 1; empty at first.
    boost::shared_ptr<Property<std::set<int>>> variables() const;
    /// Number of the zone that gets the values; 1 at first.
    boost::shared_ptr<Property<int>> destinationZone() const;
    /// The enabled zones of the current frame's data set, for sources and destination alike.
    boost::shared_ptr<ZonesListModel> zoneModel() const;
    /// Its enabled variables that are no coordinates.
    boost::shared_ptr<VariablesListModel> variablesModel() const;
    boost::shared_ptr<PtSelectionListModel> ptSelectionModel() const;
    /// True unless all source points are taken in.
    boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> numPointsRelevance() const;

    /// Interpolates and tells the user the outcome. It checks nothing itself: what does not fit, such as an empty selection,
    /// is for the kernel to refuse. The selections stay as they are.
    void interpolate();

private:
    struct Impl;

    std::unique_ptr<Impl> const m_impl;
};

} // namespace veldraw::dialogs::data
