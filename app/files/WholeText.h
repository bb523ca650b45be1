#pragma once

#include <string>

namespace veldraw::app {

/// What stands in a file that lists others. @throws ImportError with the reason, as when it is larger than any such list
std::string wholeText(std::string const& path);

} // namespace veldraw::app
