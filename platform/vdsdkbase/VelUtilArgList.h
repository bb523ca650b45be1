#pragma once

/// @file
/// Argument lists: named arguments of the functions whose name ends in X.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Makes an empty argument list. The caller gives it back with VelUtilArgListDealloc().
/// @return null when there is no memory
VELDRAW_PLATFORM_API ArgList_s* VelUtilArgListAlloc(void);

/// Appends a number with a fraction.
/// @param name name of the argument, copied
/// @return false for a null list or name, or without memory; the list is unchanged then
VELDRAW_PLATFORM_API bool VelUtilArgListAppendDouble(ArgList_s* list, char const* name, double value);

/// Appends a whole number; also flags (0, 1), enumerators and addresses of results.
/// @param name name of the argument, copied
/// @return false for a null list or name, or without memory; the list is unchanged then
VELDRAW_PLATFORM_API bool VelUtilArgListAppendInt(ArgList_s* list, char const* name, long long value);

/// Appends a set of one-based numbers.
/// @param name name of the argument, copied
/// @param set copied; stays the caller's
/// @return false for a null list, name or set, or without memory; the list is unchanged then
VELDRAW_PLATFORM_API bool VelUtilArgListAppendSet(ArgList_s* list, char const* name, Set_s* set);

/// Gives a list back and sets the caller's handle to null. A null pointer or handle is allowed.
VELDRAW_PLATFORM_API void VelUtilArgListDealloc(ArgList_s** list);

#ifdef __cplusplus
}
#endif
