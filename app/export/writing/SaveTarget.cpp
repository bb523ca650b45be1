#include "app/export/writing/SaveTarget.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/FolderContent.h"
#include "app/export/writing/WriteReason.h"

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

namespace fs = std::filesystem;

// What cannot be read as UTF-8 has been replaced by this letter before it came here.
void requireReadableName(std::string const& path)
{
    if (path.find("\xEF\xBF\xBD") != std::string::npos)
        throw ExportError("its name has letters that cannot be read, and a file of another name would be written");
}

void checkFolder(std::string const& folder)
{
    struct stat facts
    {
    };
    if (::stat(folder.c_str(), &facts) != 0)
        throwReason(errno);
    if (!S_ISDIR(facts.st_mode))
        throwReason(ENOTDIR);
    if (::access(folder.c_str(), W_OK | X_OK) != 0)
        throw ExportError(errno == EACCES ? "you have no permission to write into its folder" : reasonOf(errno));
}

} // namespace

std::string folderOf(std::string const& path)
{
    std::string const folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

// Root may write it in spite of that.
bool isWriteProtected(std::string const& path)
{
    auto const entry = entryAt(path);
    if (!entry)
        return false;
    if ((entry->st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        return true;
    if (::access(path.c_str(), W_OK) == 0)
        return false;
    if (errno != EACCES && errno != EPERM)
        throwReason(errno);
    return true;
}

std::string behindLinks(std::string const& path)
{
    constexpr int tooMany = 40; // as the system has it
    fs::path result(path);
    for (int links = 0;; ++links) {
        auto const entry = entryAt(result.string());
        if (!entry || !S_ISLNK(entry->st_mode))
            return result.string();
        std::error_code error;
        fs::path const next = fs::read_symlink(result, error);
        if (error || links == tooMany)
            throwReason(error ? error.value() : ELOOP);
        result = result.parent_path() / next;
    }
}

SaveTarget::SaveTarget(std::string const& path)
    : m_path(behindLinks(path))
{
    requireReadableName(m_path);
    checkPlace();
    if (entryAt(m_path))
        m_rights.emplace(m_path);
}

std::string SaveTarget::folder() const
{
    return folderOf(m_path);
}

std::string SaveTarget::name() const
{
    return fs::path(m_path).filename().string();
}

void SaveTarget::checkPlace() const
{
    checkFolder(folder());
    auto const old = entryAt(m_path);
    if (!old)
        return;
    if (S_ISDIR(old->st_mode))
        throw ExportError("there is a folder of this name");
    if (!S_ISREG(old->st_mode))
        throw ExportError("what has this name is no file but a device, a pipe or the like");
    if (isWriteProtected(m_path))
        throw ExportError("the file that is there is write-protected");
    if (old->st_nlink > 1)
        throw ExportError("the file that is there has a second name (a hard link), which would keep the old content");
}

void SaveTarget::check() const
{
    checkPlace();
    bool const isThere = entryAt(m_path).has_value();
    if (isThere && !m_rights)
        throw ExportError("another program has made a file of this name meanwhile");
    if (isThere && !(FileRights(m_path) == *m_rights))
        throw ExportError("its owner or permissions have been changed meanwhile");
}

} // namespace veldraw::app
