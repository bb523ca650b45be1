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
    std::string path() const { return m_journal.pathTo(m_part); }

    void commit(kernel::Progress& progress, std::vector<std::string>& remarks) override;

private:
    SaveTarget m_target;
    SaveJournal m_journal;
    std::string m_part;
};

/// Puts a complete file in the place of the target and its name on the disk.
void putInPlace(std::string const& part, SaveTarget const& target, SaveJournal& journal,
                std::vector<std::string>& remarks);

} // namespace veldraw::app
