#include "app/export/writing/FileSave.h"

#include "app/export/writing/DiskSync.h"
#include "app/export/writing/WriteReason.h"

#include <cerrno>
#include <cstdio>

namespace veldraw::app {

FileSave::FileSave(std::string const& path)
    : m_target(path)
    , m_journal(m_target.path())
    , m_part(nameWithEnding(m_target.name(), "." + m_journal.tag() + ".part"))
{
    m_journal.note({{m_part}, {}});
    m_journal.makeFile(m_part, m_target.rights() ? &*m_target.rights() : nullptr);
}

void FileSave::commit(kernel::Progress& progress, std::vector<std::string>& remarks)
{
    synchronise(path(), progress);
    putInPlace(path(), m_target, m_journal, remarks);
}

void putInPlace(std::string const& part, SaveTarget const& target, SaveJournal& journal,
                std::vector<std::string>& remarks)
{
    target.check();
    if (std::rename(part.c_str(), target.path().c_str()) != 0)
        throwReason(errno);
    journal.keep();
    synchroniseChangedFolder(target.folder(), remarks);
}

} // namespace veldraw::app
