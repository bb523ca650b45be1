#include "app/plot/ZoneRanges.h"

#include <algorithm>

namespace veldraw::app {

using kernel::ValueRange;

namespace {

ValueRange rangeOf(kernel::DataSet const& dataSet, std::vector<int> const& zones, int variable,
                   ValueRange const& ofPassive)
{
    ValueRange all;
    for (int const number : zones) {
        auto const zone = dataSet.zone(number);
        kernel::Field const* const field = dataSet.field(number, variable);
        if (!zone || !field || zone->pointCount() <= 0)
            continue;
        ValueRange const own = field->isPassive() ? ofPassive : zone->range(variable);
        if (!own.isValid())
            continue;
        all.min = all.isValid() ? std::min(all.min, own.min) : own.min;
        all.max = all.isValid() ? std::max(all.max, own.max) : own.max;
        all.state = ValueRange::State::Exact;
    }
    return all;
}

} // namespace

ValueRange ZoneRanges::of(kernel::DataSet const& dataSet, std::vector<int> const& zones, int variable)
{
    return rangeOf(dataSet, zones, variable, {});
}

ValueRange ZoneRanges::ofCoordinate(kernel::DataSet const& dataSet, std::vector<int> const& zones, int variable)
{
    return rangeOf(dataSet, zones, variable, {ValueRange::State::Exact, 0.0, 0.0});
}

} // namespace veldraw::app
