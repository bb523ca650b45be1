#pragma once

/// @file
/// Style values.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Why the last style write was refused: a sentence that names the value, the limits and the path.
/// @param message receives the text, UTF-8; the caller gives it back with VelUtilStringDealloc(). Null when there is
/// none
/// @return false when there is no text
VELDRAW_PLATFORM_API bool VelUtilStyleGetLastErrorString(char** message);

#ifdef __cplusplus
}
#endif
