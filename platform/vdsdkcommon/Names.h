#pragma once

/// @file
/// Names of a frame's line maps and of its data set's zones and variables, and how lists rename the latter; and the title of any data set.
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

/// Whether any frame shows a data set with this zone or variable.
VELDRAW_PLATFORM_API bool zoneExists(long long zoneID);
VELDRAW_PLATFORM_API bool variableExists(long long variableID);

/// Renames a zone or variable, as one undo step; its data set need not be that of the active frame. @return zero when there is none, or
/// when the name is not allowed
VELDRAW_PLATFORM_API char renameZone(long long zoneID, char const* name);
VELDRAW_PLATFORM_API char renameVariable(long long variableID, char const* name);

/// Empty when there is no such frame or line map.
VELDRAW_PLATFORM_API std::string lineMapNameForFrame(long long frameID, int lineMap);

/// Whether any frame shows this data set.
VELDRAW_PLATFORM_API bool dataSetExists(long long dataSetID);

/// Gives a data set another title, as one undo step; it need not be that of the active frame. @return zero when there is none
VELDRAW_PLATFORM_API char renameDataSet(long long dataSetID, char const* title);

} // namespace veldraw::sdk
