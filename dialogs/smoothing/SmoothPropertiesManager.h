#pragma once

#include "dialogs/models/EnabledVariablesListModel.h"
#include "dialogs/models/PremappedListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/PropertyAbstract.h"
#include "dialogs/property/RelevanceInterface.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::dialogs::data {

/// The logic of smoothing: of which zone, which variable, how often, how much, how the boundary is treated, and the operation
/// itself.
///
/// All five settings belong to the library, so that they outlive every dialog. The first manager takes three of them from the
/// kernel's style tree; nothing is written back there.
///
/// Only ordered zones have a choice of boundary condition. One that is not ordered forces `BoundaryCondition_Fixed` when it is
/// chosen, and what that replaced comes back with the next ordered zone. The memory reaches back one zone and no further: a
/// second zone that is not ordered remembers what the first one forced.
class SmoothPropertiesManager
{
public:
    using ZonesListModel = sdk::ui::dialogs::propertybindings::models::ZoneListModel;
    using VariablesListModel = sdk::ui::dialogs::propertybindings::models::EnabledVariablesListModel;
    using BoundaryListModel = sdk::ui::dialogs::propertybindings::models::PremappedListModel<BoundaryCondition_e>;
    using Rule = boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const>;

    /// Selects the first zone and variable of the lists in the place of those that they do not have.
    /// @throws InvalidPropertyValueException when the style tree has a value beyond the limits, the first time only
    SmoothPropertiesManager();
    virtual ~SmoothPropertiesManager();
    SmoothPropertiesManager(SmoothPropertiesManager const&) = delete;
    SmoothPropertiesManager& operator=(SmoothPropertiesManager const&) = delete;

    /// True while the kernel can smooth. Always the same rule.
    static Rule relevance();

    // ---- shared by all managers ------------------------------------------------------------------------------------
    /// Number of the variable to smooth, from 1; 1 at first.
    static boost::shared_ptr<PropertyAbstract<int>> selectedVariable();
    /// How often: from 1 on, 1 at first.
    static boost::shared_ptr<PropertyAbstract<int>> numberOfPasses();
    /// The coefficient, the fraction of the way to the mean of its neighbors that a pass moves a value: above 0 to 0.95, 0.5 at
    /// first.
    static boost::shared_ptr<PropertyAbstract<double>> smoothWeight();
    /// Fixed at first.
    static boost::shared_ptr<PropertyAbstract<BoundaryCondition_e>> boundaryCondition();
    /// Number of the zone whose values are smoothed, from 1; 1 at first.
    static boost::shared_ptr<PropertyAbstract<int>> selectedZone();

    // ---- each manager's own ----------------------------------------------------------------------------------------
    /// The enabled zones of the current frame's data set.
    boost::shared_ptr<ZonesListModel> zoneModel() const;
    /// What the current frame shows over its coordinates, or over the independent variables of its line maps.
    boost::shared_ptr<VariablesListModel> variableModel() const;
    boost::shared_ptr<BoundaryListModel> boundaryModel() const;
    /// True while the selected zone is one with a choice of boundary condition.
    Rule boundaryRelevance() const;

    /// Smooths and tells the user the outcome. It checks nothing itself. The settings stay as they are.
    void smooth();

private:
    struct Impl;

    std::unique_ptr<Impl> const m_impl;
};

} // namespace veldraw::dialogs::data
