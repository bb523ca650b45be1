#pragma once

/// @file
/// Line maps of the active frame.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Appends a line map. @return false when there is no frame or it has no data set
VELDRAW_PLATFORM_API bool VelUtilLineMapCreate(void);

/// Deletes line maps.
/// @param lineMaps one-based numbers, stays the caller's; null = all of the frame
/// @return false when there is no frame or a number does not exist; true when there was nothing to delete
VELDRAW_PLATFORM_API bool VelUtilLineMapDelete(Set_s* lineMaps);

/// Number of line maps, 0 without a frame.
VELDRAW_PLATFORM_API int VelUtilLineMapGetCount(void);

/// Switches line maps on or off.
/// @param lineMaps one-based numbers, stays the caller's
/// @return SetValueReturnCode_Refused when there is no frame or a number does not exist
VELDRAW_PLATFORM_API SetValueReturnCode_e VelUtilLineMapSetActive(Set_s* lineMaps, bool isActive);

/// Assigns variables or the zone of line maps.
/// @param attribute "XAxisVar", "YAxisVar" or "Zone"
/// @param lineMaps one-based numbers, stays the caller's
/// @param doubleValue unused by these attributes
/// @param intValue one-based number of the variable or zone
/// @return SetValueReturnCode_Refused when something does not exist
VELDRAW_PLATFORM_API SetValueReturnCode_e VelUtilLineMapSetAssignment(char const* attribute, Set_s* lineMaps,
                                                                      double doubleValue, long long intValue);

/// Sets the range of indices that line maps draw.
/// @param attribute "IRange", "JRange" or "KRange"
/// @param subAttribute "Min", "Max" or "Skip"
/// @param lineMaps one-based numbers, stays the caller's
/// @param value one-based index, or the step; 0 as "Max" = the last index
/// @return SetValueReturnCode_Refused when something does not exist
VELDRAW_PLATFORM_API SetValueReturnCode_e VelUtilLineMapSetIndices(char const* attribute, char const* subAttribute,
                                                                   Set_s* lineMaps, long long value);

/// Names line maps.
/// @param lineMaps one-based numbers, stays the caller's
/// @param name UTF-8, copied
/// @return SetValueReturnCode_Refused when there is no frame or a number does not exist
VELDRAW_PLATFORM_API SetValueReturnCode_e VelUtilLineMapSetName(Set_s* lineMaps, char const* name);

/// Switches a layer of the active frame's line plot on or off.
/// @param layer "ShowLines" or "ShowSymbols"
/// @return SetValueReturnCode_Refused when there is no frame or no such layer
VELDRAW_PLATFORM_API SetValueReturnCode_e VelUtilLinePlotLayerSetIsActive(char const* layer, bool isActive);

#ifdef __cplusplus
}
#endif
