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

void addSample(std::vector<double>& sample, kernel::Frame const& frame, int zone, int variable, std::int64_t step)
{
    kernel::Field const& field = *frame.dataSet->field(zone, variable);
    FieldValues const values(&field);
    kernel::CountedValues counted;
    if (auto const blanking = frame.blankingOf(zone))
        counted.hidden = blanking->hidden(field.location());
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

// Values of the zones that are in memory, and those of the others that are known of without reading.
struct Sample
{
    std::vector<double> values;
    ValueRange others;
};

Sample sampleOf(kernel::Frame const& frame, std::vector<int> const& zones, int variable)
{
    kernel::DataSet const& dataSet = *frame.dataSet;
    std::int64_t total = 0;
    std::vector<int> others;
    for (int const zone : zones) {
        kernel::Field const* const field = dataSet.field(zone, variable);
        if (isInMemory(field))
            total += FieldValues(field).size();
        else
            others.push_back(zone);
    }
    Sample sample;
    for (int const zone : zones)
        if (isInMemory(dataSet.field(zone, variable)))
            addSample(sample.values, frame, zone, variable, 1 + total / mostLookedAt);
    sample.others = ZoneRanges::of(frame, others, variable);
    return sample;
}

// @param left how many values count for nothing at either end; there are more than twice as many
ValueRange limitsOf(Sample& sample, std::size_t left)
{
    ValueRange limits{ValueRange::State::Estimated, valueAt(sample.values, left),
                      valueAt(sample.values, sample.values.size() - 1 - left)};
    if (sample.others.isValid()) {
        limits.min = std::min(limits.min, sample.others.min);
        limits.max = std::max(limits.max, sample.others.max);
    }
    return limits;
}

// Of zones that reach to both sides of 0 only the highest value is known to be above it.
void keepPositive(Sample& sample)
{
    auto const isNot = [](double value) { return !(value > 0.0); };
    sample.values.erase(std::remove_if(sample.values.begin(), sample.values.end(), isNot), sample.values.end());
    if (!sample.others.isValid())
        return;
    if (isNot(sample.others.max))
        sample.others = {};
    else if (isNot(sample.others.min))
        sample.others.min = sample.others.max;
}

} // namespace

ValueRange ContourRange::withoutEnds(kernel::Frame const& frame, std::vector<int> const& zones, int variable)
{
    ValueRange const whole = ZoneRanges::of(frame, zones, variable);
    Sample sample = sampleOf(frame, zones, variable);
    if (sample.values.empty())
        return whole;
    ValueRange const limits = limitsOf(sample, sample.values.size() / 100);
    return limits.min < limits.max ? limits : whole;
}

ValueRange ContourRange::positive(kernel::Frame const& frame, std::vector<int> const& zones, int variable,
                                  bool isWithoutEnds)
{
    ValueRange const whole = ZoneRanges::of(frame, zones, variable);
    if (!whole.isValid() || !(whole.max > 0.0))
        return {};
    if (whole.min > 0.0)
        return isWithoutEnds ? withoutEnds(frame, zones, variable) : whole;
    Sample sample = sampleOf(frame, zones, variable);
    keepPositive(sample);
    if (sample.values.empty())
        return sample.others;
    ValueRange limits = limitsOf(sample, 0);
    limits.max = std::max(limits.max, whole.max);
    if (!isWithoutEnds)
        return limits;
    ValueRange const inner = limitsOf(sample, sample.values.size() / 100);
    return inner.min < inner.max ? inner : limits;
}

} // namespace veldraw::app
