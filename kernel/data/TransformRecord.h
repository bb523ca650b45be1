#pragma once

#include "kernel/base/Identifier.h"

#include <array>
#include <vector>

namespace veldraw::kernel {

/// What Fourier transforms have made of a data set's zones and variables, by identifiers. It tells which results a later transform of the
/// same ones may replace; copies of results are none. What has been deleted stays noted, since undo may bring it back.
struct TransformRecord
{
    struct ResultZone
    {
        UniqueId source;
        UniqueId zone;
    };

    struct ResultVariables
    {
        UniqueId source;
        std::array<UniqueId, 3> variables; ///< frequency, amplitude, phase
    };

    std::vector<ResultZone> zones; ///< the oldest first, as the next ones
    std::vector<ResultVariables> variables;
};

} // namespace veldraw::kernel
