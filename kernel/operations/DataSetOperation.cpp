#include "kernel/operations/DataSetOperation.h"

#include "kernel/frames/Pages.h"

namespace veldraw::kernel {

std::string DataSetOperation::find(Pages const& pages)
{
    m_dataSet = pages.dataSet(m_id);
    return m_dataSet ? "" : "No frame shows the data set.";
}

char const* reasonAgainstZones(DataSet const& dataSet, NumberSet const& zones)
{
    if (zones.empty()) {
        return "No zones were given.";
    }
    bool const allExist = *zones.begin() >= 1 && *zones.rbegin() <= dataSet.zoneCount();
    return allExist ? nullptr : noZone;
}

} // namespace veldraw::kernel
