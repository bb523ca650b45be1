#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/DeferredLoad.h"

#include <memory>

namespace veldraw::kernel {

/// Has loaders bring what is likely to be wanted next, on a thread aside, such as the next moment while time goes on. Nobody sees anything
/// of it but that the load of it takes no time: the data set stays as it is, and what fails is told when it is loaded.
///
/// A loader never runs twice at a time, so whoever has loaders run ends this first, or waits for it. It holds what has been brought for one
/// wish at most, beyond the limit for loaded values. Values that are mapped are left alone.
class FetchAhead
{
public:
    FetchAhead();
    ~FetchAhead();

    /// Begins to bring what a load is going to need, in the place of what was wished for before; nothing where there is no memory or no thread.
    void start(DeferredLoad const& load) noexcept;

    /// Whether some of what a load needs has been wished for.
    bool isFor(DeferredLoad const& load) const;

    /// Waits until all is there. On any thread. @throws Interrupted as soon as @p progress is
    void wait(Progress const& progress) const;

    /// What is there; to be called after wait(), and valid until end().
    FetchedValues const& fetched() const;

    /// Interrupts the loaders and drops what they have brought; returns when none runs any more.
    void end() noexcept;

    FetchAhead(FetchAhead const&) = delete;
    FetchAhead& operator=(FetchAhead const&) = delete;

private:
    class Job;

    std::unique_ptr<Job> m_job; // null when nothing is wished for
};

} // namespace veldraw::kernel
