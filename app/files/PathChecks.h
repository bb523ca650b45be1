#pragma once

#include <string>

namespace veldraw::app {

/// Extension of a file name in lower case, without the dot; empty when there is none. Paths are UTF-8 in every locale.
std::string extensionOf(std::string const& path);

/// File name without folder and extension.
std::string baseNameOf(std::string const& path);

/// @throws ImportError with the reason when @p path is no regular file with something in it that can be read
void checkReadable(std::string const& path);

} // namespace veldraw::app
