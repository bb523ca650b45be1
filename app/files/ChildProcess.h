#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace veldraw::app {

/// A program that runs beside us, its standard output read line by line; killed when the object goes away.
class ChildProcess
{
public:
    /// @param words the program's path and its arguments @throws ImportError when it cannot be started
    explicit ChildProcess(std::vector<std::string> const& words);
    ~ChildProcess();

    /// Waits up to @p milliseconds for output. @return complete lines; may be none
    std::vector<std::string> lines(int milliseconds);

    /// The output has been closed: the program has ended or is about to.
    bool hasEnded() const { return m_ended; }

    /// Waits for the end. @return true when the program ended by itself with status 0 or 1
    bool endedWell();

    ChildProcess(ChildProcess const&) = delete;
    ChildProcess& operator=(ChildProcess const&) = delete;

private:
    pid_t m_process = 0;
    int m_output = -1;
    bool m_ended = false;
    std::string m_rest; // of the last line
};

} // namespace veldraw::app
