#pragma once

#include "kernel/base/BackgroundWork.h"
#include "kernel/session/Session.h"

class QWidget;

namespace veldraw::app {

/// Waits for the kernel's long operations on behalf of the main window.
///
/// For the first half second it just waits: input stays with the window system and comes when the operation has ended. Then
/// a progress window comes up and the event loop runs, so that everything is painted and Cancel works. As long as it
/// runs, only the progress window gets input, an AppLock keeps every command from starting, and idle is held back.
class OperationWaiter : public kernel::Waiter
{
public:
    /// @param window is what the progress window stands over when no window of the program is active. Both must outlive
    /// the waiter.
    OperationWaiter(kernel::Session& session, QWidget& window);

    void wait(std::string const& name, kernel::Progress& progress, std::shared_future<void> const& work) override;

private:
    void waitWithWindow(std::string const& name, kernel::Progress& progress, std::shared_future<void> const& work);

    kernel::Session& m_session;
    QWidget& m_window;
    bool m_isWaiting = false;
};

} // namespace veldraw::app
