#pragma once

/// @file
/// Messages to the user.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Tells an error and waits until the user has read it. Without a screen it goes to standard error.
/// @param message UTF-8; null counts as an empty text
VELDRAW_PLATFORM_API void VelUtilDialogErrMsg(char const* message);

/// Tells something and waits until the user has read it. Without a screen it goes to standard error.
/// @param text UTF-8; null counts as an empty text
/// @param type MessageBoxType_e as a number
/// @return true when the text was told
VELDRAW_PLATFORM_API bool VelUtilDialogMessageBox(char const* text, int type);

#ifdef __cplusplus
}
#endif
