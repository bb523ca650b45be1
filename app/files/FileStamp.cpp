#include "app/files/FileStamp.h"

#include "app/files/ImportError.h"
#include "app/files/SystemReason.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::app {

// A descriptor of -1 stands for a look at the path.
FileStamp::FileStamp(std::string path, int descriptor)
    : m_path(std::move(path))
{
    struct stat status
    {
    };
    if ((descriptor < 0 ? ::stat(m_path.c_str(), &status) : ::fstat(descriptor, &status)) != 0)
        throw ImportError("\"" + m_path + "\": " + systemReason(errno));
    m_size = status.st_size;
    m_modified = status.st_mtim;
    m_inode = status.st_ino;
    m_device = status.st_dev;
}

FileStamp::FileStamp(std::string path)
    : FileStamp(std::move(path), -1)
{
}

int FileStamp::open() const
{
    // A pipe that has taken the place of the file would keep us waiting for its other end.
    int const descriptor = ::open(m_path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0)
        throw ImportError("\"" + m_path + "\" cannot be read any more: " + systemReason(errno));
    bool same = false;
    try {
        same = isSame(descriptor);
    } catch (...) {
        ::close(descriptor);
        throw;
    }
    if (same)
        return descriptor;
    ::close(descriptor);
    throw ImportError("\"" + m_path + "\" has been changed since it was opened; open it again");
}

void FileStamp::checkUnchanged() const
{
    ::close(open());
}

bool FileStamp::isUnchanged() const
{
    try {
        return !differsFrom(FileStamp(m_path));
    } catch (ImportError const&) {
        return false;
    }
}

bool FileStamp::isSame(int descriptor) const
{
    return !differsFrom(FileStamp(m_path, descriptor));
}

bool FileStamp::differsFrom(FileStamp const& other) const
{
    return m_size != other.m_size || m_inode != other.m_inode || m_device != other.m_device ||
           m_modified.tv_sec != other.m_modified.tv_sec || m_modified.tv_nsec != other.m_modified.tv_nsec;
}

void FileWatch::check() const
{
    for (FileStamp const& before : m_files) {
        if (before.differsFrom(FileStamp(before.path())))
            throw ImportError("another program changed \"" + before.path() +
                              "\" while it was read; try again when it has finished");
    }
}

} // namespace veldraw::app
