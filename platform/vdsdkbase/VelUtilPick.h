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

/// Kind of a picked object, 15 = a zone of the active data set; 0 for a zone of another one and for a number that does not
/// exist.
/// @param number one-based
VELDRAW_PLATFORM_API int VelUtilPickListGetType(int number);

/// One-based number of a picked zone; 0 for a number that does not exist or is not of a zone.
/// @param number one-based
VELDRAW_PLATFORM_API int VelUtilPickListGetZoneNumber(int number);

#ifdef __cplusplus
}
#endif
