#include "app/window/OperationWaiter.h"

#include "app/window/InputGuard.h"
#include "app/window/ProgressWindow.h"
#include "host/ArrowCursor.h"
#include "host/IdleHold.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTimer>

#include <chrono>

namespace veldraw::app {

namespace {

constexpr std::chrono::milliseconds delayOfWindow(500);
constexpr std::chrono::milliseconds lookInterval(20);

bool isReady(std::shared_future<void> const& work)
{
    return work.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

} // namespace

OperationWaiter::OperationWaiter(kernel::Session& session, QWidget& window)
    : m_session(session)
    , m_window(window)
{
}

void OperationWaiter::wait(std::string const& name, kernel::Progress& progress, std::shared_future<void> const& work)
{
    bool const isShort = work.wait_for(delayOfWindow) == std::future_status::ready;
    if (!isShort && !m_isWaiting) {
        QScopedValueRollback<bool> const waiting(m_isWaiting, true);
        try {
            waitWithWindow(name, progress, work);
        } catch (std::exception const&) {
            // No memory for a window: the operation itself is not concerned.
        }
    }
    work.wait();
}

void OperationWaiter::waitWithWindow(std::string const& name, kernel::Progress& progress,
                                     std::shared_future<void> const& work)
{
    sdk::AppLock const lock(sdk::AppLock::DoNotRecord);
    host::IdleHold const hold;
    host::ArrowCursor const arrow;
    QWidget* const active = QApplication::activeWindow();
    // The parent may go while the loop runs and takes the window with it.
    QPointer<ProgressWindow> window = new ProgressWindow(QString::fromStdString(name), active ? active : &m_window);
    InputGuard const guard(*window);
    QEventLoop loop;
    QTimer look;
    QObject::connect(window, &ProgressWindow::cancelled, &loop, [&] {
        m_session.setInterrupted(true);
        progress.interrupt();
    });
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (isReady(work))
            loop.quit();
        else if (window)
            window->showFraction(progress.fraction());
    });
    window->showFraction(progress.fraction());
    window->show();
    look.start(lookInterval);
    loop.exec();
    delete window;
    if (!isReady(work))
        progress.interrupt(); // the program is told to end
}

} // namespace veldraw::app
