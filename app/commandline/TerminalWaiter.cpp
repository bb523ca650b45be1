#include "app/commandline/TerminalWaiter.h"

#include "kernel/session/Session.h"

#include <csignal>

namespace veldraw::app {

namespace {

constexpr std::chrono::milliseconds delay(500); // of the line
constexpr std::chrono::milliseconds lookInterval(20);

std::sig_atomic_t volatile isInterruptPressed = 0;

void takeInterrupt(int signal)
{
    isInterruptPressed = 1;
    std::signal(signal, SIG_DFL);
}

} // namespace

TerminalWaiter::TerminalWaiter(kernel::Session& session, std::FILE* terminal)
    : m_session(session)
    , m_terminal(terminal)
{
    std::signal(SIGINT, takeInterrupt);
    m_session.setWaiter(this);
}

TerminalWaiter::~TerminalWaiter()
{
    m_session.setWaiter(nullptr);
    std::signal(SIGINT, SIG_DFL);
}

bool TerminalWaiter::isCancelled()
{
    return isInterruptPressed != 0;
}

void TerminalWaiter::wait(std::string const& name, kernel::Progress& progress, std::shared_future<void> const& work)
{
    auto const start = std::chrono::steady_clock::now();
    while (work.wait_for(lookInterval) != std::future_status::ready) {
        if (isCancelled()) {
            m_session.setInterrupted(true);
            progress.interrupt();
        }
        if (std::chrono::steady_clock::now() - start >= delay)
            show(name, progress.fraction());
    }
    clear();
}

// On the line of the cursor, over what stood there before.
void TerminalWaiter::show(std::string const& name, double fraction)
{
    if (m_terminal == nullptr)
        return;
    std::fprintf(m_terminal, "\r\033[K%s: %d %%", name.c_str(), static_cast<int>(fraction * 100.0));
    std::fflush(m_terminal);
    m_isShown = true;
}

void TerminalWaiter::clear()
{
    if (!m_isShown)
        return;
    std::fputs("\r\033[K", m_terminal);
    std::fflush(m_terminal);
    m_isShown = false;
}

} // namespace veldraw::app
