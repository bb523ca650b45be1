#include "kernel/data/ValuePlaces.h"

#include "kernel/data/Zone.h"

#include <array>
#include <cmath>

namespace veldraw::kernel {

namespace {

/// The mean of coordinates of corners, also where their sum overflows.
class CornerMean
{
public:
    explicit CornerMean(int axes)
        : m_axes(axes)
    {
    }

    void add(std::array<double, 3> const& corner)
    {
        ++m_count;
        for (std::size_t axis = 0; axis < corner.size(); ++axis) {
            m_sum[axis] += corner[axis];
            m_smallSum[axis] += corner[axis] * small;
        }
    }

    void write(double* place) const
    {
        for (int axis = 0; axis < m_axes; ++axis) {
            auto const at = static_cast<std::size_t>(axis);
            place[axis] = std::isfinite(m_sum[at]) ? m_sum[at] / m_count : m_smallSum[at] / m_count / small;
        }
    }

private:
    static constexpr double small = 0x1p-64;

    int m_axes;
    double m_count = 0.0;
    std::array<double, 3> m_sum{};
    std::array<double, 3> m_smallSum{};
};

} // namespace

ValuePlaces::ValuePlaces(ZoneType_e type, ZoneDimensions dimensions, Coordinates coordinates, int count,
                         ValueLocation_e location)
    : m_isOrdered(type == ZoneType_Ordered)
    , m_dimensions(std::move(dimensions))
    , m_coordinates{QuickReader(std::move(coordinates[0])), QuickReader(std::move(coordinates[1])),
                    QuickReader(std::move(coordinates[2]))}
    , m_count(count)
    , m_location(location)
    , m_slotCount(Zone({}, type, m_dimensions.i, m_dimensions.j, m_dimensions.k).valueCount(location))
    , m_corners(m_dimensions.i, m_dimensions.j, m_dimensions.k)
    , m_hidden(m_dimensions.blanking ? m_dimensions.blanking->hidden(location) : nullptr)
{
}

bool ValuePlaces::exists(std::int64_t slot) const
{
    if (m_location == ValueLocation_Nodal || !m_isOrdered) {
        return slot < m_slotCount;
    }
    return hasCell(slot, m_dimensions.i, m_dimensions.j, m_dimensions.k);
}

void ValuePlaces::read(std::int64_t slot, double* place) const
{
    if (m_location == ValueLocation_Nodal) {
        return readPoint(slot, place);
    }
    return m_isOrdered ? readOrderedCell(slot, place) : readCell(slot, place);
}

void ValuePlaces::readPoint(std::int64_t point, double* place) const
{
    for (int axis = 0; axis < m_count; ++axis) {
        place[axis] = m_coordinates[static_cast<std::size_t>(axis)].at(point);
    }
}

void ValuePlaces::readOrderedCell(std::int64_t slot, double* place) const
{
    CornerMean mean(m_count);
    for (std::size_t corner = 0; corner < m_corners.count(); ++corner) {
        std::array<double, 3> at{};
        readPoint(m_corners.point(slot, corner), at.data());
        mean.add(at);
    }
    mean.write(place);
}

void ValuePlaces::readCell(std::int64_t cell, double* place) const
{
    Connectivity const& cells = *m_dimensions.connectivity;
    CornerMean mean(m_count);
    std::int64_t const first = cells.offsets[cell];
    std::int64_t const last = cells.offsets[cell + 1];
    for (std::int64_t corner = first; corner < last; ++corner) {
        std::array<double, 3> at{};
        readPoint(cells.indices[corner], at.data());
        mean.add(at);
    }
    mean.write(place);
}

} // namespace veldraw::kernel
