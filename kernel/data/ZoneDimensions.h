#pragma once

#include "kernel/data/Connectivity.h"

#include <cstdint>
#include <memory>

namespace veldraw::kernel {

/// Size of a zone, and its cells, which are known with it.
struct ZoneDimensions
{
    std::int64_t i = 0; ///< as in Zone
    std::int64_t j = 0;
    std::int64_t k = 0;
    std::shared_ptr<Connectivity const> connectivity; ///< null for ordered zones
};

} // namespace veldraw::kernel
