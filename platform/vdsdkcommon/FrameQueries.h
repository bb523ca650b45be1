#pragma once

/// @file
/// Questions to the active frame that the application answers itself. Some answers of the kernel's functions are also what they give when
/// they fail, such as a number of 0 for nothing. Before an action goes by such an answer it is held against the one here.

#include "platform/PlatformApi.h"

namespace veldraw::sdk {

/// PlotType_e as a number, 0 without a frame.
VELDRAW_PLATFORM_API int plotTypeOfActiveFrame();

/// One-based number of the variable that is assigned to a letter, 0 when none is. @param assignment 'X', 'Y', 'Z', 'U', 'V', 'W' or 'C'
VELDRAW_PLATFORM_API int variableAssignedInActiveFrame(char assignment);

/// 0 without a frame.
VELDRAW_PLATFORM_API int lineMapCountOfActiveFrame();

} // namespace veldraw::sdk
