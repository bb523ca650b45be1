#include "app/recovery/StampedFile.h"

#include "app/files/SystemReason.h"

#include <cerrno>
#include <sys/stat.h>

namespace veldraw::app {

namespace {

constexpr std::int64_t nanoseconds = 1000000000;

} // namespace

StampedFile StampedFile::of(std::string const& path)
{
    struct stat status
    {
    };
    StampedFile file;
    file.path = path;
    if (::stat(path.c_str(), &status) == 0) {
        file.size = status.st_size;
        file.modified = status.st_mtim.tv_sec * nanoseconds + status.st_mtim.tv_nsec;
    }
    return file;
}

std::string StampedFile::difference() const
{
    StampedFile const now = of(path);
    int const problem = errno;
    if (size < 0)
        return "\"" + path + "\" could not be looked at when it was opened.";
    if (now.size < 0)
        return problem == ENOENT || problem == ENOTDIR ? "\"" + path + "\" is no longer there."
                                                       : "\"" + path + "\": " + systemReason(problem);
    return now.size == size && now.modified == modified ? std::string() : "\"" + path + "\" has been changed since.";
}

std::string differenceOf(std::vector<StampedFile> const& files)
{
    for (StampedFile const& file : files) {
        std::string difference = file.difference();
        if (!difference.empty())
            return difference;
    }
    return {};
}

} // namespace veldraw::app
