#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

namespace veldraw::sdk::ui::propertymanager {

/// There is a page with a frame, so that questions about the current frame make sense.
bool hasCurrentFrame();

/// The current frame has a data set.
bool currentFrameHasDataSet();

/// There is a current frame and it has this plot type.
bool currentFrameHasPlotType(PlotType_e plotType);

/// The current frame has a data set and shows it in two or three dimensions.
bool currentFrameShowsFieldPlot();

} // namespace veldraw::sdk::ui::propertymanager
