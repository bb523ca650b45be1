#pragma once

#include "platform/PlatformApi.h"

#include <functional>
#include <string>

namespace veldraw::sdk {

/// Runs an action once, synchronously, and tells the user how it went.
/// An exception of the action passes through and nothing is told.
/// @param action returns non-zero for success
/// @param failureMessage told as an error when the action returns zero; an empty text is silent
/// @param successMessage told as an information otherwise; an empty text is silent
/// @return what the action returned
VELDRAW_PLATFORM_API char velUtilActionReporter(std::function<char()> const& action, std::string const& failureMessage,
                                                std::string const& successMessage);

} // namespace veldraw::sdk
