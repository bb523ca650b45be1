#pragma once

#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/Property.h"

#include <boost/shared_ptr.hpp>

#include <set>

namespace veldraw::sdk::ui::propertymanager {

/// The logic of duplicating zones: which are offered, which are selected, and the duplication itself.
class DuplicateZonePropertiesManager
{
public:
    using ZonesListModel = dialogs::propertybindings::models::ZoneListModel;

    DuplicateZonePropertiesManager();
    virtual ~DuplicateZonePropertiesManager();
    DuplicateZonePropertiesManager(DuplicateZonePropertiesManager const&) = delete;
    DuplicateZonePropertiesManager& operator=(DuplicateZonePropertiesManager const&) = delete;

    /// Numbers of the zones to duplicate, from 1; empty at first.
    boost::shared_ptr<Property<std::set<int>>> sourceZones() const;
    /// The enabled zones of the current frame's data set.
    boost::shared_ptr<ZonesListModel> zonesListModel() const;

    /// Creates a copy of each selected zone and tells the user the outcome. Refuses, with a message and without a kernel
    /// call, an empty selection. The selection stays as it is.
    void createDuplicateZones();

private:
    boost::shared_ptr<Property<std::set<int>>> m_sourceZones;
    boost::shared_ptr<ZonesListModel> m_zonesListModel;
};

} // namespace veldraw::sdk::ui::propertymanager
