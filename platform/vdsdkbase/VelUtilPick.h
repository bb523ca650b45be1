#pragma once

/// @file
/// What the user has picked.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Number of picked objects.
VELDRAW_PLATFORM_API int VelUtilPickListGetCount(void);

/// Kind of a picked object, 15 = an enabled zone of the active data set; 0 for any other zone and for a number that does not
/// exist.
/// @param number one-based
VELDRAW_PLATFORM_API int VelUtilPickListGetType(int number);

/// One-based number of a picked zone that is enabled; 0 for anything else.
/// @param number one-based
VELDRAW_PLATFORM_API int VelUtilPickListGetZoneNumber(int number);

#ifdef __cplusplus
}
#endif
