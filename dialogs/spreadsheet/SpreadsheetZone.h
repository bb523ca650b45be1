#pragma once

/// @file
/// What the spreadsheet must know of a zone of the active data set. Numbers are one-based.

#include "platform/vdsdkbase/VelUtilTypes.h"
#include "platform/vdtoolbox/Set.h"

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// Whether the zone is enabled and a row of a table is one of its points or cells: it is of finite elements, or ordered
/// with one dimension.
bool isLineOrFiniteElement(int zone);

/// Whether the variables don't all have their values in the zone at the same place.
bool hasMixedValueLocations(int zone, toolbox::Set const& variables);

/// Whether an enabled variable of the zone has its values together with another zone. False for a disabled zone.
bool sharesValues(int zone);

/// Loads the dimensions of a zone that are deferred, since its order and its planes are those of known dimensions.
/// @return whether they are known now
bool loadShape(int zone);

/// The plane that the zone lies in; for a volume the one that was chosen.
IJKPlanes_e planeOfZone(int zone, IJKPlanes_e chosen);

/// What rows and columns of the zone's table are: two letters, as "I \ J".
std::string cornerLabelOfZone(int zone, IJKPlanes_e plane);

/// The largest index of a plane in each direction. 0 for the one layer of cells of a flat direction, whose index is 1.
struct PlaneLimits
{
    long long i;
    long long j;
    long long k;
};

/// Dimensions that are deferred are loaded.
/// @param variable a cell-centred one has one plane less than points
/// @return whether there are limits: not for finite elements, nor for a variable that doesn't exist
bool planeLimits(int zone, int variable, PlaneLimits& limits);

} // namespace veldraw::sdk::ui::propertymanager
