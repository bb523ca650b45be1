#include "dialogs/property/LinePlotTypeDependentRelevance.h"

#include "dialogs/property/CurrentFrame.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

namespace veldraw::sdk::ui::propertymanager {

namespace {

bool showsLinePlot()
{
    return currentFrameHasDataSet() &&
           (currentFrameHasPlotType(PlotType_XYLine) || currentFrameHasPlotType(PlotType_PolarLine));
}

} // namespace

LinePlotTypeDependentRelevance::LinePlotTypeDependentRelevance()
    : StateChangeDependentRelevance(common::isPlotTypeStateChange, showsLinePlot)
{
}

} // namespace veldraw::sdk::ui::propertymanager
