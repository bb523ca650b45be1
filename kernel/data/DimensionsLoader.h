#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/Blanking.h"
#include "kernel/data/Connectivity.h"

#include <cstdint>
#include <memory>

namespace veldraw::kernel {

/// Size of a zone, and what is known with it: its cells, and which of them are hidden.
struct ZoneDimensions
{
    std::int64_t i = 0; ///< as in Zone
    std::int64_t j = 0;
    std::int64_t k = 0;
    std::shared_ptr<Connectivity const> connectivity;   ///< null for ordered zones
    std::shared_ptr<Blanking const> blanking = nullptr; ///< null when no point and no cell is marked
};

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
