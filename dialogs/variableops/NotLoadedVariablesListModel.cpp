#include "dialogs/variableops/NotLoadedVariablesListModel.h"

#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include <algorithm>
#include <array>

namespace veldraw::dialogs::data {

namespace {

using sdk::ui::common::StateChangeEventInterface;
using toolbox::Set;

// What the frame draws may decide which values the kernel keeps in memory.
bool changesWhatIsDrawn(StateChangeEventInterface const& event)
{
    static std::array<char const*, 8> const topLevelNames{"ActiveFieldMaps", "ActiveFieldZones", "ActiveXYMaps",
                                                          "ActiveLineMaps",  "TwoDAxis",         "ThreeDAxis",
                                                          "Frame",           "LineMap"};
    if (sdk::ui::common::isPlotTypeStateChange(event))
        return true;
    if (event.kind() != StateChange_Style || !event.hasStyleParam())
        return false;
    return std::find(topLevelNames.begin(), topLevelNames.end(), event.styleParam(1)) != topLevelNames.end();
}

} // namespace

NotLoadedVariablesListModel::NotLoadedVariablesListModel(boost::shared_ptr<PropertyAbstract<int>> const& zone)
    // The source holds the property and not the model: the base reads it before the model is whole.
    : ZoneVarListModelAbstract([zone](long long) -> Set { return sdk::getNotLoadedVariablesForZone(zone->value()); },
                               &VelUtilVarGetNumByUniqueID, &sdk::variableNameFormattedForAliasesForFrame,
                               &VelUtilVarGetUniqueIDForFrame, StateChange_VariablesRenamed, Rename())
    , m_drawingListener([this] { resetListModelState(); }, &changesWhatIsDrawn)
{
    m_connections.add(zone->connectValueChanged([this](int) { resetListModelState(); }));
}

NotLoadedVariablesListModel::~NotLoadedVariablesListModel() = default;

void NotLoadedVariablesListModel::reset()
{
    resetListModelState();
    signalDataChanged();
}

} // namespace veldraw::dialogs::data
