#include "app/export/writing/FileSave.h"

#include "app/export/writing/DiskSync.h"
#include "app/export/writing/LateWork.h"
#include "app/export/writing/WriteReason.h"

#include <cerrno>
#include <cstdio>

namespace veldraw::app {

// The target is looked at once more when no other save can change it.
FileSave::FileSave(std::string const& path)
    : m_journal(SaveTarget(path).path())
    , m_target(m_journal.target())
{
    m_journal.note({});
    m_journal.makeFile(m_journal.part(), m_target.rights() ? &*m_target.rights() : nullptr);
}

void FileSave::commit(kernel::Progress& progress, std::vector<std::string>& remarks)
{
    synchronise(path(), progress);
    LateWork late(remarks);
    putInPlace(m_target, m_journal);
    late.run([&] { return synchroniseChangedFolder(m_target.folder(), remarks); });
}

void putInPlace(SaveTarget const& target, SaveJournal& journal)
{
    target.check();
    if (std::rename(journal.pathTo(journal.part()).c_str(), target.path().c_str()) != 0)
        throwReason(errno);
    journal.keep();
}

} // namespace veldraw::app
