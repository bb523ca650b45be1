#pragma once

#include "kernel/base/Progress.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// Files that were written and that nobody sees yet. All of them are removed with the object unless commit() has succeeded.
///
/// Whenever the program or the system ends, users have the old files as they were, or all of the new ones: a single rename makes the difference.
/// Left-over parts are removed by the next save of the same name (SaveJournal).
class PendingSave
{
public:
    virtual ~PendingSave() = default;

    /// Brings all to the disk and puts it in place.
    /// @param progress hears how much has reached the disk; it may throw, and nothing is in place then
    /// @param remarks  take what the user should know, although it is done
    /// @throws ExportError nothing is in place
    virtual void commit(kernel::Progress& progress, std::vector<std::string>& remarks) = 0;

    PendingSave(PendingSave const&) = delete;
    PendingSave& operator=(PendingSave const&) = delete;

protected:
    PendingSave() = default;
};

} // namespace veldraw::app
