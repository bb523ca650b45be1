#include "kernel/operations/SourcePoints.h"

#include "kernel/base/Parallel.h"
#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

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

SourcePoints::Selection SourcePoints::select(bool withHidden, Progress const& progress) const
{
    Selection whole;
    whole.points.resize(
        m_end); // each chunk has its own part; lists of chunks beside the whole one would take twice the memory
    std::vector<Chunk> chunks(static_cast<std::size_t>(parallelChunkCount(m_end)));
    parallelFor(m_end, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
        progress.check();
        chunks[static_cast<std::size_t>(chunk)] = selectChunk(first, last, withHidden, whole.points.data() + first);
    });
    auto end = whole.points.begin();
    for (Chunk const& chunk : chunks) {
        end = std::copy_n(whole.points.begin() + chunk.first, chunk.count, end);
        whole.leftOut += chunk.leftOut;
        whole.largest = std::max(whole.largest, chunk.largest);
    }
    whole.points.erase(end, whole.points.end());
    return whole;
}

/// Writes the selected points of a range one after the other.
SourcePoints::Chunk SourcePoints::selectChunk(std::int64_t first, std::int64_t last, bool withHidden,
                                              std::uint32_t* points) const
{
    Chunk chunk{first};
    for (auto point = static_cast<std::uint32_t>(first); point < last; ++point) {
        Part const& part = partOf(point);
        std::int64_t const slot = point - part.first;
        if (!part.places.exists(slot)) {
            continue;
        }
        double place[3];
        part.places.read(slot, place);
        double const largest = largestOf(place, m_dimensions);
        if (largest <= largestCoordinate && (withHidden || !part.places.isHidden(slot))) {
            points[chunk.count++] = point;
            chunk.largest = std::max(chunk.largest, largest);
        } else {
            ++chunk.leftOut;
        }
    }
    return chunk;
}

} // namespace veldraw::kernel
