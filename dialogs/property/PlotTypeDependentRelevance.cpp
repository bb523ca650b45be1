#include "dialogs/property/PlotTypeDependentRelevance.h"

#include "dialogs/property/CurrentFrame.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

namespace veldraw::sdk::ui::propertymanager {

PlotTypeDependentRelevance::PlotTypeDependentRelevance(PlotType_e plotType)
    : StateChangeDependentRelevance(boost::function<bool(Event const&)>(common::isPlotTypeStateChange),
                                    [plotType] { return currentFrameHasPlotType(plotType); })
{
}

} // namespace veldraw::sdk::ui::propertymanager
