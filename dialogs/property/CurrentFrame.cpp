#include "dialogs/property/CurrentFrame.h"

#include "dialogs/property/AskedAgain.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilPage.h"

namespace veldraw::sdk::ui::propertymanager {

long long currentFrameID()
{
    return askedAgain(VelUtilFrameGetUniqueID);
}

bool hasCurrentFrame()
{
    return VelUtilPageGetCount() > 0 && VelUtilFrameGetCount() > 0;
}

bool currentFrameHasDataSet()
{
    return hasCurrentFrame() && VelUtilDataSetIsAvailable();
}

bool currentFrameHasPlotType(PlotType_e plotType)
{
    return hasCurrentFrame() && VelUtilFrameGetPlotType() == plotType;
}

bool currentFrameShowsFieldPlot()
{
    return currentFrameHasDataSet() &&
           (currentFrameHasPlotType(PlotType_Cartesian3D) || currentFrameHasPlotType(PlotType_Cartesian2D));
}

} // namespace veldraw::sdk::ui::propertymanager
