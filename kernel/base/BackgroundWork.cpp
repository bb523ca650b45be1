#include "kernel/base/BackgroundWork.h"

#include <thread>

namespace veldraw::kernel {

namespace {

/// A thread that is over when its scope is: work that nobody waits for any more is interrupted first.
class ScopedThread
{
public:
    ScopedThread(std::packaged_task<void()> task, Progress& progress)
        : m_progress(progress)
        , m_thread(std::move(task))
    {
    }

    ~ScopedThread()
    {
        if (!m_isAwaited) {
            m_progress.interrupt();
        }
        m_thread.join();
    }

    void setAwaited() { m_isAwaited = true; }

    ScopedThread(ScopedThread const&) = delete;
    ScopedThread& operator=(ScopedThread const&) = delete;

private:
    Progress& m_progress;
    std::thread m_thread;
    bool m_isAwaited = false;
};

} // namespace

void runInBackground(Waiter* waiter, std::string const& name, Progress& progress,
                     std::function<void(Progress&)> const& work)
{
    if (waiter == nullptr) {
        work(progress);
        return;
    }
    std::packaged_task<void()> task([&work, &progress] { work(progress); });
    std::shared_future<void> const result = task.get_future();
    ScopedThread thread(std::move(task), progress);
    waiter->wait(name, progress, result);
    thread.setAwaited();
    result.get();
}

} // namespace veldraw::kernel
