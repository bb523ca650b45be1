#include "app/files/PathChecks.h"

#include "app/files/ImportError.h"
#include "app/files/SystemReason.h"
#include "app/handover/Descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::app {

std::string extensionOf(std::string const& path)
{
    std::string extension = std::filesystem::path(path).extension().string();
    for (char& c : extension) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return extension.empty() ? extension : extension.substr(1);
}

std::string baseNameOf(std::string const& path)
{
    return std::filesystem::path(path).stem().string();
}

std::ifstream openToRead(std::string const& path)
{
    Descriptor const file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status
    {
    };
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0)
        throw ImportError(systemReason(errno));
    if (!S_ISREG(status.st_mode))
        throw ImportError("it is no regular file");
    // By its number it is the same file, whatever its name stands for by now.
    return std::ifstream("/proc/self/fd/" + std::to_string(file.number()), std::ios::binary);
}

void checkOpens(std::string const& path)
{
    struct stat status
    {
    };
    if (::stat(path.c_str(), &status) != 0)
        throw ImportError(systemReason(errno));
    if (S_ISDIR(status.st_mode))
        throw ImportError("it is a folder");
    // Opening a pipe or a device could wait for ever, also one that takes the place of the file now.
    if (!S_ISREG(status.st_mode))
        throw ImportError("it is no regular file");
    int const file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file < 0)
        throw ImportError(errno == EACCES ? "you have no permission to read it" : systemReason(errno));
    ::close(file);
}

void checkReadable(std::string const& path)
{
    checkOpens(path);
    if (std::filesystem::file_size(path) == 0)
        throw ImportError("it is empty");
}

} // namespace veldraw::app
