#include "kernel/compute/ListSmoothing.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/ZeroedArray.h"
#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t valuesForAThread = 4096; // some ten microseconds

/// One pass over the values from first to before last. @return the largest change
double pass(NeighborLists const& lists, double weight, double const* before, double* after, std::int64_t first,
            std::int64_t last)
{
    double largest = 0.0;
    for (std::int64_t at = first; at < last; ++at) {
        double const value = before[at];
        auto const begin = static_cast<std::size_t>(lists.starts[static_cast<std::size_t>(at)]);
        auto const end = static_cast<std::size_t>(lists.starts[static_cast<std::size_t>(at) + 1]);
        double sum = 0.0;
        for (std::size_t place = begin; place < end; ++place) {
            sum += before[lists.neighbors[place]] - value; // by differences, so that equal values stay to the last bit
        }
        double const change = end > begin ? weight * sum / static_cast<double>(end - begin) : 0.0;
        after[at] = value + change;
        largest = std::max(largest, std::fabs(change));
    }
    return largest;
}

} // namespace

SmoothingOutcome smoothByLists(NeighborLists const& lists, SmoothingRule const& rule, SmoothingValues& values,
                               Progress& progress)
{
    std::int64_t const count = lists.count();
    progress.setTotal(progress.done() + rule.passes * count);
    requireMemory(2.0 * sizeof(double) * static_cast<double>(count));
    ZeroedArray<double> before(static_cast<std::size_t>(count));
    ZeroedArray<double> after(static_cast<std::size_t>(count));
    Progress reading(progress, 0);
    forEachBlock(count, reading,
                 [&](std::int64_t first, std::int64_t size) { values.read(first, size, before.begin() + first); });
    std::vector<double> changes(static_cast<std::size_t>(parallelChunkCount(count)));
    for (std::int64_t left = rule.passes; left > 0; --left) {
        std::fill(changes.begin(), changes.end(), 0.0);
        parallelFor(
            count,
            [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
                for (std::int64_t at = first; at < last; at += blockSize) {
                    progress.check();
                    std::int64_t const end = std::min(at + blockSize, last);
                    double& largest = changes[static_cast<std::size_t>(chunk)];
                    largest = std::max(largest, pass(lists, rule.weight, before.begin(), after.begin(), at, end));
                    progress.advance(end - at);
                }
            },
            valuesForAThread);
        std::swap(before, after);
    }
    forEachBlock(count, reading,
                 [&](std::int64_t first, std::int64_t size) { values.store(first, size, before.begin() + first); });
    double const largest = changes.empty() ? 0.0 : *std::max_element(changes.begin(), changes.end());
    return {lists.held, values.inUnits(largest)};
}

} // namespace veldraw::kernel
