#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/ZoneDimensions.h"

namespace veldraw::kernel {

/// Brings the dimensions of a zone whose size is not known yet. Zones with the same loader learn them together.
class DimensionsLoader
{
public:
    DimensionsLoader() = default;
    virtual ~DimensionsLoader() = default;

    /// The dimensions, none of them negative. May run on a worker thread, never twice at a time; looks at the cancel often
    /// (Progress::check()).
    /// @throws std::runtime_error with a reason for the user, std::bad_alloc, Interrupted
    virtual ZoneDimensions load(Progress& progress) = 0;

    DimensionsLoader(DimensionsLoader const&) = delete;
    DimensionsLoader& operator=(DimensionsLoader const&) = delete;
};

} // namespace veldraw::kernel
