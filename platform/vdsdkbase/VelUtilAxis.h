#pragma once

/// @file
/// Axes of the active frame.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// One-based numbers of the variables on the axes of the active frame; 0 = unassigned, or no frame. Z is 0 in 2D.
VELDRAW_PLATFORM_API void VelUtilAxisGetVarAssignments(int* x, int* y, int* z);

#ifdef __cplusplus
}
#endif
