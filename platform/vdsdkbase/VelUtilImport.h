#pragma once

/// @file
/// Where the active data set came from.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// One of the loader instructions.
/// @param number one-based
/// @param loaderName receives the loader's name, UTF-8; the caller gives it back with VelUtilStringDealloc()
/// @param instructions receives the loader's words; the caller gives them back with VelUtilStringListDealloc()
/// @return false for a number that does not exist; both results are null then
VELDRAW_PLATFORM_API bool VelUtilImportGetLoaderInstrByNum(int number, char** loaderName, StringList_s** instructions);

/// Number of loader instructions, 0 without a data set.
VELDRAW_PLATFORM_API int VelUtilImportGetLoaderInstrCount(void);

#ifdef __cplusplus
}
#endif
