#pragma once

#include "kernel/frames/Frame.h"

#include <vector>

namespace veldraw::app {

// Zones of a field plot by their one-based numbers, ascending. The frame has a data set.

/// Whether a variable has its values in a zone, or none to be loaded.
bool hasValues(kernel::DataSet const& dataSet, int zone, int variable);

/// Zones of the frame's moment that have points, or may turn out to have some when they are loaded.
std::vector<int> zonesWithPoints(kernel::Frame const& frame);

/// Those zones with points whose coordinates are loaded and that do not have too many points to be drawn.
std::vector<int> shownZones(kernel::Frame const& frame, bool inSpace);

/// Zones that the space of the plot has room for: those of all moments, so that it stands still while time goes on.
/// @param shown shownZones()
std::vector<int> zonesOfAllMoments(kernel::Frame const& frame, std::vector<int> const& shown);

} // namespace veldraw::app
