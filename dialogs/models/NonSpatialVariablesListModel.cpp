#include "dialogs/models/NonSpatialVariablesListModel.h"

#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdtoolbox/StateChangeEventInterface.h"

#include <string>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

bool isAxisStateChange(toolbox::StateChangeEventInterface const& event)
{
    if (event.kind() != StateChange_Style || !event.hasStyleParam(1))
        return false;
    std::string const name = event.styleParam(1);
    return name == "TwoDAxis" || name == "ThreeDAxis";
}

} // namespace

NonSpatialVariablesListModel::NonSpatialVariablesListModel()
    : ZoneVarListModelAbstract(&getNonSpatialEnabledVarsForFrame, &VelUtilVarGetNumByUniqueID,
                               &variableNameFormattedForAliasesForFrame, &VelUtilVarGetUniqueIDForFrame,
                               StateChange_VariablesRenamed, Rename())
    , m_axisWatcher([this] { sourceChanged(); }, &isAxisStateChange)
{
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
