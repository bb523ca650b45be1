#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace veldraw::app {

/// Maps @p bytes bytes of a file privately from @p offset on; what is written there never reaches the file.
///
/// A file that somebody cuts short while it is mapped has no bytes for the last pages any more. The pages that are looked at
/// then read as zeros instead of ending the program, and missingMappedPages() tells.
/// @param path for messages
/// @return the byte at @p offset; the last holder unmaps
/// @throws ImportError the file is too short, or the system refuses
std::shared_ptr<void> mapFile(int descriptor, std::int64_t offset, std::int64_t bytes, std::string const& path);

/// What to tell the user when that number has grown.
constexpr char const* cutFileWarning =
    "Another program has cut a file short that is open here. Values that are missing now "
    "show as 0; do not trust what was read from it, and open it again.";

/// How often pages of mapped files were found missing since the program started.
int missingMappedPages();

} // namespace veldraw::app
