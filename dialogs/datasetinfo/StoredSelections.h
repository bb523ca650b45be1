#pragma once

#include "dialogs/datasetinfo/ZoneVarInfoPropertiesManager.h"

namespace veldraw::dialogs::data {

/// Has the selections of a manager outlive it: they begin with what was selected last in the process.
///
/// Zones and variables are remembered with their unique identifiers: while there is no manager, a number may go to another one.
class StoredSelections
{
public:
    /// Sets the manager's selections: to what is still enabled of those that were remembered, or else to the lowest active zone, or the
    /// lowest enabled one, and to the lowest enabled variable.
    explicit StoredSelections(sdk::ui::propertymanager::ZoneVarInfoPropertiesManager const& manager);
    /// Remembers what is selected. The manager has to be there still.
    ~StoredSelections();
    StoredSelections(StoredSelections const&) = delete;
    StoredSelections& operator=(StoredSelections const&) = delete;

private:
    sdk::ui::propertymanager::ZoneVarInfoPropertiesManager const& m_manager;
};

} // namespace veldraw::dialogs::data
