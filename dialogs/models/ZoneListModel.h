#pragma once

#include "dialogs/models/ZoneVarListModelAbstract.h"
#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// A list of zones of the active frame's data set.
class VDSDKDIALOGS_DATA_QT_API ZoneListModel : public ZoneVarListModelAbstract
{
public:
    /// @param source which zones, of a frame by unique identifier
    /// @param editable whether zones can be renamed in place
    ZoneListModel(Source const& source, bool editable);
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
