#pragma once

#include <fstream>
#include <string>

namespace veldraw::app {

/// Extension of a file name in lower case, without the dot; empty when there is none. Paths are UTF-8 in every locale.
std::string extensionOf(std::string const& path);

/// File name without folder and extension.
std::string baseNameOf(std::string const& path);

/// @throws ImportError with the reason when @p path is no regular file with something in it that can be read
void checkReadable(std::string const& path);

/// Opens a regular file. Another program may have put a pipe or a device in its place since it was checked: nobody waits for these.
/// @throws ImportError with the reason
std::ifstream openToRead(std::string const& path);

} // namespace veldraw::app
