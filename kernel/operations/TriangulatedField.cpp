#include "kernel/operations/TriangulatedField.h"

#include "kernel/compute/ValueBlock.h"
#include "kernel/storage/ValueType.h"

#include <cmath>

namespace veldraw::kernel {

namespace {

using Number = TriangulatedPoints::Number;

void store(double const* values, std::int64_t first, std::int64_t count, Buffer& target)
{
    if (!isOfWholeNumbers(target.type())) {
        return writeBlock(values, first, count, target);
    }
    for (std::int64_t at = 0; at < count; ++at) {
        target.setValue(first + at, std::round(values[at])); // a bit is set by any value but 0
    }
}

} // namespace

double TriangulatedField::value(Number point) const
{
    if (point >= m_points.firstCrossing()) {
        PlaneTriangulation::Crossing const& crossing = m_points.crossings[point - m_points.firstCrossing()];
        if (m_axis >= 0) {
            return crossing.place[static_cast<std::size_t>(m_axis)];
        }
        double const from = value(crossing.from);
        return from + crossing.share * (value(crossing.to) - from);
    }
    TriangulatedPoints::Part const& part = m_points.partOf(point);
    Values const& values = m_values[static_cast<std::size_t>(&part - m_points.parts.data())];
    if (!values.isMixed) {
        return values.buffer ? values.buffer->value(point - part.first) : 0.0;
    }
    // By differences, so that equal values give just this value.
    PlaneTriangulation::Mix const& mix = m_points.mixes[point - m_points.firstBoundary()];
    double const first = value(mix.points[0]);
    double sum = 0.0;
    for (std::size_t at = 1; at < mix.points.size(); ++at) {
        if (mix.shares[at] > 0.0) {
            sum += mix.shares[at] * (value(mix.points[at]) - first);
        }
    }
    return first + sum;
}

/// The values at some points in the order of the new zone.
void TriangulatedField::read(std::int64_t first, std::int64_t count, double* values) const
{
    Number const* const points = m_points.points.data() + first;
    std::array<Number, blockSize> slots;
    std::int64_t at = 0;
    while (at < count) {
        if (points[at] >= m_points.firstCrossing()) {
            values[at] = value(points[at]);
            ++at;
            continue;
        }
        TriangulatedPoints::Part const& part = m_points.partOf(points[at]);
        Values const& source = m_values[static_cast<std::size_t>(&part - m_points.parts.data())];
        std::int64_t const end = std::lower_bound(points + at, points + count, part.end) - points;
        if (source.isMixed || !source.buffer) {
            std::transform(points + at, points + end, values + at, [this](Number point) { return value(point); });
        } else {
            std::transform(points + at, points + end, slots.begin(), [&](Number point) { return point - part.first; });
            gatherValues(*source.buffer, slots.data(), static_cast<std::size_t>(end - at), values + at);
        }
        at = end;
    }
}

std::shared_ptr<Buffer> TriangulatedField::make(FieldDataType_e type, Progress& progress) const
{
    auto const count = static_cast<std::int64_t>(m_points.points.size());
    std::shared_ptr<Buffer> result = Buffer::allocate(type, count);
    forEachBlock(count, progress, [&](std::int64_t first, std::int64_t number) {
        double values[blockSize];
        read(first, number, values);
        store(values, first, number, *result);
    });
    return result;
}

} // namespace veldraw::kernel
