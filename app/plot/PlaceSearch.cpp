#include "app/plot/PlaceSearch.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <utility>

namespace veldraw::app {

/// One search, with its thread.
class PlaceSearch::Job
{
public:
    Job(PlaceSearch& search, SeenQuestion question, Answer answer)
        : m_search(search)
        , m_question(std::move(question))
        , m_answer(std::move(answer))
    {
        try {
            m_thread = std::thread([this] { work(); });
        } catch (std::system_error const&) {
            work(); // no thread is to be had: the window waits
        }
    }

    ~Job()
    {
        interrupt();
        if (m_thread.joinable())
            m_thread.join();
    }

    void interrupt() { m_progress.interrupt(); }
    bool isDone() const { return m_isDone; }
    void tell() const { m_answer(m_question, m_found); }

    Job(Job const&) = delete;
    Job& operator=(Job const&) = delete;

private:
    void work() noexcept
    {
        try {
            m_found = seenCell(m_question, m_progress);
            QMetaObject::invokeMethod(
                &m_search, [&search = m_search, this] { search.finish(this); }, Qt::QueuedConnection);
        } catch (std::exception const&) {
            // No memory: nothing is told of the place.
        }
        m_isDone = true;
    }

    PlaceSearch& m_search;
    SeenQuestion m_question;
    Answer m_answer;
    kernel::Progress m_progress;
    std::optional<SeenCell> m_found;
    std::atomic<bool> m_isDone{false};
    std::thread m_thread;
};

PlaceSearch::PlaceSearch(QObject* parent)
    : QObject(parent)
{
}

PlaceSearch::~PlaceSearch() = default;

void PlaceSearch::start(SeenQuestion question, Answer answer)
{
    drop();
    m_job = std::make_unique<Job>(*this, std::move(question), std::move(answer));
}

void PlaceSearch::drop()
{
    if (!m_job)
        return;
    m_job->interrupt();
    m_dropped.push_back(std::move(m_job));
}

// Every search says when it has ended, also one that was dropped: what it read is let go of then.
void PlaceSearch::finish(Job const* job)
{
    m_dropped.erase(std::remove_if(m_dropped.begin(), m_dropped.end(),
                                   [job](auto const& dropped) { return dropped.get() == job || dropped->isDone(); }),
                    m_dropped.end());
    if (m_job.get() != job)
        return;
    std::unique_ptr<Job> const done = std::move(m_job);
    done->tell();
}

} // namespace veldraw::app
