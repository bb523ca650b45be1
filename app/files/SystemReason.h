#pragma once

#include <string>

namespace veldraw::app {

/// Why the system refused to do something with a file, in words for the user, such as "there is no such file".
/// @param error of the system, as in errno
std::string systemReason(int error);

} // namespace veldraw::app
