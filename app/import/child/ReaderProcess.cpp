#include "app/import/child/ReaderProcess.h"

#include "app/files/ImportError.h"
#include "app/files/SystemReason.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace veldraw::app {

namespace {

constexpr int socketOfReader = 3;
constexpr int millisecondsToEnd = 20;      // as a rule
constexpr std::int64_t bytesOfBlock = 512; // of a file, as the system counts them

// What is done between the start of a process and its program.
class SpawnPlan
{
public:
    explicit SpawnPlan(int socket)
    {
        ::posix_spawn_file_actions_init(&m_actions);
        ::posix_spawn_file_actions_addopen(&m_actions, 0, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_addopen(&m_actions, 1, "/dev/null", O_WRONLY, 0);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // whose reports are for who runs the program
        ::posix_spawn_file_actions_addopen(&m_actions, 2, "/dev/null", O_WRONLY, 0);
#endif
        ::posix_spawn_file_actions_adddup2(&m_actions, socket, socketOfReader);
        ::posix_spawn_file_actions_addclosefrom_np(&m_actions, socketOfReader + 1);
        ::posix_spawnattr_init(&m_attributes);
        sigset_t none;
        ::sigemptyset(&none);
        ::posix_spawnattr_setsigmask(&m_attributes, &none);
        sigset_t usual;
        ::sigfillset(&usual);
        ::posix_spawnattr_setsigdefault(&m_attributes, &usual);
        ::posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }

    ~SpawnPlan()
    {
        ::posix_spawn_file_actions_destroy(&m_actions);
        ::posix_spawnattr_destroy(&m_attributes);
    }

    /// @return 0 or the system's error
    int start(std::string const& program, pid_t& process) const
    {
        std::array<char*, 2> words{const_cast<char*>(program.c_str()), nullptr};
        return ::posix_spawn(&process, program.c_str(), &m_actions, &m_attributes, words.data(), environ);
    }

    SpawnPlan(SpawnPlan const&) = delete;
    SpawnPlan& operator=(SpawnPlan const&) = delete;

private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

std::int64_t bytesOfAddresses(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/statm");
    std::int64_t pages = 0;
    file >> pages;
    return pages * ::sysconf(_SC_PAGESIZE);
}

void setLimit(pid_t process, int resource, std::int64_t most)
{
    rlimit limits{};
    if (::prlimit(process, static_cast<__rlimit_resource>(resource), nullptr, &limits) != 0)
        return;
    limits.rlim_cur = std::min(static_cast<rlim_t>(most), limits.rlim_max);
    ::prlimit(process, static_cast<__rlimit_resource>(resource), &limits, nullptr);
}

void await(pid_t process)
{
    while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
    }
}

// The system takes gigabytes back in its own time, which nobody who cancels has to wait for.
void awaitElsewhere(pid_t process)
{
    try {
        std::thread(await, process).detach();
    } catch (std::system_error const&) {
        await(process);
    }
}

/// The path that setUsualProgram() has said; empty at first.
std::string& programElsewhere()
{
    static std::string program;
    return program;
}

} // namespace

ReaderProcess::ReaderProcess(std::string const& program)
    : m_program(program)
    , m_channel(start())
{
}

Channel ReaderProcess::start()
{
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        throw ImportError("no other process can be talked to: " + systemReason(errno));
    Descriptor own(ends[0]);
    Descriptor const its(ends[1]);
    // Of its own number, so that it is not closed where it stands at that already.
    Descriptor const given(::fcntl(its.number(), F_DUPFD_CLOEXEC, socketOfReader + 1));
    int const error = given.isOpen() ? SpawnPlan(given.number()).start(m_program, m_process) : errno;
    if (error != 0)
        throw ImportError("the program \"" + m_program +
                          "\" cannot be started: " + (error == EAGAIN ? "too many others run" : systemReason(error)));
    return Channel(std::move(own));
}

ReaderProcess::~ReaderProcess()
{
    end();
}

void ReaderProcess::end()
{
    if (m_process <= 0)
        return;
    pid_t const process = std::exchange(m_process, 0);
    ::kill(process, SIGKILL);
    for (int left = millisecondsToEnd; left > 0; --left) {
        if (::waitpid(process, nullptr, WNOHANG) != 0)
            return;
        ::usleep(1000);
    }
    awaitElsewhere(process);
}

void ReaderProcess::allow(ReaderLimits const& limits)
{
    if (m_startingBytes == 0)
        m_startingBytes = bytesOfAddresses(m_process);
    m_seconds += limits.seconds;
    setLimit(m_process, RLIMIT_CPU, m_seconds);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // which takes addresses as it likes
    setLimit(m_process, RLIMIT_AS, m_startingBytes + limits.bytes);
#endif
    // Shared memory counts as files; the process can write to no others.
    setLimit(m_process, RLIMIT_FSIZE, limits.bytes);
}

std::int64_t ReaderProcess::bytesInFiles() const
{
    std::string const path = "/proc/" + std::to_string(m_process) + "/fd";
    std::unique_ptr<DIR, int (*)(DIR*)> const folder(::opendir(path.c_str()), ::closedir);
    std::int64_t bytes = 0;
    while (dirent const* const entry = folder ? ::readdir(folder.get()) : nullptr) {
        struct stat status
        {
        };
        bool const isNameless = ::fstatat(::dirfd(folder.get()), entry->d_name, &status, 0) == 0 &&
                                S_ISREG(status.st_mode) && status.st_nlink == 0;
        bytes += isNameless ? status.st_blocks * bytesOfBlock : 0;
    }
    return bytes;
}

// It may have closed the channel and live on. One that has ended already is not ended for another reason any more.
bool ReaderProcess::endedForTime()
{
    ::kill(m_process, SIGKILL);
    int status = 0;
    pid_t ended = 0;
    do
        ended = ::waitpid(m_process, &status, 0);
    while (ended < 0 && errno == EINTR);
    m_process = 0;
    return ended > 0 && WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU;
}

void ReaderProcess::setUsualProgram(std::string program)
{
    programElsewhere() = std::move(program);
}

std::string ReaderProcess::usualProgram()
{
    if (!programElsewhere().empty())
        return programElsewhere();
    return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "veldraw_reader").string();
}

} // namespace veldraw::app
