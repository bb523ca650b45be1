#include "app/plot/ContourRange.h"

#include "app/plot/FieldValues.h"
#include "app/plot/ZoneRanges.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace veldraw::app {

using kernel::ValueRange;

namespace {

constexpr std::int64_t mostLookedAt = 300000; // some milliseconds, as each change of the frame looks again

// Mapped values would be read from the file.
bool isInMemory(kernel::Field const* field)
{
    return field && !field->isPassive() && field->isLoaded() && field->group() && !field->group()->isMapped();
}

void addSample(std::vector<double>& sample, kernel::Zone const& zone, kernel::Field const& field, std::int64_t step)
{
    FieldValues const values(&field);
    kernel::CountedValues const counted = zone.countedValues(field.location());
    for (std::int64_t n = 0; n < values.size(); n += step) {
        double const value = values.at(n);
        if (std::isfinite(value) && !counted.leaveOut(n))
            sample.push_back(value);
    }
}

double valueAt(std::vector<double>& sample, std::size_t place)
{
    auto const wanted = sample.begin() + static_cast<std::ptrdiff_t>(place);
    std::nth_element(sample.begin(), wanted, sample.end());
    return *wanted;
}

} // namespace

ValueRange ContourRange::withoutEnds(kernel::DataSet const& dataSet, std::vector<int> const& zones, int variable)
{
    ValueRange const whole = ZoneRanges::of(dataSet, zones, variable);
    std::int64_t total = 0;
    std::vector<int> others;
    for (int const zone : zones) {
        kernel::Field const* const field = dataSet.field(zone, variable);
        if (isInMemory(field))
            total += FieldValues(field).size();
        else
            others.push_back(zone);
    }
    std::vector<double> sample;
    for (int const zone : zones)
        if (isInMemory(dataSet.field(zone, variable)))
            addSample(sample, *dataSet.zone(zone), *dataSet.field(zone, variable), 1 + total / mostLookedAt);
    if (sample.empty())
        return whole;
    std::size_t const left = sample.size() / 100;
    ValueRange limits{ValueRange::State::Estimated, valueAt(sample, left), valueAt(sample, sample.size() - 1 - left)};
    ValueRange const ofOthers = ZoneRanges::of(dataSet, others, variable);
    if (ofOthers.isValid()) {
        limits.min = std::min(limits.min, ofOthers.min);
        limits.max = std::max(limits.max, ofOthers.max);
    }
    return limits.min < limits.max ? limits : whole;
}

} // namespace veldraw::app
