#pragma once

#include "dialogs/models/ZoneVarListModelAbstract.h"
#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// A list of variables of the active frame's data set.
class VDSDKDIALOGS_DATA_QT_API EnabledVariablesListModel : public ZoneVarListModelAbstract
{
public:
    /// @param source which variables, of a frame by unique identifier
    /// @param editable whether variables can be renamed in place; the rows then read their plain names
    EnabledVariablesListModel(Source const& source, bool editable);
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
