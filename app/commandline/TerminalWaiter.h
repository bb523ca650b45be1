#pragma once

#include "kernel/base/BackgroundWork.h"

#include <chrono>
#include <cstdio>

namespace veldraw::kernel {
class Session;
}

namespace veldraw::app {

/// Waits for long operations of a batch: shows their progress in a line of the terminal, and has Ctrl+C cancel them.
class TerminalWaiter : public kernel::Waiter
{
public:
    /// @param terminal where progress is shown; null for nowhere
    TerminalWaiter(kernel::Session& session, std::FILE* terminal);
    ~TerminalWaiter() override;

    void wait(std::string const& name, kernel::Progress& progress, std::shared_future<void> const& work) override;

    /// Whether Ctrl+C was pressed since the first waiter was made. A second Ctrl+C ends the program at once.
    static bool isCancelled();

private:
    void show(std::string const& name, double fraction);
    void clear();

    kernel::Session& m_session;
    std::FILE* m_terminal;
    bool m_isShown = false;
};

} // namespace veldraw::app
