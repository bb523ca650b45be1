#include "dialogs/property/FieldPlotTypeDependentRelevance.h"

#include "dialogs/property/CurrentFrame.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

namespace veldraw::sdk::ui::propertymanager {

namespace {

bool showsFieldPlot()
{
    return currentFrameHasDataSet() &&
           (currentFrameHasPlotType(PlotType_Cartesian3D) || currentFrameHasPlotType(PlotType_Cartesian2D));
}

} // namespace

FieldPlotTypeDependentRelevance::FieldPlotTypeDependentRelevance()
    : StateChangeDependentRelevance(common::isPlotTypeStateChange, showsFieldPlot)
{
}

} // namespace veldraw::sdk::ui::propertymanager
