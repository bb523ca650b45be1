#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/data/AuxiliaryData.h"
#include "kernel/frames/CurveLook.h"

#include <array>
#include <cstdint>
#include <string>

namespace veldraw::kernel {

/// Points along one direction: from min to max (one-based, max 0 = the last one), each skip-th.
struct IndexRange
{
    std::int64_t min = 1;
    std::int64_t max = 0;
    std::int64_t skip = 1;
};

/// One curve of a line plot: a variable over another in one zone. Zone and variables are kept by identifier, so a deleted
/// variable is shown again after undo.
struct LineMap
{
    UniqueId id = nextUniqueId();
    std::string name;
    UniqueId zone = 0;
    UniqueId xVariable = 0;
    UniqueId yVariable = 0;
    bool xDependsOnY = false; ///< which variable is the function of the other
    bool active = true;
    std::array<IndexRange, 3> indices{}; ///< points that are drawn, along I, J and K
    CurveLook look;
    bool isOnSecondAxis = false; ///< its vertical axis is the one at the right side
    AuxiliaryData auxiliaryData;
};

} // namespace veldraw::kernel
