#include "app/import/FileWatch.h"

#include "app/import/ImportError.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>

namespace veldraw::app {

void FileWatch::add(std::string const& path)
{
    m_files.emplace_back(path, stateOf(path));
}

void FileWatch::check() const
{
    for (auto const& [path, before] : m_files) {
        State const now = stateOf(path);
        bool const same = now.size == before.size && now.inode == before.inode &&
                          now.modified.tv_sec == before.modified.tv_sec &&
                          now.modified.tv_nsec == before.modified.tv_nsec;
        if (!same)
            throw ImportError("another program changed \"" + path +
                              "\" while it was read; try again when it has finished");
    }
}

FileWatch::State FileWatch::stateOf(std::string const& path)
{
    struct stat status
    {
    };
    if (::stat(path.c_str(), &status) != 0)
        throw ImportError("\"" + path + "\": " + std::strerror(errno));
    return {status.st_size, status.st_mtim, status.st_ino};
}

} // namespace veldraw::app
