#pragma once

/// @file
/// Questions to the data set of a frame. None changes anything, none loads values unless it says so. Numbers are
/// one-based. A frame that does not exist, or has no data set, gives empty sets, false and empty texts.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"
#include "platform/vdtoolbox/Set.h"

#include <string>

namespace veldraw::sdk {

using toolbox::Set;

// ---- sets of the active frame's data set, or of a frame's by unique identifier --------------------------------------

VELDRAW_PLATFORM_API Set getEnabledVars();
VELDRAW_PLATFORM_API Set getEnabledVarsForFrame(long long frameID);
VELDRAW_PLATFORM_API Set getEnabledZones();
VELDRAW_PLATFORM_API Set getEnabledZonesForFrame(long long frameID);

/// Enabled variables that are not assigned to an axis of a 2D or 3D plot; for other plot types all enabled ones.
VELDRAW_PLATFORM_API Set getNonSpatialEnabledVars();
VELDRAW_PLATFORM_API Set getNonSpatialEnabledVarsForFrame(long long frameID);

/// Enabled zones of more than one dimension.
VELDRAW_PLATFORM_API Set getNonLinearEnabledZones();
VELDRAW_PLATFORM_API Set getNonLinearEnabledZonesForFrame(long long frameID);

/// Enabled ordered zones with exactly one dimension above 1.
VELDRAW_PLATFORM_API Set getOrderedLinearZonesForFrame(long long frameID);

/// Zones that the active frame draws: those of its active field maps (2D, 3D) or of its active line maps (line plots).
VELDRAW_PLATFORM_API Set getActiveZones();

/// Line maps whose zone is enabled.
VELDRAW_PLATFORM_API Set getEnabledLineMapsForFrame(long long frameID);

/// Line maps that are drawn.
VELDRAW_PLATFORM_API Set getActiveLineMaps();

/// Field maps with an enabled zone. Field maps are one a time strand and one a static zone, in order of their lowest
/// zone.
VELDRAW_PLATFORM_API Set getActiveFieldMaps();

/// Zones of the active line maps.
VELDRAW_PLATFORM_API Set getZonesFromActiveLineMaps();

/// Enabled variables whose values in the zone are not in memory, but could be.
VELDRAW_PLATFORM_API Set getNotLoadedVariablesForZone(int zone);

// ---- guards and shapes ----------------------------------------------------------------------------------------------

VELDRAW_PLATFORM_API bool dataSetAndFrameAreAvailable();

/// Whether the interpolations can run: a 2D or 3D plot of a data set with an enabled variable that is not on an axis
/// and more than one enabled zone.
VELDRAW_PLATFORM_API bool isOkToInterpolate();

/// Whether a zone of the active data set is ordered with all three dimensions above 1.
VELDRAW_PLATFORM_API bool isOrderedVolumeZone(int zone);

/// Whether a zone of the active data set is ordered. Answered by the application itself: see FrameQueries.h.
VELDRAW_PLATFORM_API bool isOrderedZone(int zone);

/// Which dimensions of a zone of the active data set are above 1; ZoneOrder_I when none is, and for no such zone.
VELDRAW_PLATFORM_API ZoneOrder_e getZoneOrder(int zone);

/// Whether the plot type is a line plot.
VELDRAW_PLATFORM_API bool isValidLinePlotType(PlotType_e plotType);

/// Whether a variable's range can be asked for: there is a data set and the variable is enabled.
VELDRAW_PLATFORM_API bool okToQueryForVarInfo(int var);
/// Whether its limits over the active zones are estimates: those of a zone are, or a zone has values that nobody has looked at yet.
VELDRAW_PLATFORM_API bool isVarRangeEstimatedForAnyActiveZones(int var);

// ---- ranges and names -----------------------------------------------------------------------------------------------

/// Smallest and largest finite value of a variable in a zone of the active data set.
/// @param loadIfNeeded true: deferred values are loaded for it
/// @return false when it is not known; @p min and @p max are unchanged then
VELDRAW_PLATFORM_API bool getVarMinMaxForZone(int var, int zone, bool loadIfNeeded, double& min, double& max);

/// The same over those of the zones that know theirs.
/// @return false when none does; @p min and @p max are unchanged then
VELDRAW_PLATFORM_API bool getVarMinMaxForZoneSet(int var, Set const& zones, bool loadIfNeeded, double& min,
                                                 double& max);

/// The name that a variable is shown with, UTF-8.
VELDRAW_PLATFORM_API std::string variableNameFormattedForAliases(int var);
VELDRAW_PLATFORM_API std::string variableNameFormattedForAliasesForFrame(long long frameID, int var);

} // namespace veldraw::sdk
