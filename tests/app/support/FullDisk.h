#pragma once

#include <csignal>
#include <sys/resource.h>

namespace veldraw::tests {

/// Lets no file of the process grow beyond a few bytes, as on a full disk.
class FullDisk
{
public:
    FullDisk()
        : m_signal(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = 4;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }

    FullDisk(FullDisk const&) = delete;
    FullDisk& operator=(FullDisk const&) = delete;

private:
    rlimit m_before{};
    void (*m_signal)(int);
};

} // namespace veldraw::tests
