#pragma once

/// @file
/// Data sets.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Deletes variables of the active data set in all zones. All or nothing.
/// @param vars one-based numbers; stays the caller's
/// @return false for an empty set, a number that does not exist, all variables, or a locked data set
VELDRAW_PLATFORM_API bool VelUtilDataSetDeleteVar(Set_s* vars);

/// Title and numbers of zones and variables of the active data set. A null pointer skips its answer.
/// @param title receives the title, UTF-8; the caller gives it back with VelUtilStringDealloc()
/// @param numZones receives the number of zones
/// @param numVars receives the number of variables
/// @return false when there is no data set; @p title is null and the numbers are 0 then
VELDRAW_PLATFORM_API bool VelUtilDataSetGetInfo(char** title, int* numZones, int* numVars);

/// Number of variables of the active data set, 0 when there is none.
VELDRAW_PLATFORM_API int VelUtilDataSetGetNumVars(void);

/// Number of zones of the active data set, 0 when there is none.
VELDRAW_PLATFORM_API int VelUtilDataSetGetNumZones(void);

/// Number of zones of a data set, 0 when there is no such data set.
VELDRAW_PLATFORM_API int VelUtilDataSetGetNumZonesByUniqueID(long long dataSetID);

/// Unique identifier of the active data set, 0 when there is none.
VELDRAW_PLATFORM_API long long VelUtilDataSetGetUniqueID(void);

/// Whether the active frame has a data set.
VELDRAW_PLATFORM_API bool VelUtilDataSetIsAvailable(void);

/// Whether the active data set is locked against changes.
/// @param lockerName receives the name of the lock's holder, UTF-8, null when not locked; the caller gives it back with
///        VelUtilStringDealloc(). May be null
VELDRAW_PLATFORM_API bool VelUtilDataSetIsLocked(char** lockerName);

/// Loads values so that the wanted variables are available in the given zones, and stay so.
/// @param dataSetID unique identifier of the data set
/// @param zones one-based numbers; stays the caller's
/// @param vars one-based numbers of all variables that are wanted there from now on: others may be let go of when memory is
///        short and they can be loaded again, unless a frame shows them. Stays the caller's
/// @return false when a number does not exist, a load failed, or it was interrupted; what is wanted is as before then
VELDRAW_PLATFORM_API bool VelUtilDataSetMakeVarsAvailableByUniqueID(long long dataSetID, Set_s* zones, Set_s* vars);

/// Renames the active data set.
/// @param title UTF-8, copied
/// @return false when there is no data set
VELDRAW_PLATFORM_API bool VelUtilDataSetSetTitle(char const* title);

#ifdef __cplusplus
}
#endif
