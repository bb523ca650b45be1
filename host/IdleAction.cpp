#include "host/IdleAction.h"

#include "host/KernelReason.h"

#include <exception>
#include <utility>

namespace veldraw::sdk::ui::common {

IdleAction::IdleAction(boost::function<void()> action)
    : m_action(std::move(action))
{
}

void IdleAction::run()
{
    if (m_cancelled || m_action.empty())
        return;
    ++m_running;
    runAndTell();
    --m_running;
    if (m_cancelled && m_running == 0)
        m_action.clear();
}

void IdleAction::runAndTell()
{
    host::KernelReason const reason;
    try {
        m_action();
    } catch (std::exception const& error) {
        if (*error.what() != '\0')
            reason.tellFailure(error.what());
    } catch (...) {
        reason.tellFailure("Unknown error");
    }
}

void IdleAction::cancel()
{
    m_cancelled = true;
    if (m_running == 0)
        m_action.clear();
}

} // namespace veldraw::sdk::ui::common
