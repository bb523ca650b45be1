#pragma once

/// @file
/// Values of a variable in a zone of the active data set.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Sets one value. Arguments: "Zone" (int, one-based), "Var" (int, one-based), "Index" (int, one-based, 64 bits),
/// "FieldValue" (double), "AutoBranch" (int, 1: storage that other zones share is copied first; 0: they change as
/// well).
/// @param list stays the caller's
/// @return false when an argument is missing or does not exist, for a passive variable, values that are not loaded, a
///         locked data set and without memory; nothing changed then
VELDRAW_PLATFORM_API bool VelUtilDataValueSetByZoneVarX(ArgList_s* list);

/// One value; loads deferred values.
/// @param zone one-based number
/// @param var one-based number
/// @param index one-based point or cell; cells of ordered zones are addressed with nodal strides
/// @return 0 for a passive variable, for numbers that do not exist, and when the load failed
VELDRAW_PLATFORM_API double VelUtilDataValueGetByZoneVar(int zone, int var, long long index);

/// Where the values sit: ValueLocation_e as a number, -1 for numbers that do not exist. Never loads.
/// @param zone one-based number
/// @param var one-based number
VELDRAW_PLATFORM_API int VelUtilDataValueGetLocation(int zone, int var);

/// How many zones share the storage, this one included; 0 for numbers that do not exist. Never loads.
/// @param zone one-based number
/// @param var one-based number
VELDRAW_PLATFORM_API int VelUtilDataValueGetShareCount(int zone, int var);

/// How a value is stored: FieldDataType_e as a number, 0 for numbers that do not exist. Never loads.
/// @param zone one-based number
/// @param var one-based number
VELDRAW_PLATFORM_API int VelUtilDataValueGetType(int zone, int var);

/// Whether the values are in memory. Never loads; false for numbers that do not exist.
/// @param zone one-based number
/// @param var one-based number
VELDRAW_PLATFORM_API bool VelUtilDataValueIsLoaded(int zone, int var);

/// Whether smallest and largest value are known, exactly or as an estimate. Never loads; false for numbers that do not
/// exist.
/// @param zone one-based number
/// @param var one-based number
VELDRAW_PLATFORM_API bool VelUtilDataValueIsMinMaxValidByZoneVar(int zone, int var);

/// Whether the variable has no values in this zone and reads as 0. Never loads; false for numbers that do not exist.
/// @param zone one-based number
/// @param var one-based number
VELDRAW_PLATFORM_API bool VelUtilDataValueIsPassive(int zone, int var);

#ifdef __cplusplus
}
#endif
