#pragma once

#include "kernel/data/DataSet.h"

namespace veldraw::kernel {

constexpr char locked[] = "The data set is locked.";
constexpr char notShown[] = "No frame shows the data set.";
constexpr char noZone[] = "There is no such zone.";
constexpr char noVariable[] = "There is no such variable.";
constexpr char noFrame[] = "There is no such frame.";
constexpr char frameWithoutData[] = "The frame has no data set.";

/// Why an operation cannot work on these zones, null when it can.
inline char const* reasonAgainstZones(DataSet const& dataSet, NumberSet const& zones)
{
    if (!dataSet.lockHolder().empty()) {
        return locked;
    }
    if (zones.empty()) {
        return "No zones were given.";
    }
    bool const allExist = *zones.begin() >= 1 && *zones.rbegin() <= dataSet.zoneCount();
    return allExist ? nullptr : noZone;
}

} // namespace veldraw::kernel
