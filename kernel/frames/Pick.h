#pragma once

#include "kernel/base/Identifier.h"

namespace veldraw::kernel {

/// Something that the user has picked.
struct Pick
{
    static constexpr int zoneType = 15;

    int type = zoneType;
    UniqueId zone = 0; ///< of a picked zone, else 0
};

} // namespace veldraw::kernel
