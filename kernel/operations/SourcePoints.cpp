#include "kernel/operations/SourcePoints.h"

#include "kernel/base/Parallel.h"
#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t mostPoints = std::numeric_limits<std::uint32_t>::max();
constexpr double largestCoordinate =
    1e280; // beyond it, beside others of common size, distances are not numbers of double precision

/// The largest of some numbers without their signs; infinite when one of them is not finite.
double largestOf(double const* numbers, int count)
{
    double largest = 0.0;
    for (int at = 0; at < count; ++at) {
        if (!std::isfinite(numbers[at])) {
            return std::numeric_limits<double>::infinity();
        }
        largest = std::max(largest, std::abs(numbers[at]));
    }
    return largest;
}

} // namespace

void SourcePoints::add(ValuePlaces places, std::vector<std::shared_ptr<Buffer const>> values)
{
    std::int64_t const end = m_end + places.slotCount();
    if (end > mostPoints) {
        throw std::runtime_error("More than " + std::to_string(mostPoints) + " points cannot be interpolated at once.");
    }
    m_parts.push_back({std::move(places), std::move(values), m_end});
    m_end = static_cast<std::uint32_t>(end);
}

SourcePoints::Part const& SourcePoints::partOf(std::uint32_t point) const
{
    auto const isBefore = [](std::uint32_t number, Part const& part) { return number < part.first; };
    return *(std::upper_bound(m_parts.begin(), m_parts.end(), point, isBefore) - 1);
}

void SourcePoints::read(std::uint32_t point, double* place) const
{
    Part const& part = m_parts.size() == 1 ? m_parts.front() : partOf(point);
    part.places.read(point - part.first, place);
    std::transform(place, place + m_dimensions, place, [this](double coordinate) { return coordinate * m_scale; });
}

void SourcePoints::gather(std::size_t variable, std::uint32_t const* points, std::size_t count, double* values) const
{
    if (m_parts.size() == 1) {
        return gatherValues(*m_parts.front().values[variable], points, count, values);
    }
    for (std::size_t at = 0; at < count; ++at) {
        Part const& part = partOf(points[at]);
        values[at] = part.values[variable]->value(points[at] - part.first);
    }
}

/// Calls @p take for each point of a range with its largest coordinate, or infinity where it is not to be taken; slots without a
/// value are passed over.
template <typename Take>
void SourcePoints::look(std::int64_t first, std::int64_t last, bool withHidden, Take const& take) const
{
    for (auto point = static_cast<std::uint32_t>(first); point < last; ++point) {
        Part const& part = partOf(point);
        std::int64_t const slot = point - part.first;
        if (!part.places.exists(slot)) {
            continue;
        }
        double place[3];
        part.places.read(slot, place);
        double const largest = largestOf(place, m_dimensions);
        bool const isTaken = largest <= largestCoordinate && (withHidden || !part.places.isHidden(slot));
        take(point, isTaken ? largest : std::numeric_limits<double>::infinity());
    }
}

SourcePoints::Selection SourcePoints::select(bool withHidden, Progress const& progress) const
{
    struct Count
    {
        std::size_t points = 0;
        std::int64_t leftOut = 0;
        double largest = 0.0;
    };
    // Counted first, since lists of all chunks beside the whole one would take twice the memory.
    std::vector<Count> counts(static_cast<std::size_t>(parallelChunkCount(m_end)));
    parallelFor(m_end, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
        progress.check();
        Count& count = counts[static_cast<std::size_t>(chunk)];
        look(first, last, withHidden, [&count](std::uint32_t, double largest) {
            bool const isTaken = std::isfinite(largest);
            count.points += isTaken ? 1 : 0;
            count.leftOut += isTaken ? 0 : 1;
            count.largest = std::max(count.largest, isTaken ? largest : 0.0);
        });
    });
    Selection whole;
    std::size_t size = 0;
    for (Count& count : counts) {
        size += std::exchange(count.points, size);
        whole.leftOut += count.leftOut;
        whole.largest = std::max(whole.largest, count.largest);
    }
    whole.points.resize(size);
    parallelFor(m_end, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
        progress.check();
        std::uint32_t* next = whole.points.data() + counts[static_cast<std::size_t>(chunk)].points;
        look(first, last, withHidden, [&next](std::uint32_t point, double largest) {
            if (std::isfinite(largest)) {
                *next++ = point;
            }
        });
    });
    return whole;
}

} // namespace veldraw::kernel
