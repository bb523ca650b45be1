#pragma once

/// @file
/// Zones of the active data set.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Appends a copy of each source zone, sharing all values. Argument: "SourceZones" (set of one-based numbers).
/// @param list stays the caller's
/// @return false when the argument is missing, empty or names a zone that does not exist, for a locked data set and without
///         memory; nothing changed then
VELDRAW_PLATFORM_API bool VelUtilZoneCopyX(ArgList_s* list);

/// Dimensions of a zone; loads deferred metrics. Ordered: I, J, K. Finite element: points, elements, faces.
/// @param zone one-based number
/// @param i receives the first dimension, -1 when it could not be obtained; likewise @p j and @p k
VELDRAW_PLATFORM_API void VelUtilZoneGetIJK(int zone, long long* i, long long* j, long long* k);

/// Dimensions of a zone as far as they are known; never loads.
/// @param zone one-based number
/// @param i receives the first dimension, -1 when it is not known yet; likewise @p j and @p k. Each may be null
/// @param unused1 null, as @p unused2 and @p unused3
VELDRAW_PLATFORM_API void VelUtilZoneGetMetrics(int zone, long long* i, long long* j, long long* k, void* unused1,
                                                void* unused2, void* unused3);

/// Name of a zone.
/// @param zone one-based number
/// @param name receives the name, UTF-8; the caller gives it back with VelUtilStringDealloc(). Null on failure
/// @return false for a number that does not exist
VELDRAW_PLATFORM_API bool VelUtilZoneGetName(int zone, char** name);

/// Solution time of a zone in the file's units, 0 for a number that does not exist.
/// @param zone one-based number
VELDRAW_PLATFORM_API double VelUtilZoneGetSolutionTime(int zone);

/// Number of the time strand that a zone belongs to; 2147483646 = none, also for a number that does not exist.
/// @param zone one-based number
VELDRAW_PLATFORM_API int VelUtilZoneGetStrandID(int zone);

/// Kind of a zone: ZoneType_e as a number, -1 for a number that does not exist.
/// @param zone one-based number
VELDRAW_PLATFORM_API int VelUtilZoneGetType(int zone);

/// Whether the zone is enabled; false for a number that does not exist.
/// @param zone one-based number
VELDRAW_PLATFORM_API bool VelUtilZoneIsEnabled(int zone);

/// Whether the zone is made of finite elements; false for a number that does not exist.
/// @param zone one-based number
VELDRAW_PLATFORM_API bool VelUtilZoneIsFiniteElement(int zone);

/// Whether the zone is ordered with at most one dimension above 1, or of line segments; false for a number that does
/// not exist.
/// @param zone one-based number
VELDRAW_PLATFORM_API bool VelUtilZoneIsLinear(int zone);

/// Whether the zone is ordered; false for a number that does not exist.
/// @param zone one-based number
VELDRAW_PLATFORM_API bool VelUtilZoneIsOrdered(int zone);

#ifdef __cplusplus
}
#endif
