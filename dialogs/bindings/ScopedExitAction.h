#pragma once

#include <exception>
#include <functional>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Runs an action at every way out of a scope, most often to reset a flag:
///
///     m_updating = true;
///     ScopedExitAction const reset([this] { m_updating = false; });
class ScopedExitAction
{
public:
    explicit ScopedExitAction(std::function<void()> const& action);
    ScopedExitAction(ScopedExitAction const&) = delete;
    ScopedExitAction& operator=(ScopedExitAction const&) = delete;

    /// What the action throws leaves the scope, unless an exception is already leaving it; an empty action throws `std::bad_function_call`.
    virtual ~ScopedExitAction() noexcept(false);

private:
    std::function<void()> m_action;
    int m_exceptionsBefore = std::uncaught_exceptions();
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
