#include "dialogs/bindings/ScopedExitAction.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

ScopedExitAction::ScopedExitAction(std::function<void()> const& action)
    : m_action(action)
{
}

ScopedExitAction::~ScopedExitAction() noexcept(false)
{
    m_action();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
