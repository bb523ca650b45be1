#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

namespace veldraw::sdk::ui::propertymanager {

/// Unique identifier of the current frame, 0 when there is none. The kernel is asked once more when it gives none: a list that goes by a
/// question that has failed would be empty until the next change.
long long currentFrameID();

/// There is a page with a frame, so that questions about the current frame make sense.
bool hasCurrentFrame();

/// The current frame has a data set.
bool currentFrameHasDataSet();

/// There is a current frame and it has this plot type.
bool currentFrameHasPlotType(PlotType_e plotType);

/// The current frame has a data set and shows it in two or three dimensions.
bool currentFrameShowsFieldPlot();

} // namespace veldraw::sdk::ui::propertymanager
