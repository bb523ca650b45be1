#include "app/export/writing/OutputFile.h"

#include "app/export/writing/WriteReason.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace veldraw::app {

OutputFile::OutputFile(std::string const& path)
    : m_descriptor(::open(path.c_str(), O_WRONLY | O_TRUNC | O_NOFOLLOW | O_CLOEXEC))
{
    if (m_descriptor < 0)
        throwReason(errno);
}

OutputFile::~OutputFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void OutputFile::write(char const* bytes, std::size_t count)
{
    while (count > 0) {
        ssize_t const written = ::write(m_descriptor, bytes, count);
        if (written < 0 && errno != EINTR)
            throwReason(errno);
        std::size_t const done = written > 0 ? static_cast<std::size_t>(written) : 0;
        bytes += done;
        count -= done;
    }
}

void OutputFile::close()
{
    if (::close(std::exchange(m_descriptor, -1)) != 0 && errno != EINTR)
        throwReason(errno);
}

} // namespace veldraw::app
