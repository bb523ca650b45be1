#include "dialogs/property/FieldPlotTypeDependentRelevance.h"

#include "dialogs/property/CurrentFrame.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

namespace veldraw::sdk::ui::propertymanager {

FieldPlotTypeDependentRelevance::FieldPlotTypeDependentRelevance()
    : StateChangeDependentRelevance(common::isPlotTypeStateChange, currentFrameShowsFieldPlot)
{
}

} // namespace veldraw::sdk::ui::propertymanager
