#include "kernel/session/LongWork.h"

#include <stdexcept>

namespace veldraw::kernel {

/// Notes for a scope that a computation runs.
class LongWork::BusyScope
{
public:
    BusyScope(LongWork& work, Progress& progress)
        : m_work(work)
    {
        m_work.m_isBusy = true;
        m_work.m_isInterrupted = false;
        setProgress(&progress);
    }

    ~BusyScope()
    {
        setProgress(nullptr);
        m_work.m_isBusy = false;
    }

    BusyScope(BusyScope const&) = delete;
    BusyScope& operator=(BusyScope const&) = delete;

private:
    void setProgress(Progress* progress)
    {
        std::lock_guard<std::mutex> const lock(m_work.m_progressMutex);
        m_work.m_progress = progress;
    }

    LongWork& m_work;
};

void LongWork::setInterrupted(bool interrupted)
{
    std::lock_guard<std::mutex> const lock(m_progressMutex);
    m_isInterrupted = interrupted;
    if (interrupted && m_progress != nullptr) {
        m_progress->interrupt();
    }
}

void LongWork::run(std::string const& name, std::function<void(Progress&)> const& work)
{
    if (m_isBusy) {
        throw std::logic_error("Another operation is running.");
    }
    Progress progress;
    BusyScope const scope(*this, progress);
    runInBackground(m_waiter, name, progress, work);
}

} // namespace veldraw::kernel
