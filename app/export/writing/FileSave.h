#pragma once

#include "app/export/writing/PendingSave.h"
#include "app/export/writing/SaveJournal.h"
#include "app/export/writing/SaveTarget.h"

#include <string>

namespace veldraw::app {

/// A save of one file.
class FileSave : public PendingSave
{
public:
    /// @param path that the user has chosen @throws ExportError
    explicit FileSave(std::string const& path);

    /// Where to write it; an empty file is there.
    std::string path() const { return m_journal.pathTo(m_journal.part()); }

    void commit(kernel::Progress& progress, std::vector<std::string>& remarks) override;

private:
    SaveJournal m_journal;
    SaveTarget m_target;
};

/// Puts the complete part of a save in the place of the target; its name is still to be brought to the disk.
/// @throws ExportError, std::bad_alloc nothing is in place
void putInPlace(SaveTarget const& target, SaveJournal& journal);

} // namespace veldraw::app
