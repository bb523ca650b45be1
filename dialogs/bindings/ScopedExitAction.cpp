#include "dialogs/bindings/ScopedExitAction.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

ScopedExitAction::ScopedExitAction(std::function<void()> const& action)
    : m_action(action)
{
}

ScopedExitAction::~ScopedExitAction() noexcept(false)
{
    if (std::uncaught_exceptions() == m_exceptionsBefore) {
        m_action();
        return;
    }
    try {
        m_action();
    } catch (...) {
        // One exception is on its way already, and two would end the program.
    }
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
