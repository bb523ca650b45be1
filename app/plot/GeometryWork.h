#pragma once

#include "app/plot/ZoneGeometry.h"

#include <functional>
#include <memory>
#include <vector>

namespace veldraw::app {

/// A zone whose geometry is to be computed.
struct GeometryRequest
{
    kernel::UniqueId zone = 0;
    ZoneSource source;
    std::shared_ptr<ZoneGeometry const> before; ///< an older geometry whose unchanged parts are reused; may be null
};

/// The computed geometry of a zone.
struct GeometryResult
{
    kernel::UniqueId zone = 0;
    std::shared_ptr<ZoneGeometry const> geometry;
};

/// Computes geometries of zones on all cores, either at once (`run`) or in the background (`start`).
///
/// There is one background job at a time. Starting another one interrupts it and discards its result.
class GeometryWork
{
public:
    using Requests = std::vector<GeometryRequest>;
    using Results = std::vector<GeometryResult>;

    /// @param ready called on another thread when the background job is done; empty: background jobs are not possible
    explicit GeometryWork(std::function<void()> ready);
    ~GeometryWork();

    bool canWorkAside() const { return static_cast<bool>(m_ready); }

    /// Computes the geometries and returns them. @throws std::bad_alloc
    static Results run(Requests const& requests, kernel::Progress const& progress);

    /// Starts a background job in place of the present one.
    void start(Requests requests);

    /// Whether a job was started whose result has not been taken yet.
    bool hasJob() const { return m_job != nullptr; }

    /// Whether the job computes any of these geometries.
    bool isWanted(Requests const& requests) const;

    /// Interrupts the job, if there is one, and discards it.
    void drop();

    /// Waits until the job is done.
    void wait();

    /// The result of the job; empty while it runs. @throws the exception that ended the job
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
