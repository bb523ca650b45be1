#include "dialogs/variableops/NotLoadedVariablesListModel.h"

#include "dialogs/models/DrawingStateChange.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::models::isDrawingStateChange;
using toolbox::Set;

NotLoadedVariablesListModel::NotLoadedVariablesListModel(boost::shared_ptr<PropertyAbstract<int>> const& zone)
    // The source holds the property and not the model: the base reads it before the model is whole.
    : ZoneVarListModelAbstract([zone](long long) -> Set { return sdk::getNotLoadedVariablesForZone(zone->value()); },
                               &VelUtilVarGetNumByUniqueID, &sdk::variableNameFormattedForAliasesForFrame,
                               &VelUtilVarGetUniqueIDForFrame, StateChange_VariablesRenamed, Rename())
    // What the frame draws may decide which values the kernel keeps in memory.
    , m_drawingListener([this] { sourceChanged(); }, &isDrawingStateChange)
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
