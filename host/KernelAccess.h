#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/frames/Frame.h"

#include <cstddef>
#include <memory>
#include <unordered_map>

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

    /// Whether this is a 2D or 3D plot.
    static bool isFieldPlotType(PlotType_e plotType);

    KernelAccess() = delete;
};

/// The numbers of zones by their identifiers, for many line maps at a time.
class ZoneNumbers
{
public:
    /// @param dataSet is to outlive the object
    /// @param lineMaps number of maps that will be asked for
    ZoneNumbers(kernel::DataSet const& dataSet, std::size_t lineMaps);

    /// 0 where the zone does not exist or is disabled.
    int enabledZoneOf(kernel::LineMap const& lineMap) const;

private:
    kernel::DataSet const& m_dataSet;
    std::unordered_map<kernel::UniqueId, int> m_numbers; // empty for a few maps, which do not repay it
};

} // namespace veldraw::host
