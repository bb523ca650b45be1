#include "app/files/ChildProcess.h"

#include "app/files/ImportError.h"
#include "app/files/SystemReason.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace veldraw::app {

ChildProcess::ChildProcess(std::vector<std::string> const& words)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        throw ImportError(systemReason(errno));
    m_output = ends[0];
    std::vector<char*> arguments;
    for (std::string const& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], 1);
    ::posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    int const error = ::posix_spawn(&m_process, arguments[0], &actions, nullptr, arguments.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    if (error == 0)
        return;
    ::close(m_output);
    throw ImportError("the program \"" + words[0] + "\" cannot be started: " + systemReason(error));
}

ChildProcess::~ChildProcess()
{
    if (m_process > 0) {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
    ::close(m_output);
}

std::vector<std::string> ChildProcess::lines(int milliseconds)
{
    std::vector<std::string> result;
    pollfd output{m_output, POLLIN, 0};
    if (m_ended || ::poll(&output, 1, milliseconds) <= 0)
        return result;
    char text[4096];
    ssize_t const size = ::read(m_output, text, sizeof text);
    m_ended = size == 0 || (size < 0 && errno != EINTR);
    if (size > 0)
        m_rest.append(text, static_cast<std::size_t>(size));
    for (std::size_t end = m_rest.find('\n'); end != std::string::npos; end = m_rest.find('\n')) {
        result.push_back(m_rest.substr(0, end));
        m_rest.erase(0, end + 1);
    }
    return result;
}

bool ChildProcess::endedWell()
{
    int status = 0;
    pid_t ended = 0;
    do
        ended = ::waitpid(m_process, &status, 0);
    while (ended < 0 && errno == EINTR);
    m_process = 0;
    return ended > 0 && WIFEXITED(status) && WEXITSTATUS(status) <= 1;
}

} // namespace veldraw::app
