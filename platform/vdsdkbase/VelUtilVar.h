#pragma once

/// @file
/// Variables of the active data set, or of a frame's.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// One-based number of the variable assigned to a letter in the active frame.
/// @param assignment 'X', 'Y', 'Z', 'U', 'V', 'W' or 'C'
/// @return 0 when nothing is assigned
VELDRAW_PLATFORM_API int VelUtilVarGetNumByAssignment(char assignment);

/// One-based number of a variable of the active data set, 0 when it has no variable of this unique identifier.
VELDRAW_PLATFORM_API int VelUtilVarGetNumByUniqueID(long long varID);

/// State of a variable in a zone: VarStatus_e as a number, VarStatus_Map for values that stand unaltered in a mapped file;
/// VarStatus_NotLoaded for numbers that do not exist. Never loads.
/// @param zone one-based number
/// @param var one-based number
VELDRAW_PLATFORM_API int VelUtilVarGetStatus(int zone, int var);

/// Unique identifier of a variable of a frame's data set, 0 when there is no such frame or variable.
/// @param frameID unique identifier of the frame
/// @param var one-based number
VELDRAW_PLATFORM_API long long VelUtilVarGetUniqueIDForFrame(long long frameID, int var);

/// Whether the variable is enabled; false for a number that does not exist.
/// @param var one-based number
VELDRAW_PLATFORM_API bool VelUtilVarIsEnabled(int var);

/// Whether the values come from a file that serves them piece by piece: those that are mapped, or will be, and are so many that nothing goes
/// through all of them unasked. Never loads; false for numbers that do not exist.
/// @param zone one-based number
/// @param var one-based number
VELDRAW_PLATFORM_API bool VelUtilVarIsSZLData(int zone, int var);

/// Whether smallest and largest value are the loader's estimate. Never loads; false for numbers that do not exist.
/// @param zone one-based number
/// @param var one-based number
VELDRAW_PLATFORM_API bool VelUtilVarRangeIsEstimated(int zone, int var);

#ifdef __cplusplus
}
#endif
