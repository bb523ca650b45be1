#pragma once

#include "app/handover/Channel.h"
#include "app/import/child/ReaderLimits.h"

#include <string>
#include <sys/types.h>

namespace veldraw::app {

/// A process that reads files for us, with a channel to it; killed when the object goes away, or the thread that has made it.
class ReaderProcess
{
public:
    /// @param program its path @throws ImportError when it cannot be started
    explicit ReaderProcess(std::string const& program);
    ~ReaderProcess();

    std::string const& program() const { return m_program; }
    Channel& channel() { return m_channel; }

    /// Until it is allowed anything.
    bool isNew() const { return m_seconds == 0; }

    /// Adds to what it may take, now that it has started: processor time on top of what it was allowed before, memory besides what it
    /// took to start.
    void allow(ReaderLimits const& limits);

    /// Memory that it has in open files without names, in bytes.
    std::int64_t bytesInFiles() const;

    /// Ends it, once its side of the channel has gone. @return whether it had ended by itself for lack of processor time
    bool endedForTime();

    /// The reader that belongs to this program: it stands beside it, unless setUsualProgram() says otherwise.
    static std::string usualProgram();

    /// Says where the reader stands, for a library in a program of others. Before the first file is read.
    static void setUsualProgram(std::string program);

    ReaderProcess(ReaderProcess const&) = delete;
    ReaderProcess& operator=(ReaderProcess const&) = delete;

private:
    Channel start();
    void end();

    std::string m_program;
    pid_t m_process = 0;
    Channel m_channel;
    std::int64_t m_seconds = 0;       // that it has been allowed
    std::int64_t m_startingBytes = 0; // of addresses
};

} // namespace veldraw::app
