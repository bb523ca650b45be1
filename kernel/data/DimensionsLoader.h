#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/Blanking.h"
#include "kernel/data/Connectivity.h"

#include <cstdint>
#include <memory>

namespace veldraw::kernel {

/// Dimensions of a zone, with its cells and what is hidden of it.
struct ZoneDimensions
{
    std::int64_t i = 0; ///< as in Zone
    std::int64_t j = 0;
    std::int64_t k = 0;
    std::shared_ptr<Connectivity const> connectivity;   ///< null for ordered zones
    std::shared_ptr<Blanking const> blanking = nullptr; ///< null when no point and no cell is marked
};

/// Brings the dimensions of a zone when they are needed. Zones can share a loader: all of them get the dimensions at once.
class DimensionsLoader
{
public:
    DimensionsLoader() = default;
    virtual ~DimensionsLoader() = default;

    /// The dimensions, none of them negative. It may run on a worker thread, but never twice at a time. An implementation calls
    /// Progress::check() often, so that the user can cancel.
    /// @throws std::runtime_error with a reason for the user, std::bad_alloc, Interrupted
    virtual ZoneDimensions load(Progress& progress) = 0;

    DimensionsLoader(DimensionsLoader const&) = delete;
    DimensionsLoader& operator=(DimensionsLoader const&) = delete;
};

} // namespace veldraw::kernel
