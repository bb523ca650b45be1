#include "kernel/data/LargeRanges.h"

namespace veldraw::kernel {

namespace {

constexpr std::int64_t largeCount = std::int64_t{1} << 20;

bool isLarge(Field const& field)
{
    return !field.isPassive() && field.isLoaded() && !field.group()->isMapped() && field.group()->size() >= largeCount;
}

} // namespace

void findLargeRanges(DataSet const& dataSet, Progress& progress)
{
    for (auto const& zone : dataSet.zones()) {
        for (std::size_t at = 0; at < zone->fields.size(); ++at) {
            if (isLarge(zone->fields[at])) {
                progress.check();
                zone->range(static_cast<int>(at) + 1);
            }
        }
    }
}

} // namespace veldraw::kernel
