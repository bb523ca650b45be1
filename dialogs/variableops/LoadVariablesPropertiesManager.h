#pragma once

#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/RelevanceInterface.h"
#include "dialogs/variableops/NotLoadedVariablesListModel.h"

#include <boost/shared_ptr.hpp>

#include <memory>
#include <set>

namespace veldraw::dialogs::data {

/// The logic of loading variables on demand: a zone, which of its variables are not loaded yet, which of those are
/// selected, and the loading.
class LoadVariablesPropertiesManager
{
public:
    using ZoneListModel = sdk::ui::dialogs::propertybindings::models::ZoneListModel;
    using RelevanceInterface = sdk::ui::propertymanager::RelevanceInterface;

    /// @param zone one-based number of the zone to begin with
    explicit LoadVariablesPropertiesManager(int zone);
    virtual ~LoadVariablesPropertiesManager();
    LoadVariablesPropertiesManager(LoadVariablesPropertiesManager const&) = delete;
    LoadVariablesPropertiesManager& operator=(LoadVariablesPropertiesManager const&) = delete;

    /// One-based number of the zone whose variables are listed.
    boost::shared_ptr<Property<int>> zone() const;
    /// One-based numbers of the variables to load; empty at first.
    boost::shared_ptr<Property<std::set<int>>> selectedVariables() const;
    /// The enabled zones of the current frame's data set.
    boost::shared_ptr<ZoneListModel> zonesListModel() const;
    /// The variables of the zone that can be loaded.
    boost::shared_ptr<NotLoadedVariablesListModel> variablesListModel() const;
    /// True while variables are selected.
    boost::shared_ptr<RelevanceInterface const> hasSelection() const;

    /// Asks the kernel for the selected variables on top of those that the zone has in memory, in the zone and, if the
    /// kernel's settings say so, in all zones that are drawn. A refusal is silent.
    void loadSelectedVariables();

private:
    struct Impl;
    std::unique_ptr<Impl> const m_impl;
};

} // namespace veldraw::dialogs::data
