#pragma once

#include "kernel/data/DataSet.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

namespace veldraw::tests {

/// Reads points and vectors of one zone of the active data set, so that the tour can check numbers and not only pictures. It keeps
/// the fields as they are now, whatever happens to the zone later.
class ZoneProbe
{
public:
    using Triple = std::array<double, 3>;

    /// @param zone one-based number; its coordinates and vector are those that the active frame uses
    explicit ZoneProbe(int zone);

    std::int64_t pointCount() const { return m_pointCount; }

    static Triple negatedY(Triple const& value) { return {value[0], -value[1], value[2]}; }

    /// Coordinates of a zero-based point, 0 where the frame has no axis.
    Triple point(std::int64_t index) const { return values(m_coordinates, index); }
    Triple vector(std::int64_t index) const { return values(m_vector, index); }

    /// The largest distance, over all points, of @p turned of this zone's point from the point of @p other.
    template <typename Turn>
    double distance(ZoneProbe const& other, Turn const& turned) const;

    /// The same for vectors.
    template <typename Turn>
    double vectorDistance(ZoneProbe const& other, Turn const& turned) const;

private:
    using Buffers = std::array<std::shared_ptr<kernel::Buffer const>, 3>;

    static Triple values(Buffers const& buffers, std::int64_t index);
    static double between(Triple const& one, Triple const& other);

    std::int64_t m_pointCount;
    Buffers m_coordinates;
    Buffers m_vector;
};

template <typename Turn>
double ZoneProbe::distance(ZoneProbe const& other, Turn const& turned) const
{
    double largest = 0.0;
    for (std::int64_t index = 0; index < m_pointCount; ++index)
        largest = std::max(largest, between(turned(point(index)), other.point(index)));
    return largest;
}

template <typename Turn>
double ZoneProbe::vectorDistance(ZoneProbe const& other, Turn const& turned) const
{
    double largest = 0.0;
    for (std::int64_t index = 0; index < m_pointCount; ++index)
        largest = std::max(largest, between(turned(vector(index)), other.vector(index)));
    return largest;
}

} // namespace veldraw::tests
