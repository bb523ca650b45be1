#pragma once

#include "app/plot/PlotSpace.h"
#include "kernel/data/Blanking.h"
#include "kernel/frames/ContourColours.h"

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// What one field plot shows and how; computed once for all of its zones.
struct FieldLook
{
    PlotSpace space;
    std::array<int, 3> axes{}; ///< variable numbers, Z is 0 in a plane
    int contourVariable = 0;   ///< 0 = neither flood nor lines
    bool isFlooded = false;    ///< surfaces have the colours of the contour
    double contourMin = 0.0;   ///< common limits of the flood, logarithms for a logarithmic one
    double contourMax = 0.0;
    int contourBands = 0; ///< of equal width between the limits; 0 for smooth colours
    kernel::ColourMapKind contourMap = kernel::ColourMapKind::Viridis;
    bool withoutEnds = false; ///< values lie beyond the limits, as the outermost ones are left out
    bool isBeyond = false;    ///< values lie beyond limits that were typed
    bool isLog = false;       ///< colours go by the common logarithm; there is none for values of 0 and below
    bool isLogRefused =
        false;            ///< they should, but there are no two different values above 0, or limits are not above 0
    bool isFixed = false; ///< the limits were typed
    bool hasUncoloured = false;          ///< logarithmic colours, and values of 0 or below
    std::vector<float> lineLevels;       ///< of contour lines, as shares of the limits, in ascending order
    std::vector<std::string> lineLabels; ///< as many
    bool labelLines = false;
    bool hasUnlined = false;     ///< lines are wanted, and values stand at cells, where there are none
    std::array<int, 3> vector{}; ///< variable numbers of U, V, W, 0 for none; W is 0 in a plane
    bool showVectors = false;
    bool areVectorsEqual = false; ///< arrows are all of one length
    bool isParallel = false;      ///< without perspective
    bool mesh = false;
    std::map<int, std::shared_ptr<kernel::Blanking const>>
        blankings;        ///< what is hidden of zones by their numbers, where value blanking hides something
    bool inSpace = false; ///< lit surfaces in three dimensions
};

} // namespace veldraw::app
