#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/frames/Frame.h"

#include <memory>

namespace veldraw::host {

/// Look-ups in the kernel's session that the queries have in common. Null means that there is no such thing.
class KernelAccess
{
public:
    static std::shared_ptr<kernel::DataSet> dataSetOf(long long frameID);

    /// Unique identifier of the active frame, 0 when there is none.
    static long long activeFrameID();

    /// Zone of the active data set by its one-based number.
    static std::shared_ptr<kernel::Zone> zone(int number);

    /// Whether the zone of a line map exists and is enabled.
    static bool isEnabled(kernel::LineMap const& lineMap, kernel::DataSet const& dataSet);

    KernelAccess() = delete;
};

} // namespace veldraw::host
