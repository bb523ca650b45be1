#include "dialogs/models/DrawingStateChange.h"

#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include <algorithm>
#include <array>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

bool isDrawingStateChange(toolbox::StateChangeEventInterface const& event)
{
    static std::array<char const*, 8> const topLevelNames{"ActiveFieldMaps", "ActiveFieldZones", "ActiveXYMaps",
                                                          "ActiveLineMaps",  "TwoDAxis",         "ThreeDAxis",
                                                          "Frame",           "LineMap"};
    if (common::isPlotTypeStateChange(event))
        return true;
    if (event.kind() != StateChange_Style || !event.hasStyleParam())
        return false;
    return std::find(topLevelNames.begin(), topLevelNames.end(), event.styleParam(1)) != topLevelNames.end();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
