#include "app/export/writing/FolderSave.h"

#include "app/export/writing/DiskSync.h"
#include "app/export/writing/ExportError.h"
#include "app/export/writing/FolderContent.h"
#include "app/export/writing/LateWork.h"
#include "app/export/writing/WriteReason.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace veldraw::app {

namespace {

void giveTo(std::string const& folder, FileRights const& rights)
{
    int const descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        throwReason(errno);
    try {
        rights.giveTo(descriptor);
    } catch (...) {
        ::close(descriptor);
        throw;
    }
    ::close(descriptor);
}

} // namespace

std::set<std::string> FolderSave::replacedFiles(std::string const& folder, IsEarlier const& isEarlier)
{
    if (!isFolder(folder))
        return {};
    if (behindLinks(folder) != folder)
        throw ExportError("\"" + folder + "\" is a link, which a new folder would replace");
    std::set<std::string> const names = namesIn(folder);
    for (std::string const& name : names) {
        if (!isEarlier(name) || !isFile(folder + "/" + name))
            throw ExportError("the folder \"" + folder + "\" has something else in it (\"" + name +
                              "\"), which would be lost");
        SaveTarget const target(folder + "/" + name);
    }
    return names;
}

FolderSave::FolderSave(std::string const& folder, std::vector<std::string> const& names, IsEarlier const& isEarlier)
    : m_folder(folder)
    , m_isEarlier(isEarlier)
    , m_names(names)
    , m_journal(folder)
    , m_isThere(isFolder(folder))
    , m_old(replacedFiles(folder, isEarlier))
{
    makeFiles();
}

// A file gets the rights of the old one of its name; one without, what all of the old ones allow.
void FolderSave::makeFiles()
{
    std::string const& part = m_journal.part();
    SaveJournal::Entries entries;
    for (std::string const& name : m_names)
        entries.files.push_back(part + "/" + name);
    for (std::string const& name : m_old) // which stand in it when it has been exchanged
        entries.files.push_back(part + "/" + name);
    m_journal.note(entries);
    m_journal.makeFolder(part);
    if (m_isThere)
        giveTo(partPath(), FileRights(m_folder));
    std::optional<FileRights> common;
    for (std::string const& name : m_old) {
        FileRights const rights(m_folder + "/" + name);
        if (common)
            common->narrowTo(rights);
        else
            common = rights;
    }
    for (std::string const& name : m_names) {
        std::optional<FileRights> rights = common;
        if (m_old.count(name) != 0)
            rights.emplace(m_folder + "/" + name);
        m_journal.makeFile(part + "/" + name, rights ? &*rights : nullptr);
    }
}

void FolderSave::commit(kernel::Progress& progress, std::vector<std::string>& remarks)
{
    for (std::string const& name : m_names)
        synchronise(path(name), progress);
    synchroniseFolder(partPath());
    LateWork late(remarks);
    putInPlace();
    m_journal.keep();
    bool const isAllRemoved = late.run([&] {
        bool const isOnDisk = synchroniseChangedFolder(folderOf(m_folder), remarks);
        if (isOnDisk)
            removeOld(remarks);
        return isOnDisk;
    });
    if (!isAllRemoved)
        m_journal.removeLater();
}

// A folder with something in it can only be exchanged.
void FolderSave::putInPlace() const
{
    if (replacedFiles(m_folder, m_isEarlier) != m_old)
        throw ExportError("another program changes the folder \"" + m_folder + "\" at the moment");
    bool const isExchange = isFolder(m_folder);
    unsigned const how = isExchange ? RENAME_EXCHANGE : RENAME_NOREPLACE;
    if (::renameat2(AT_FDCWD, partPath().c_str(), AT_FDCWD, m_folder.c_str(), how) == 0)
        return;
    bool const isUnknown = errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
    if (isUnknown && isExchange)
        throw ExportError("the disk's file system cannot replace the folder \"" + m_folder +
                          "\" in one step: move it away first, or choose another name");
    if (!isUnknown || std::rename(partPath().c_str(), m_folder.c_str()) != 0)
        throwReason(errno);
}

// The old folder has the name of the part now. What has come into it meanwhile stays.
void FolderSave::removeOld(std::vector<std::string>& remarks)
{
    for (std::string const& name : m_old)
        m_journal.remove(m_journal.part() + "/" + name);
    std::string const problem = m_journal.removeFolder(m_journal.part());
    if (!problem.empty())
        remarks.push_back("The old folder has the name \"" + m_journal.part() +
                          "\" now and is left to the next save: " + problem);
}

} // namespace veldraw::app
