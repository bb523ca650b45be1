#pragma once

#include "operations/Command.h"

#include <string>
#include <vector>

namespace veldraw::operations {

/// The commands of a script: one a line, with blank lines and remarks between. Ends of lines may be those of Windows, and a byte order
/// mark may stand at the start.
/// @param text UTF-8
/// @throws CommandError for the first line that is wrong, also for one with a zero byte
std::vector<Command> readScript(std::string const& text);

} // namespace veldraw::operations
