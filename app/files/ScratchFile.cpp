#include "app/files/ScratchFile.h"

#include "app/files/ImportError.h"
#include "app/files/MappedMemory.h"
#include "app/files/SystemReason.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

std::string folderForLargeFiles()
{
    char const* const wanted = std::getenv("TMPDIR");
    return wanted && *wanted ? wanted : "/var/tmp";
}

// The name is given up at once.
int openNameless(std::string const& folder)
{
    std::string path = folder + "/veldraw-XXXXXX";
    int const descriptor = ::mkostemp(&path[0], O_CLOEXEC);
    if (descriptor >= 0)
        ::unlink(path.c_str());
    return descriptor;
}

} // namespace

ScratchFile::ScratchFile(std::int64_t bytes)
    : m_folder(folderForLargeFiles())
    , m_bytes(bytes)
    , m_descriptor(openNameless(m_folder))
{
    if (m_descriptor < 0)
        fail(errno);
    int const problem = ::posix_fallocate(m_descriptor, 0, bytes);
    if (problem != 0) {
        ::close(m_descriptor);
        fail(problem);
    }
}

ScratchFile::~ScratchFile()
{
    ::close(m_descriptor);
}

void ScratchFile::write(std::int64_t position, std::vector<char> const& bytes) const
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        ssize_t const written = ::pwrite(m_descriptor, bytes.data() + done, bytes.size() - done,
                                         position + static_cast<std::int64_t>(done));
        if (written < 0 && errno != EINTR)
            fail(errno);
        done += written > 0 ? static_cast<std::size_t>(written) : 0;
    }
}

std::shared_ptr<void> ScratchFile::map() const
{
    return mapFile(m_descriptor, 0, m_bytes, m_folder);
}

void ScratchFile::fail(int error) const
{
    throw ImportError("no temporary file of " + std::to_string(m_bytes) + " bytes can be made in \"" + m_folder +
                      "\": " + (error == ENOENT ? "there is no such folder" : systemReason(error)));
}

} // namespace veldraw::app
