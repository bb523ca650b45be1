#include "app/plot/ZoneRanges.h"

#include <algorithm>

namespace veldraw::app {

using kernel::ValueRange;

namespace {

// @param rangeIn gives the range in a zone where the variable has values
template <typename RangeIn>
ValueRange joined(kernel::DataSet const& dataSet, std::vector<int> const& zones, int variable,
                  ValueRange const& ofPassive, RangeIn const& rangeIn)
{
    ValueRange all;
    for (int const number : zones) {
        auto const zone = dataSet.zone(number);
        kernel::Field const* const field = dataSet.field(number, variable);
        if (!zone || !field || zone->pointCount() <= 0)
            continue;
        ValueRange const own = field->isPassive() ? ofPassive : rangeIn(number);
        if (!own.isValid())
            continue;
        all.min = all.isValid() ? std::min(all.min, own.min) : own.min;
        all.max = all.isValid() ? std::max(all.max, own.max) : own.max;
        all.state = ValueRange::State::Exact;
    }
    return all;
}

} // namespace

ValueRange ZoneRanges::of(kernel::Frame const& frame, std::vector<int> const& zones, int variable)
{
    return joined(*frame.dataSet, zones, variable, {}, [&](int zone) { return frame.rangeOf(zone, variable); });
}

ValueRange ZoneRanges::ofCoordinate(kernel::DataSet const& dataSet, std::vector<int> const& zones, int variable)
{
    return joined(dataSet, zones, variable, {ValueRange::State::Exact, 0.0, 0.0},
                  [&](int zone) { return dataSet.zone(zone)->range(variable); });
}

} // namespace veldraw::app
