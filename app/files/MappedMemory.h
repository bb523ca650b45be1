#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// Maps @p bytes bytes of a file privately from @p offset on; what is written there never reaches the file.
///
/// A file that somebody cuts short while it is mapped has no bytes for the last pages any more. The pages that are looked at then read as
/// zeros instead of ending the program. So whoever makes something lasting of mapped values asks afterwards what has been lost of them.
/// @param path for messages
/// @return the byte at @p offset; the last holder unmaps
/// @throws ImportError the file is too short, or the system refuses
std::shared_ptr<void> mapFile(int descriptor, std::int64_t offset, std::int64_t bytes, std::string const& path);

/// What has been lost of mapped memory, in words for the user: "the file has been cut short". Empty as long as the file has all of its bytes and
/// no page was missing when somebody looked at it, and where nothing is mapped.
/// @param memory any byte of it
std::string lossAt(void const* memory);

/// Files of which pages were missing when somebody looked at them, each once as long as it is mapped. The next call tells those that have been
/// noticed since.
std::vector<std::string> takeCutFiles();

/// What to tell the user of them.
std::string cutFileWarning(std::vector<std::string> const& files);

} // namespace veldraw::app
