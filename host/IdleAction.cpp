#include "host/IdleAction.h"

#include "platform/vdsdkbase/VelUtilDialog.h"

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
    try {
        m_action();
    } catch (std::exception const& error) {
        if (*error.what() != '\0')
            VelUtilDialogErrMsg(error.what());
    } catch (...) {
        VelUtilDialogErrMsg("Unknown error");
    }
    --m_running;
    if (m_cancelled && m_running == 0)
        m_action.clear();
}

void IdleAction::cancel()
{
    m_cancelled = true;
    if (m_running == 0)
        m_action.clear();
}

} // namespace veldraw::sdk::ui::common
