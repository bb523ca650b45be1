#pragma once

#include "app/handover/Descriptor.h"

#include <cstdint>
#include <memory>

namespace veldraw::app {

/// Memory that another process has filled and given away: nobody can cut it short or alter it but who has mapped it here.
struct SharedSegment
{
    /// Maps it. What is written to it stays here.
    /// @throws Nonsense when it is no such memory, or not closed against changes; std::bad_alloc
    static SharedSegment of(Descriptor const& file);

    std::shared_ptr<void> memory; ///< the last holder gives it back
    std::uint64_t bytes = 0;
};

} // namespace veldraw::app
