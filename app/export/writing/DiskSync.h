#pragma once

#include "kernel/base/Progress.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// Forces a file to the disk, piece by piece, since a large one takes long and the user may not want to wait.
/// @param progress hears of each piece; it may throw
/// @throws ExportError the disk does not take it
void synchronise(std::string const& path, kernel::Progress& progress);

/// Forces the names in a folder to the disk, as far as its file system can do that. @throws ExportError
void synchroniseFolder(std::string const& path);

/// The same for names that users already see, so that it is too late for a refusal: a remark tells when it fails.
/// @return whether it succeeded
bool synchroniseChangedFolder(std::string const& path, std::vector<std::string>& remarks);

} // namespace veldraw::app
