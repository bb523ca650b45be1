#pragma once

#include "kernel/base/Progress.h"

#include <cstdint>
#include <string>

namespace veldraw::app {

/// How many numbers stand one after the other in a VTK XML file before the next tag, or before the first word that is none.
/// @param position in bytes from the start of the file
/// @param most     counting ends when there are as many
/// @throws kernel::Interrupted
std::int64_t countNumbersInText(std::string const& path, std::int64_t position, std::int64_t most,
                                kernel::Progress const& progress);

} // namespace veldraw::app
