#include "kernel/operations/InterpolationTask.h"

#include "kernel/base/Parallel.h"
#include "kernel/compute/SpatialOrder.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::kernel {

namespace {

constexpr std::size_t placesAtATime = 4096;
constexpr std::size_t valuesOfAPlace = 64; // at a time
constexpr std::int64_t neighborsAtATime = 65536;

/// By differences from the first value, so that equal values give just this value. Weights far outside may be too large for
/// numbers; there the plain mean is given.
double weightedMean(double const* weights, double const* values, std::size_t count)
{
    double const first = count > 0 ? values[0] : 0.0;
    double sum = 0.0;
    double plainSum = 0.0;
    for (std::size_t at = 0; at < count; ++at) {
        sum += weights[at] * (values[at] - first);
        plainSum += values[at] - first;
    }
    return first + (std::isfinite(sum) ? sum : plainSum / static_cast<double>(count));
}

} // namespace

std::int64_t InterpolationTask::mergeCoincidentPoints(Progress& progress)
{
    sortInSpace(sources, sourcePoints, progress); // equal points follow each other
    std::size_t kept = 0;
    std::size_t first = 0;
    while (first < sourcePoints.size()) {
        std::size_t const end = endOfPlace(first, progress);
        if (end - first > 1) {
            m_merged.push_back({sourcePoints[first], static_cast<std::uint32_t>(m_merged.size())});
            addMeansOf(&sourcePoints[first], end - first, progress);
        }
        sourcePoints[kept++] = sourcePoints[first];
        first = end;
    }
    std::sort(m_merged.begin(), m_merged.end());
    auto const merged = static_cast<std::int64_t>(sourcePoints.size() - kept);
    sourcePoints.resize(kept);
    return merged;
}

/// The end of the points that are at the same place as the one at @p first.
std::size_t InterpolationTask::endOfPlace(std::size_t first, Progress const& progress) const
{
    std::array<double, 3> place{};
    sources.read(sourcePoints[first], place.data());
    for (std::size_t at = first + 1; at < sourcePoints.size(); ++at) {
        if (at % placesAtATime == 0) {
            progress.check();
        }
        std::array<double, 3> other{};
        sources.read(sourcePoints[at], other.data());
        if (other != place) {
            return at;
        }
    }
    return sourcePoints.size();
}

/// Notes the means of the values of each variable, divided as gather() does it.
void InterpolationTask::addMeansOf(std::uint32_t const* points, std::size_t count, Progress const& progress)
{
    std::array<double, valuesOfAPlace> values{};
    for (Variable const& variable : variables) {
        double first = 0.0;
        double sum = 0.0; // of the differences, so that equal values give just this value
        for (std::size_t at = 0; at < count; at += values.size()) {
            progress.check();
            std::size_t const size = std::min(values.size(), count - at);
            sources.gather(variable.position, points + at, size, values.data());
            first = at == 0 ? values[0] / variable.divisor : first;
            for (std::size_t value = 0; value < size; ++value) {
                sum += (values[value] / variable.divisor - first) / static_cast<double>(count);
            }
        }
        m_means.push_back(first + sum);
    }
}

PointColumns InterpolationTask::sourceColumns(Progress const& progress) const
{
    PointColumns columns;
    auto const axes = static_cast<std::size_t>(sources.dimensions());
    for (std::size_t axis = 0; axis < axes; ++axis) {
        columns[axis].resize(sourcePoints.size());
    }
    parallelFor(static_cast<std::int64_t>(sourcePoints.size()),
                [&](std::int64_t first, std::int64_t last, std::int64_t) {
                    progress.check();
                    for (auto at = static_cast<std::size_t>(first); at < static_cast<std::size_t>(last); ++at) {
                        std::array<double, 3> place{};
                        sources.read(sourcePoints[at], place.data());
                        for (std::size_t axis = 0; axis < axes; ++axis) {
                            columns[axis][at] = place[axis];
                        }
                    }
                });
    return columns;
}

void InterpolationTask::gather(std::size_t variable, std::uint32_t const* points, std::size_t count,
                               double* values) const
{
    sources.gather(variables[variable].position, points, count, values);
    double const divisor = variables[variable].divisor;
    if (divisor > 1.0) {
        std::transform(values, values + count, values, [divisor](double value) { return value / divisor; });
    }
    for (std::size_t at = 0; at < count && !m_merged.empty(); ++at) {
        auto const merged = std::lower_bound(m_merged.begin(), m_merged.end(), std::pair(points[at], std::uint32_t{0}));
        if (merged != m_merged.end() && merged->first == points[at]) {
            values[at] = m_means[merged->second * variables.size() + variable];
        }
    }
}

void InterpolationTask::forEachBlock(std::size_t size, Progress& progress, UseTargets const& use) const
{
    auto const axes = static_cast<std::size_t>(targets.dimensions());
    auto const workOnChunk = [&](std::int64_t begin, std::int64_t end, std::int64_t) {
        std::vector<double> places;
        for (auto first = static_cast<std::size_t>(begin); first < static_cast<std::size_t>(end); first += size) {
            progress.check();
            std::size_t const count = std::min(size, static_cast<std::size_t>(end) - first);
            places.resize(count * axes);
            for (std::size_t at = 0; at < count; ++at) {
                targets.read(targetPoints[first + at], &places[at * axes]);
            }
            use(&targetPoints[first], places);
            progress.advance(static_cast<std::int64_t>(count));
        }
    };
    parallelFor(static_cast<std::int64_t>(targetPoints.size()), workOnChunk);
}

std::size_t InterpolationTask::blockSize(NeighborChoice const& choice)
{
    return static_cast<std::size_t>(std::clamp<std::int64_t>(neighborsAtATime / choice.count, 1, 512));
}

void InterpolationTask::storeSums(NeighborSearch const& search, Neighborhoods const& found,
                                  std::vector<double> const& weights, std::uint32_t const* targetNumbers) const
{
    std::vector<std::uint32_t> points(found.neighbors.size());
    std::transform(found.neighbors.begin(), found.neighbors.end(), points.begin(),
                   [&search](Neighbor const& neighbor) { return search.point(neighbor.place); });
    std::vector<double> values(points.size());
    for (std::size_t variable = 0; variable < variables.size(); ++variable) {
        gather(variable, points.data(), points.size(), values.data());
        for (std::size_t target = 0; target < found.targetCount(); ++target) {
            std::size_t const first = found.begins[target];
            std::size_t const last = found.begins[target + 1];
            store(variable, targetNumbers[target], weightedMean(&weights[first], &values[first], last - first));
        }
    }
}

void InterpolationTask::store(std::size_t variable, std::uint32_t target, double estimate) const
{
    double const value = estimate * variables[variable].divisor;
    double const largest = std::numeric_limits<double>::max();
    variables[variable].field->set(target, std::clamp(value, -largest, largest));
}

} // namespace veldraw::kernel
