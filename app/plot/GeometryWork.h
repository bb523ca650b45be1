#pragma once

#include "app/plot/ZoneGeometry.h"

#include <functional>
#include <memory>
#include <vector>

namespace veldraw::app {

/// A zone whose geometry is wanted.
struct GeometryRequest
{
    kernel::UniqueId zone = 0;
    ZoneSource source;
    std::shared_ptr<ZoneGeometry const> before; ///< to take from what is as it has to be; may be null
};

/// A geometry and the zone that it was wanted for.
struct GeometryResult
{
    kernel::UniqueId zone = 0;
    std::shared_ptr<ZoneGeometry const> geometry;
};

/// Works out geometries of zones on all cores, here or aside.
///
/// There is one job at a time; another one takes its place, and nobody hears of the old one any more.
class GeometryWork
{
public:
    using Requests = std::vector<GeometryRequest>;
    using Results = std::vector<GeometryResult>;

    /// @param ready called on another thread when the job aside is done; empty: there is nobody to tell, and nothing is done aside
    explicit GeometryWork(std::function<void()> ready);
    ~GeometryWork();

    bool canWorkAside() const { return static_cast<bool>(m_ready); }

    /// Does it now, on this thread. @throws std::bad_alloc
    static Results run(Requests const& requests, kernel::Progress const& progress);

    /// Starts a job; one that runs is interrupted.
    void start(Requests requests);

    /// Whether there is a job that has been started and not been taken.
    bool hasJob() const { return m_job != nullptr; }

    /// Whether the job brings any of these geometries.
    bool isWanted(Requests const& requests) const;

    /// Interrupts the job, if there is one.
    void drop();

    /// Waits until the job is done.
    void wait();

    /// What has come of the job, if it is done. @throws what the job has thrown
    Results take();

    GeometryWork(GeometryWork const&) = delete;
    GeometryWork& operator=(GeometryWork const&) = delete;

private:
    class Job;

    std::function<void()> m_ready;
    std::unique_ptr<Job> m_job;
    std::vector<std::unique_ptr<Job>> m_dropped; // until their threads have ended
};

} // namespace veldraw::app
