#pragma once

/// @file
/// Field maps of the active frame: one a time strand and one a static zone, in order of their lowest zone.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Enabled zones of a field map. The set is empty when none of its zones is enabled; the number stays the map's all the same.
/// @param fieldMap one-based number
/// @param zones receives a new set of one-based numbers that the caller owns; null on failure
/// @return false for a number that does not exist
VELDRAW_PLATFORM_API bool VelUtilFieldMapGetZones(int fieldMap, Set_s** zones);

#ifdef __cplusplus
}
#endif
