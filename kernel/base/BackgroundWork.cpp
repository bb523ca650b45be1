#include "kernel/base/BackgroundWork.h"

#include <optional>
#include <system_error>
#include <thread>

namespace veldraw::kernel {

namespace {

/// Work on a thread of its own, which is over when its scope is: work that nobody waits for any more is interrupted first.
class BackgroundThread
{
public:
    /// @throws std::bad_alloc; std::system_error where no thread is to be had
    BackgroundThread(Progress& progress, std::function<void(Progress&)> const& work)
        : m_progress(progress)
        , m_thread([this, &work] { fulfil(work); })
    {
    }

    ~BackgroundThread()
    {
        if (!m_isAwaited) {
            m_progress.interrupt();
        }
        m_thread.join();
    }

    std::shared_future<void> const& result() const { return m_result; }

    /// To be called when the work has ended. @throws what it has thrown
    void takeResult()
    {
        m_isAwaited = true;
        m_result.get();
    }

    BackgroundThread(BackgroundThread const&) = delete;
    BackgroundThread& operator=(BackgroundThread const&) = delete;

private:
    void fulfil(std::function<void(Progress&)> const& work) noexcept
    {
        try {
            work(m_progress);
            m_promise.set_value();
        } catch (...) {
            m_promise.set_exception(std::current_exception());
        }
    }

    Progress& m_progress;
    bool m_isAwaited = false;
    std::promise<void> m_promise;
    // Goes before the promise where there is no thread: for somebody who still waits the promise would be broken, which takes memory.
    std::shared_future<void> m_result = m_promise.get_future().share();
    std::thread m_thread;
};

/// Waits for the work on a thread of its own. @return false where there is no thread to be had
bool runBeside(Waiter& waiter, std::string const& name, Progress& progress, std::function<void(Progress&)> const& work)
{
    std::optional<BackgroundThread> thread;
    try {
        thread.emplace(progress, work);
    } catch (std::system_error const&) {
        return false;
    }
    waiter.wait(name, progress, thread->result());
    thread->takeResult();
    return true;
}

} // namespace

void runInBackground(Waiter* waiter, std::string const& name, Progress& progress,
                     std::function<void(Progress&)> const& work)
{
    if (waiter == nullptr || !runBeside(*waiter, name, progress, work)) {
        work(progress);
    }
}

} // namespace veldraw::kernel
