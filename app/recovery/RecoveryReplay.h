#pragma once

#include "app/commands/ProgramOperations.h"
#include "app/recovery/RecoveryRecords.h"
#include "kernel/session/Session.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// What came of repeating work.
struct ReplayOutcome
{
    int done = 0;        ///< steps on data
    int wanted = 0;      ///< and how many there are
    std::string command; ///< that could not be repeated; empty when all were
    std::string reason;  ///< why

    bool isWhole() const { return command.empty(); }
};

/// Repeats what is not undone, as if each step had been chosen in the window, up to the first one that fails; what was saved is not saved again.
/// A file that is to be opened has to be the one that was open before. Where it is another one since the work was saved in its place, the replay begins with
/// what was saved.
/// @param files opens them
ReplayOutcome replay(std::vector<RecoveryStep> const& steps, kernel::Session& session, FileOperations& files);

} // namespace veldraw::app
