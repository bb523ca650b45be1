#pragma once

#include "dialogs/models/NonSpatialVariablesListModel.h"
#include "dialogs/models/PremappedListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/RelevanceInterface.h"

#include <boost/shared_ptr.hpp>

#include <memory>
#include <set>

namespace veldraw::dialogs::data {

/// The logic of kriging: from which zones, which variables, to which zone, by which numbers, and the operation itself.
///
/// The numbers belong to the library, so that they outlive every dialog; the selections are each manager's own.
class KrigingPropertiesManager
{
public:
    using ZonesListModel = sdk::ui::dialogs::propertybindings::models::ZoneListModel;
    using VariablesListModel = sdk::ui::dialogs::propertybindings::models::NonSpatialVariablesListModel;
    using PtSelectionListModel = sdk::ui::dialogs::propertybindings::models::PremappedListModel<PtSelection_e>;
    using DriftListModel = sdk::ui::dialogs::propertybindings::models::PremappedListModel<Drift_e>;
    using Rule = boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const>;

    KrigingPropertiesManager();
    virtual ~KrigingPropertiesManager();
    KrigingPropertiesManager(KrigingPropertiesManager const&) = delete;
    KrigingPropertiesManager& operator=(KrigingPropertiesManager const&) = delete;

    /// True while there is something to interpolate. Always the same rule.
    static Rule relevance();

    // ---- shared by all managers ------------------------------------------------------------------------------------
    /// Distance beyond which values have nothing to do with each other, as a fraction of the diagonal of the sources' box: 0 to 1,
    /// 0.3 at first.
    static boost::shared_ptr<Property<double>> krigRange();
    /// Semivariance at distance 0, where 1 is that beyond the range: 0 to 1, 0 at first.
    static boost::shared_ptr<Property<double>> krigZeroValue();
    /// Trend that the values are taken to have; linear at first.
    static boost::shared_ptr<Property<Drift_e>> krigDrift();
    /// Which source points a destination point takes in; by octants at first.
    static boost::shared_ptr<Property<PtSelection_e>> krigPtSelection();
    /// How many it takes in, unless it takes all: 1 to 2^62 - 1, 8 at first.
    static boost::shared_ptr<Property<long long>> krigNumPoints();

    // ---- each manager's own ----------------------------------------------------------------------------------------
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
    boost::shared_ptr<DriftListModel> driftModel() const;
    /// True unless all source points are taken in.
    Rule numPointsRelevance() const;
    /// True while something is selected in both lists and the destination is no source.
    Rule interpolateButtonRelevance() const;

    /// Interpolates and tells the user the outcome. It checks nothing itself: the rule of the button does. The selections stay as
    /// they are.
    void interpolate();

private:
    struct Impl;

    std::unique_ptr<Impl> const m_impl;
};

} // namespace veldraw::dialogs::data
