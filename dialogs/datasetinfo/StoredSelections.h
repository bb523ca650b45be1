#pragma once

#include "dialogs/datasetinfo/ZoneVarInfoPropertiesManager.h"
#include "platform/signals/SignalConnectionCollection.h"

namespace veldraw::dialogs::data {

/// Has the selections of a manager outlive it: they begin with what was selected last in the process, and each change is remembered.
class StoredSelections
{
public:
    /// Sets the manager's selections: to what is still enabled of those that were remembered, or else to the lowest active zone, or the
    /// lowest enabled one, and to the lowest enabled variable.
    explicit StoredSelections(sdk::ui::propertymanager::ZoneVarInfoPropertiesManager const& manager);
    ~StoredSelections();
    StoredSelections(StoredSelections const&) = delete;
    StoredSelections& operator=(StoredSelections const&) = delete;

private:
    sdk::SignalConnectionCollection m_connections;
};

} // namespace veldraw::dialogs::data
