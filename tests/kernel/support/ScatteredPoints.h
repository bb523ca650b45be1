#pragma once

#include "kernel/compute/PointReader.h"

#include <cmath>
#include <cstdint>
#include <numeric>
#include <random>
#include <vector>

namespace veldraw::tests {

/// Points in memory, one after the other.
class ScatteredPoints : public kernel::PointReader
{
public:
    ScatteredPoints(int axes, std::vector<double> places)
        : m_axes(axes)
        , m_places(std::move(places))
    {
    }

    /// @p count points that fill a cube with sides from 0 to 1 evenly.
    static ScatteredPoints random(int axes, std::size_t count, unsigned seed)
    {
        std::mt19937_64 generator(seed);
        std::uniform_real_distribution<double> number;
        std::vector<double> places(count * static_cast<std::size_t>(axes));
        for (double& coordinate : places) {
            coordinate = number(generator);
        }
        return {axes, std::move(places)};
    }

    int dimensions() const override { return m_axes; }

    void read(std::uint32_t point, double* place) const override
    {
        for (int axis = 0; axis < m_axes; ++axis) {
            place[axis] = at(point)[axis];
        }
    }

    double const* at(std::size_t point) const { return &m_places[point * static_cast<std::size_t>(m_axes)]; }
    std::size_t count() const { return m_places.size() / static_cast<std::size_t>(m_axes); }
    std::vector<double> const& places() const { return m_places; }

    std::vector<std::uint32_t> numbers() const
    {
        std::vector<std::uint32_t> all(count());
        std::iota(all.begin(), all.end(), 0U);
        return all;
    }

    double squaredDistance(std::size_t point, double const* target) const
    {
        double square = 0.0;
        for (int axis = 0; axis < m_axes; ++axis) {
            double const difference = at(point)[axis] - target[axis];
            square += difference * difference;
        }
        return square;
    }

    /// The octant around a target, or quadrant, that a point is in: a bit for each coordinate that is not below the target's.
    std::size_t octant(std::size_t point, double const* target) const
    {
        std::size_t result = 0;
        for (int axis = 0; axis < m_axes; ++axis) {
            result |= at(point)[axis] >= target[axis] ? std::size_t{1} << axis : 0U;
        }
        return result;
    }

    ScatteredPoints(ScatteredPoints&& other) noexcept
        : m_axes(other.m_axes)
        , m_places(std::move(other.m_places))
    {
    }

private:
    int m_axes;
    std::vector<double> m_places;
};

} // namespace veldraw::tests
