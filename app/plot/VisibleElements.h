#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/Zone.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace veldraw::app {

/// The cells of a finite-element zone that are not hidden, as a zone of their own.
struct VisibleElements
{
    std::shared_ptr<kernel::Zone> zone; ///< with the same points, without fields
    std::vector<std::int64_t> cells;    ///< which cell of the other zone each one is

    /// @param zone whose cells name points that exist
    /// @throws kernel::Interrupted, std::bad_alloc
    static VisibleElements of(kernel::Zone const& zone, kernel::Progress const& progress);
};

} // namespace veldraw::app
