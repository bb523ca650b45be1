#pragma once

#include "app/files/FileStamp.h"
#include "app/import/reading/LoadingPlan.h"
#include "kernel/compute/Progress.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// What a reader works with besides its file.
struct ImportContext
{
    std::string title;                 ///< name of a zone that the file does not name
    FileWatch& watch;                  ///< has the file; gets each other one that is read for it
    LoadingPlan& plan;                 ///< decides which values are loaded at once
    kernel::Progress& progress;        ///< has a total, which is the whole import's
    std::vector<std::string>& remarks; ///< take sentences for the user: what was converted, left out and the like
};

} // namespace veldraw::app
