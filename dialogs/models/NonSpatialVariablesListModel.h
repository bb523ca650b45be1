#pragma once

#include "dialogs/models/ZoneVarListModelAbstract.h"
#include "dialogs/property/DialogsApi.h"
#include "platform/vdsdkuicommon/StateChangeActionPerformer.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// The enabled variables that aren't coordinates of the active frame's plot. Follows the axes' assignments, too.
class VDSDKDIALOGS_DATA_QT_API NonSpatialVariablesListModel : public ZoneVarListModelAbstract
{
public:
    NonSpatialVariablesListModel();

private:
    common::StateChangeActionPerformer m_axisWatcher;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
