// Long work on behalf of the session.
#include "kernel/compute/BackgroundWork.h"
#include "kernel/frames/RoomForValues.h"
#include "kernel/style/StyleTree.h"
#include "kernel/undo/ChangeAfterLoad.h"

#include <stdexcept>

namespace veldraw::kernel {

/// Makes the session busy with a computation for a scope.
class Session::Computation
{
public:
    Computation(Session& session, Progress& progress)
        : m_session(session)
    {
        m_session.m_isBusy = true;
        m_session.m_isInterrupted = false;
        setProgress(&progress);
    }

    ~Computation()
    {
        setProgress(nullptr);
        m_session.m_isBusy = false;
    }

    Computation(Computation const&) = delete;
    Computation& operator=(Computation const&) = delete;

private:
    void setProgress(Progress* progress)
    {
        std::lock_guard<std::mutex> const lock(m_session.m_progressMutex);
        m_session.m_progress = progress;
    }

    Session& m_session;
};

void Session::setInterrupted(bool interrupted)
{
    std::lock_guard<std::mutex> const lock(m_progressMutex);
    m_isInterrupted = interrupted;
    if (interrupted && m_progress != nullptr) {
        m_progress->interrupt();
    }
}

void Session::runOperation(std::string const& name, std::function<void(Progress&)> const& work)
{
    if (m_isBusy) {
        throw std::logic_error("Another operation is running.");
    }
    StyleTree::Operation const unchanged(*m_style); // ends last: the writes that came meanwhile are operations as well
    Progress progress;
    Computation const computation(*this, progress);
    runInBackground(m_waiter, name, progress, work);
}

void Session::performOperation(std::string const& name, std::shared_ptr<DeferredLoad> const& load,
                               std::function<void(Progress&)> const& work,
                               std::function<std::shared_ptr<Change>()> const& makeChange)
{
    StyleTree::Operation const unchanged(*m_style);
    RoomForValues room(*this, *load);
    room.run(name, [&](Progress& progress) {
        if (!load->isEmpty()) {
            load->load(progress);
        }
        work(progress);
    });
    std::shared_ptr<Change> change = makeChange();
    if (change && !load->isEmpty()) {
        change = std::make_shared<ChangeAfterLoad>(m_events, std::move(change), load);
    }
    if (change) {
        m_history.perform(name, change);
    }
    if (!load->isEmpty()) {
        room.keepWithinLimit();
    }
}

} // namespace veldraw::kernel
