#pragma once

/// @file
/// Whether something can run.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Whether the user stopped the last operation: true from the stop until the next operation starts.
VELDRAW_PLATFORM_API bool VelUtilInterruptIsSet(void);

/// Whether smoothing can run: a data set, a 3D, 2D or line plot, an enabled zone and an enabled variable.
VELDRAW_PLATFORM_API bool VelUtilQueryOkToSmooth(void);

#ifdef __cplusplus
}
#endif
