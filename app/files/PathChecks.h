#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace veldraw::app {

/// What is looked through byte by byte looks for a cancel after so many of them: often enough for the user, and too seldom to take time.
constexpr std::int64_t bytesBetweenChecks = 1 << 20;

/// Extension of a file name in lower case, without the dot; empty when there is none. Paths are UTF-8 in every locale.
std::string extensionOf(std::string const& path);

/// File name without folder and extension.
std::string baseNameOf(std::string const& path);

/// @throws ImportError with the reason when @p path is no regular file that can be read
void checkOpens(std::string const& path);

/// @throws ImportError as checkOpens(), and when the file is empty
void checkReadable(std::string const& path);

/// Opens a regular file. Another program may have put a pipe or a device in its place since it was checked: nobody waits for these.
/// @throws ImportError with the reason
std::ifstream openToRead(std::string const& path);

} // namespace veldraw::app
