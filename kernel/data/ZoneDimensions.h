#pragma once

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

} // namespace veldraw::kernel
