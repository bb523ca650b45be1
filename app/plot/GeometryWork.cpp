#include "app/plot/GeometryWork.h"

#include "kernel/base/Parallel.h"

#include <vtkSMPTools.h>

#include <algorithm>
#include <chrono>
#include <future>
#include <new>
#include <system_error>
#include <thread>
#include <unordered_map>
#include <utility>

namespace veldraw::app {

/// One background computation, with its thread.
class GeometryWork::Job
{
public:
    Job(Requests requests, std::function<void()> ready)
        : m_requests(std::move(requests))
        , m_ready(std::move(ready))
    {
        for (GeometryRequest const& request : m_requests)
            m_keys.emplace(request.zone, request.source.key());
        try {
            m_thread = std::thread([this] { finishAndTell(); });
        } catch (std::system_error const&) {
            // No thread is to be had, for VTK's filters either, which would throw: the window waits for the picture.
            vtkSMPTools::SetBackend("Sequential");
            finishAndTell();
        }
    }

    ~Job()
    {
        interrupt();
        if (m_thread.joinable())
            m_thread.join();
    }

    void interrupt() { m_progress.interrupt(); }
    void wait() const { m_result.wait(); }
    bool isDone() const { return m_result.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }
    Results take() { return m_result.get(); }

    bool isWanted(Requests const& requests) const
    {
        return std::any_of(requests.begin(), requests.end(), [this](GeometryRequest const& request) {
            auto const key = m_keys.find(request.zone);
            return key != m_keys.end() && key->second == request.source.key();
        });
    }

    Job(Job const&) = delete;
    Job& operator=(Job const&) = delete;

private:
    void finishAndTell() noexcept
    {
        finish(std::exchange(m_requests, {}));
        try {
            if (!m_progress.isInterrupted())
                m_ready();
        } catch (std::bad_alloc const&) {
            // No memory even to tell: the picture comes with the next one.
        }
    }

    // The requests hold values; they are released before anybody is told that the job is done.
    void finish(Requests requests)
    {
        try {
            Results results = run(requests, m_progress);
            requests.clear();
            m_promise.set_value(std::move(results));
        } catch (...) {
            requests.clear();
            m_promise.set_exception(std::current_exception());
        }
    }

    Requests m_requests;
    std::function<void()> m_ready;
    kernel::Progress m_progress;
    std::unordered_map<kernel::UniqueId, GeometryKey> m_keys;
    std::promise<Results> m_promise;
    std::future<Results> m_result = m_promise.get_future();
    std::thread m_thread;
};

GeometryWork::GeometryWork(std::function<void()> ready)
    : m_ready(std::move(ready))
{
}

GeometryWork::~GeometryWork() = default;

GeometryWork::Results GeometryWork::run(Requests const& requests, kernel::Progress const& progress)
{
    Results results(requests.size());
    // Several zones are computed in parallel; for a single one its points are.
    kernel::parallelFor(
        static_cast<std::int64_t>(requests.size()), [&](std::int64_t first, std::int64_t last, std::int64_t) {
            for (auto n = static_cast<std::size_t>(first); n < static_cast<std::size_t>(last); ++n) {
                progress.check();
                GeometryRequest const& request = requests[n];
                results[n] = {request.zone, ZoneGeometry::create(request.source, request.before.get(), progress)};
            }
        });
    return results;
}

void GeometryWork::start(Requests requests)
{
    drop();
    m_job = std::make_unique<Job>(std::move(requests), m_ready);
}

void GeometryWork::drop()
{
    m_dropped.erase(std::remove_if(m_dropped.begin(), m_dropped.end(), [](auto const& job) { return job->isDone(); }),
                    m_dropped.end());
    if (!m_job)
        return;
    m_job->interrupt();
    m_dropped.push_back(std::move(m_job));
}

bool GeometryWork::isWanted(Requests const& requests) const
{
    return m_job && m_job->isWanted(requests);
}

void GeometryWork::wait()
{
    if (m_job)
        m_job->wait();
}

GeometryWork::Results GeometryWork::take()
{
    if (!m_job || !m_job->isDone())
        return {};
    std::unique_ptr<Job> const done = std::move(m_job);
    return done->take();
}

} // namespace veldraw::app
