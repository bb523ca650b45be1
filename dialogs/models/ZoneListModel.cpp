#include "dialogs/models/ZoneListModel.h"

#include "platform/vdsdkcommon/Names.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

ZoneListModel::ZoneListModel(Source const& source, bool editable)
    : ZoneVarListModelAbstract(source, &zoneNumberByUniqueID, &zoneNameForFrame, &zoneUniqueIDForFrame,
                               StateChange_ZonesRenamed, editable ? Rename(&renameZoneForFrame) : Rename())
{
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
