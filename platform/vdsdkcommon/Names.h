#pragma once

/// @file
/// Names of a frame's line maps and of its data set's zones and variables, and how lists rename the latter.
/// Numbers are one-based, texts UTF-8.

#include "platform/PlatformApi.h"

#include <string>

namespace veldraw::sdk {

/// Empty when there is no such frame or zone.
VELDRAW_PLATFORM_API std::string zoneNameForFrame(long long frameID, int zone);

/// Empty when there is no such frame or variable.
VELDRAW_PLATFORM_API std::string variableNameForFrame(long long frameID, int var);

/// 0 when there is no such frame or zone.
VELDRAW_PLATFORM_API long long zoneUniqueIDForFrame(long long frameID, int zone);

/// Number of a zone of the active data set, 0 when it has none of this unique identifier.
VELDRAW_PLATFORM_API int zoneNumberByUniqueID(long long zoneID);

/// Renames a zone, as one undo step. @return zero when there is none, or when the name is not allowed
VELDRAW_PLATFORM_API char renameZoneForFrame(long long frameID, int zone, char const* name);

/// Renames a variable, as one undo step. @return zero when there is none, or when the name is not allowed
VELDRAW_PLATFORM_API char renameVariableForFrame(long long frameID, int var, char const* name);

/// Empty when there is no such frame or line map.
VELDRAW_PLATFORM_API std::string lineMapNameForFrame(long long frameID, int lineMap);

} // namespace veldraw::sdk
