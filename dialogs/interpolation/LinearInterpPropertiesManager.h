#pragma once

#include "dialogs/models/NonSpatialVariablesListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/RelevanceInterface.h"

#include <boost/shared_ptr.hpp>

#include <memory>
#include <set>
#include <string>

namespace veldraw::dialogs::data {

/// The logic of the linear interpolation: from which zones, which variables, to which zone, what becomes of points outside the
/// sources, and the operation itself.
///
/// What becomes of points outside belongs to the library, so that it outlives every dialog; the selections are each manager's own.
class LinearInterpPropertiesManager
{
public:
    using ZonesListModel = sdk::ui::dialogs::propertybindings::models::ZoneListModel;
    using VariablesListModel = sdk::ui::dialogs::propertybindings::models::NonSpatialVariablesListModel;

    LinearInterpPropertiesManager();
    virtual ~LinearInterpPropertiesManager();
    LinearInterpPropertiesManager(LinearInterpPropertiesManager const&) = delete;
    LinearInterpPropertiesManager& operator=(LinearInterpPropertiesManager const&) = delete;

    // ---- shared by all managers ------------------------------------------------------------------------------------
    /// The value that points outside the sources get, if they get one; 0 at first.
    static boost::shared_ptr<Property<double>> outsidePointValue();
    /// What becomes of points outside the sources; they are left alone at first.
    static boost::shared_ptr<Property<LinearInterpMode_e>> linearInterpMode();

    // ---- each manager's own ----------------------------------------------------------------------------------------
    /// Numbers of the zones to interpolate from, from 1; empty at first.
    boost::shared_ptr<Property<std::set<int>>> sourceZones() const;
    /// Numbers of the variables to interpolate, from 1; empty at first.
    boost::shared_ptr<Property<std::set<int>>> variables() const;
    /// Number of the zone that gets the values; 1 at first.
    boost::shared_ptr<Property<int>> destinationZone() const;
    /// What stands beside the field of the constant; empty at first, the form has the words.
    boost::shared_ptr<Property<std::string>> constantValueLabelText() const;
    /// The enabled zones of the current frame's data set that have cells to interpolate in.
    boost::shared_ptr<ZonesListModel> sourceZonesModel() const;
    /// Its enabled variables that are no coordinates.
    boost::shared_ptr<VariablesListModel> variablesModel() const;
    /// All its enabled zones.
    boost::shared_ptr<ZonesListModel> destinationZoneModel() const;
    /// True while points outside get the constant.
    boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> constantRelevance() const;

    /// Interpolates and tells the user the outcome. Refuses, with a message and without a kernel call, an empty selection in
    /// either list and a single source that is the destination. The selections stay as they are.
    void interpolate();

private:
    struct Impl;

    std::unique_ptr<Impl> const m_impl;
};

} // namespace veldraw::dialogs::data
