#include "dialogs/datasetinfo/ZoneVarInfoStateChange.h"

#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

namespace veldraw::sdk::ui::propertymanager {

bool isZoneVarInfoStateChange(toolbox::StateChangeEventInterface const& event)
{
    return common::isDataRelatedStateChange(event) || common::isPlotTypeStateChange(event) ||
           common::isFieldStyleStateChange(event) || event.kind() == StateChange_LineMaps;
}

} // namespace veldraw::sdk::ui::propertymanager
