#pragma once

/// @file
/// What the mouse does in the work area.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Number of the present mouse mode.
VELDRAW_PLATFORM_API int VelUtilMouseGetCurrentMode(void);

/// Whether the mouse mode exists and can be set now.
VELDRAW_PLATFORM_API bool VelUtilMouseIsValidMode(int mode);

/// Sets the mouse mode. @return false when it is not valid now
VELDRAW_PLATFORM_API bool VelUtilMouseSetMode(int mode);

#ifdef __cplusplus
}
#endif
