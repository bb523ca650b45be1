#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

namespace veldraw::sdk::ui::propertymanager {

/// The frame that shows results of the source frame's data set: the first one that is marked as such, else a new one without line
/// maps. It is put in its place in either case. Nothing but the mark, which is auxiliary data of the frame, tells which frame it
/// is.
/// @param sourceFrame unique identifier
/// @param display     where the frame goes
/// @return its unique identifier; 0 when there is none and none could be made. A frame that could be made in part stays
long long findOrCreateResultsFrame(long long sourceFrame, FourierPlotDisplayType_e display);

/// Has a frame show a line plot, of the source frame's data set when it shows none. One that shows a line plot already is left as
/// it is. The results frame is active afterwards, unless it could not get the data set.
/// @param sourceFrame, resultsFrame unique identifiers
/// @return false when the kernel refused the data set or the plot type
bool prepareResultsFrame(long long sourceFrame, long long resultsFrame);

} // namespace veldraw::sdk::ui::propertymanager
