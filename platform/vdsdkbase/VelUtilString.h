#pragma once

/// @file
/// Texts and lists of texts that the kernel hands out.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Gives a text back that the kernel handed out and sets the caller's pointer to null. Null is allowed.
VELDRAW_PLATFORM_API void VelUtilStringDealloc(char** string);

/// Gives a list of texts back and sets the caller's handle to null. Null is allowed.
VELDRAW_PLATFORM_API void VelUtilStringListDealloc(StringList_s** list);

/// Number of texts in the list; 0 for a null list.
VELDRAW_PLATFORM_API int VelUtilStringListGetCount(StringList_s* list);

/// One text of the list, UTF-8. It stays the list's: not to be given back, valid as long as the list.
/// @param number one-based
/// @return null for a null list or a number that is out of range
VELDRAW_PLATFORM_API char const* VelUtilStringListGetRawStringPtr(StringList_s* list, int number);

#ifdef __cplusplus
}
#endif
