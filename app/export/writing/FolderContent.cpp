#include "app/export/writing/FolderContent.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/WriteReason.h"

#include <cerrno>
#include <dirent.h>
#include <memory>

namespace veldraw::app {

std::optional<struct stat> entryAt(std::string const& path)
{
    struct stat facts
    {
    };
    if (::lstat(path.c_str(), &facts) == 0)
        return facts;
    if (errno != ENOENT)
        throwReason(errno);
    return {};
}

std::set<std::string> namesIn(std::string const& folder)
{
    // The iterators of the standard library end the program when there is no memory for them.
    std::unique_ptr<DIR, int (*)(DIR*)> const entries(::opendir(folder.c_str()), ::closedir);
    std::set<std::string> names;
    errno = entries ? 0 : errno;
    while (dirent const* const entry = entries ? ::readdir(entries.get()) : nullptr) {
        std::string const name = entry->d_name;
        if (name != "." && name != "..")
            names.insert(name);
        errno = 0;
    }
    if (errno != 0)
        throw ExportError("the folder \"" + folder + "\" cannot be read: " + reasonOf(errno));
    return names;
}

bool isFile(std::string const& path)
{
    struct stat facts
    {
    };
    bool const isThere = ::lstat(path.c_str(), &facts) == 0;
    if (!isThere && errno != ENOENT && errno != ENOTDIR)
        throw ExportError("\"" + path + "\" cannot be looked at: " + reasonOf(errno));
    return isThere && S_ISREG(facts.st_mode);
}

bool isFolder(std::string const& path)
{
    struct stat facts
    {
    };
    if (::lstat(path.c_str(), &facts) != 0) {
        if (errno != ENOENT)
            throwReason(errno);
        return false;
    }
    bool const isReached = ::stat(path.c_str(), &facts) == 0;
    if (!isReached && errno != ENOENT)
        throw ExportError("the folder \"" + path + "\" cannot be looked at: " + reasonOf(errno));
    if (!isReached)
        throw ExportError("the folder \"" + path + "\" cannot be made: a link to nothing has its name");
    if (!S_ISDIR(facts.st_mode))
        throw ExportError("the folder \"" + path + "\" cannot be made: a file of that name is there");
    return true;
}

} // namespace veldraw::app
