#include "app/export/writing/WriteReason.h"

#include "app/export/writing/ExportError.h"
#include "app/files/SystemReason.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace veldraw::app {

std::string reasonOf(int error)
{
    switch (error) {
    case ENOENT:
        return "there is no such folder";
    case ENOTDIR:
        return "a file stands where the path has a folder";
    case EACCES:
        return "you have no permission to write there";
    case EPERM:
        return "the system does not permit it";
    case EEXIST:
        return "something of that name is there already";
    case EINVAL:
        return "the system does not take such a name or file";
    case EBUSY:
    case ETXTBSY:
        return "another program is using it";
    case EHOSTDOWN:
    case ETIMEDOUT:
        return "the computer with the disk does not answer";
    default:
        return systemReason(error);
    }
}

void throwReason(int error)
{
    throw ExportError(reasonOf(error));
}

std::string whyNotWritten(std::string const& path, std::int64_t bytes)
{
    int const file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0)
        return reasonOf(errno);
    int const problem = ::posix_fallocate(file, 0, std::max<std::int64_t>(bytes, 1));
    ::close(file);
    return problem == 0 ? "the file could not be written; the disk may be full or failing" : reasonOf(problem);
}

} // namespace veldraw::app
