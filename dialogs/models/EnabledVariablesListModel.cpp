#include "dialogs/models/EnabledVariablesListModel.h"

#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/Names.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

EnabledVariablesListModel::EnabledVariablesListModel(Source const& source, bool editable)
    : ZoneVarListModelAbstract(source, &VelUtilVarGetNumByUniqueID,
                               editable ? &variableNameForFrame : &variableNameFormattedForAliasesForFrame,
                               &VelUtilVarGetUniqueIDForFrame, StateChange_VariablesRenamed,
                               editable ? Rename(&renameVariableForFrame) : Rename())
{
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
