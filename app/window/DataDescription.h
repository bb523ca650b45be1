#pragma once

#include "kernel/session/Session.h"

#include <QString>

namespace veldraw::app {

/// "ordered", "triangles", ...: the kind of cells of a zone.
QString zoneTypeText(ZoneType_e type);

/// "40 × 30 × 1" for ordered zones, "1200 points, 5400 cells" for the others.
QString zoneSizeText(kernel::Zone const& zone);

/// "3D Cartesian", "2D Cartesian", "XY Line", "Sketch", "Polar Line".
QString plotTypeText(PlotType_e type);

/// "float", "double", ..., or "mixed" when the zones differ; passive fields don't count.
QString variableTypeText(kernel::DataSet const& dataSet, int variable);

/// "nodal", "cell", "mixed" over all zones, or "passive" when no zone has values.
QString variableLocationText(kernel::DataSet const& dataSet, int variable);

/// "Picked zone 2: outlet", "Picked zones 1, 2, 5", "Picked 12 zones" or "No zone is picked"; zones of the active data set.
QString pickText(kernel::Session const& session);

/// "1 234 567" with thin spaces between groups of three.
QString countText(std::int64_t count);

/// "17.4 MB".
QString memoryText(std::int64_t bytes);

} // namespace veldraw::app
