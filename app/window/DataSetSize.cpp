#include "app/window/DataSetSize.h"

#include <set>

namespace veldraw::app {

std::int64_t pointCount(kernel::DataSet const& dataSet)
{
    std::int64_t count = 0;
    for (auto const& zone : dataSet.zones())
        count += zone->pointCount();
    return count;
}

std::int64_t cellCount(kernel::DataSet const& dataSet)
{
    std::int64_t count = 0;
    for (auto const& zone : dataSet.zones())
        count += zone->cellCount();
    return count;
}

ValueBytes valueBytes(kernel::DataSet const& dataSet)
{
    std::set<kernel::ShareGroup const*> seen;
    ValueBytes bytes;
    for (auto const& zone : dataSet.zones())
        for (kernel::Field const& field : zone->fields) {
            if (field.isPassive() || !field.isLoaded() || !seen.insert(field.group().get()).second)
                continue;
            (field.group()->isMapped() ? bytes.mapped : bytes.inMemory) += field.group()->buffer()->bytes();
        }
    return bytes;
}

} // namespace veldraw::app
