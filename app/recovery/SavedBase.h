#pragma once

#include "app/recovery/StampedFile.h"

#include <optional>
#include <string>
#include <vector>

namespace veldraw::kernel {
struct Frame;
class Session;
} // namespace veldraw::kernel

namespace veldraw::app {

/// A saved file from which work can go on as if it had not been saved and opened again. It is needed where a save has replaced the file that the
/// work began with.
struct SavedBase
{
    std::string path;
    std::vector<std::string> commands; ///< that make the frame what it was, once the file is open
    std::string state;                 ///< of the frame, to be compared then
};

/// What the active frame has just been saved to, if work can go on from there: the only frame of the page, with fields that share no values, which no
/// file tells. @param path one file, or an index with a folder of the same name
std::optional<SavedBase> baseOf(kernel::Session const& session, std::string const& path);

/// All that commands may depend on but values: titles, names, kinds, what is enabled, variables on axes; as a check sum.
std::string stateOf(kernel::Frame const& frame);

/// A saved file with all the files of the folder that may belong to it.
std::vector<StampedFile> filesOfSave(std::string const& path);

} // namespace veldraw::app
